#!/usr/bin/env python3
"""compare.py SIMREC CAPTURE_SESSION NODE_FOLDER: counts, sums and extremes of all columns are the
same in what DuckDB loads from an export as JSON lines and as CSV, in SQLite, and in what
`simrec show --json` tells. The data is the demo's, with damaged files and odd numbers among it.

NODE_FOLDER has sums.mjs and the package that it needs.
"""
import datetime
import glob
import json
import math
import os
import re
import sqlite3
import subprocess
import sys
import tempfile

LEADS = ["capture", "request", "camera", "ev", "text", "index", "file", "modified", "problem"]


def edit(path, *changes):
    with open(path) as file:
        text = file.read()
    for old, new in changes:
        changed = re.sub(old, new, text, count=1)
        assert changed != text, (path, old)
        text = changed
    with open(path, "w") as file:
        file.write(text)


def damage(data):
    """Files as they are found in real folders, and numbers as records may hold them."""
    images = sorted(glob.glob(os.path.join(data, "IMG_*")))

    def records(name):
        return sorted(path for image in images
                      for path in glob.glob(os.path.join(image, f"simulation_{name}")))

    aec, stats, qseg = records("AE_*"), records("AWB_Parsed*"), records("AWB_Qseg*")
    edit(aec[0], ("<LuxIndex>.*?<", "<LuxIndex>nan<"), ('Gain="1"', 'Gain="inf"'))
    edit(aec[1], ('ExposureTime="\\d+"', f'ExposureTime="{2**64 - 1}"'),
         ("<DrcGain>.*?<", "<DrcGain>-inf<"))
    edit(aec[2], ('ExposureTime="\\d+"', f'ExposureTime="{2**63}"'),
         ("<DrcGain>.*?<", "<DrcGain>1e-42<"))
    edit(aec[3], ("<DigitalGain>.*\n", ""))
    edit(aec[4], ("</SimulationData>", ""))
    edit(aec[5], ("<LuxIndex>.*?<", "<LuxIndex>many<"))
    edit(stats[0], ("<RSum>\\d+", f"<RSum>{2**64 - 1}"))
    edit(stats[1], ("<RCount>\\d+", "<RCount>65536"))
    edit(qseg[0], ("<qsegStatsInfo>\\d+ ", "<qsegStatsInfo>256 "))
    edit(qseg[1], ("<qsegStatsInfo>\\d+ ", "<qsegStatsInfo>"))
    edit(records("ZOAWB_Spectral*")[0], ("<channelDatas>\\S+", "<channelDatas>nan"))
    for path in (stats[2], records("AWB_FaceROI*")[0]):
        open(path, "w").close()
    with open(records("AWB_Tuning*")[0], "r+b") as file:
        file.truncate(20)
    for path, replace in zip(records("ZOAWB_Light*"), (os.mkfifo, os.mkdir,
                                                       lambda path: os.symlink("nowhere", path))):
        os.unlink(path)
        replace(path)
    shading = glob.glob(os.path.join(data, "BURST_*", "simulation_LSC*"))[0]
    os.rename(shading, os.path.join(os.path.dirname(shading),
                                    'simulation_LSC[a "b", \u00e9\n]_index[0]_ev[0].xml'))


def milliseconds(time):
    return round(datetime.datetime.fromisoformat(time.replace("Z", "+00:00")).timestamp() * 1000)


def numbers_of(values):
    for value in values:
        if isinstance(value, list):
            yield from numbers_of(value)
        elif isinstance(value, str):
            yield float(value) if not value.isdigit() else int(value)
        else:
            yield value


def answers(column, values):
    """What sums.mjs tells of a column."""
    values = [value for value in values if value is not None]
    if column["type"] == "text":
        return [len(values), min(values, default=None), max(values, default=None)]
    if column["type"] == "time":
        times = [milliseconds(value) for value in values]
        return [len(values), min(times, default=None), max(times, default=None)]
    numbers = list(numbers_of(values))
    finite = [number for number in numbers if math.isfinite(number)]
    add = math.fsum if column["type"].startswith("double") else sum
    return [len(values), len(numbers), add(finite) if finite else None,
            min(finite, default=None), max(finite, default=None),
            sum(math.isnan(number) for number in numbers),
            numbers.count(math.inf), numbers.count(-math.inf)]


def summary(rows, schemas):
    """Of rows by kind, in the form of sums.mjs."""
    result = {}
    for kind, some in rows.items():
        cameras = {}
        for row in some:
            cameras.setdefault("" if row["camera"] is None else str(row["camera"]), []).append(row)
        result[kind] = {camera: {"rows": len(part), **{
            column["name"]: answers(column, [row.get(column["name"]) for row in part])
            for column in schemas[kind] if column["name"] != "camera"}}
            for camera, part in cameras.items()}
    return result


def same(a, b):
    if isinstance(a, dict):
        return a.keys() == b.keys() and all(same(a[key], b[key]) for key in a)
    if isinstance(a, list):
        return len(a) == len(b) and all(map(same, a, b))
    if a is None or b is None or isinstance(a, str) and isinstance(b, str) and a == b:
        return a == b
    if "." in str(a) + str(b) or "e" in str(a) + str(b):  # sums in another order
        return math.isclose(float(a), float(b), rel_tol=1e-12)
    return str(a) == str(b)


def differences(name, a, b):
    found = [(kind, camera, column, a[kind][camera][column], b[kind][camera][column])
             for kind in a.keys() & b.keys() for camera in a[kind].keys() & b[kind].keys()
             for column in a[kind][camera]
             if not same(a[kind][camera][column], b[kind][camera][column])]
    found += [kind for kind in a.keys() ^ b.keys()]
    found += [(kind, camera) for kind in a.keys() & b.keys()
              for camera in a[kind].keys() ^ b[kind].keys()]
    for each in found[:10]:
        print(f"{name}: {each}")
    return len(found)


def flatten(values, path, row):
    for name, value in values.items():
        if isinstance(value, dict):
            flatten(value, path + name + "_", row)
        elif isinstance(value, list) and value and isinstance(value[0], dict):
            for index, item in enumerate(value):
                flatten(item, f"{path}{name}_{index}_", row)
        else:
            row[path + name] = value


def rows_of_show(simrec, data):
    def ask(*arguments):
        return json.loads(subprocess.run([simrec, "--data", data, *arguments, "--json"], check=True,
                                         stdout=subprocess.PIPE).stdout)
    rows = {}
    for capture in ask("list")["captures"]:
        request = capture["name"].split("/")[0] if capture["kind"] == "request" else None
        for record in ask("show", capture["name"], "--lists")["records"]:
            row = {key: record.get(key) for key in LEADS}
            row["capture"], row["request"] = capture["name"], request and int(request)
            row["problem"] = "; ".join(record["problems"]) or None
            if row["problem"] == "a link to nowhere":
                row["modified"] = None
            flatten(record["values"], "", row)
            if "size" in row and not record["bytes"] and "a " in (row["problem"] or ""):
                row["size"] = None
            rows.setdefault(record["record"], []).append(row)
    return rows


def rows_of_sqlite(path, schemas):
    database = sqlite3.connect(path)
    rows = {}
    for kind, columns in schemas.items():
        names = [column["name"] for column in columns]
        some = [dict(zip(names, row)) for row in database.execute(f"SELECT * FROM {kind}")]
        for row in some:
            for column in columns:
                if column["type"].endswith("[]") and row[column["name"]] is not None:
                    row[column["name"]] = json.loads(row[column["name"]])
        if some:
            rows[kind] = some
    return rows


def main():
    simrec, capture_session, node = map(os.path.abspath, sys.argv[1:])
    with tempfile.TemporaryDirectory() as folder:
        data = os.path.join(folder, "data")
        subprocess.run([capture_session, "--requests", "12", "--data", data], check=True,
                       stdout=subprocess.DEVNULL)
        damage(data)
        out = {name: os.path.join(folder, name) for name in ("jsonl", "csv", "sqlite")}
        for name, path in out.items():
            subprocess.run([simrec, "--data", data, "export", "--lists", "--format", name, "-o",
                            path], check=True)
        schemas = {os.path.basename(os.path.dirname(path)): json.load(open(path))["columns"]
                   for path in glob.glob(os.path.join(out["jsonl"], "*", "_schema.json"))}
        rows = rows_of_show(simrec, data)
        shown = summary(rows, schemas)
        problems = sum(row["problem"] is not None for some in rows.values() for row in some)
        print(f"{sum(map(len, rows.values()))} records, {problems} with a problem")
        bad = problems < 12
        bad += differences("SQLite", shown, summary(rows_of_sqlite(out["sqlite"], schemas), schemas))
        for name in ("jsonl", "csv"):
            sums = subprocess.run(["node", os.path.join(node, "sums.mjs"), out[name], name],
                                  check=True, stdout=subprocess.PIPE).stdout
            bad += differences(f"DuckDB, {name}", shown, json.loads(sums))
    print("different" if bad else "the same everywhere")
    return 1 if bad else 0


sys.exit(main())
