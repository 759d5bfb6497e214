#!/usr/bin/env python3
"""export.py SIMREC CAPTURE_SESSION: measures what tables of many captures cost.

The data is made in memory where there is room, else beside the program, and taken away at the end.
What is compared runs in alternating order; times by the clock, since all of them use two
cores; the medians of some rounds. Memory is the most that the process had. Prints a table; status 1
when a number that must be reached is missed.
"""
import glob
import json
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

from measuring import Run, Table, roomy_folder

ROUNDS = 5
CAPTURES = 300
EXPORT_ROWS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "export_rows.py")
# Half of the files each.
CAT = "find {0} -type f -print0 | xargs -0 -n {1} -P 2 cat >/dev/null"


def one_of_each_kind(simrec, session):
    """The files of a capture: one record of each of 26 kinds, by the demo's fullest image."""
    folder = max(glob.glob(os.path.join(session, "IMG_*")), key=lambda path: len(os.listdir(path)))
    show = subprocess.run([simrec, "show", "--json", folder + "/"], stdout=subprocess.PIPE, check=True)
    kinds = {}
    for record in json.loads(show.stdout)["records"]:
        kinds.setdefault(record["record"], os.path.join(folder, record["file"]))
    if len(kinds) < 26:
        sys.exit(f"{folder} has {len(kinds)} kinds of record")
    kinds.pop("ACB_acb", None)  # pixels
    return list(kinds.values())[:26]


def link_captures(data, count, files):
    os.mkdir(data)
    for number in range(count):
        folder = os.path.join(data, f"IMG_{number:06}")
        os.mkdir(folder)
        for file in files:
            os.link(file, os.path.join(folder, os.path.basename(file)))


def copy_captures(data, count, files):
    for number in range(count):
        folder = os.path.join(data, f"IMG_{number:06}")
        os.makedirs(folder)
        for file in files:
            shutil.copy2(file, folder)


def seconds(command, shell=False):
    start = time.perf_counter()
    subprocess.run(command, shell=shell, check=True, stdout=subprocess.DEVNULL)
    return time.perf_counter() - start


def rows_of(folder):
    """What is in an export, without what is null."""
    rows = []
    for path in glob.glob(os.path.join(folder, "**", "*.jsonl"), recursive=True):
        with open(path) as file:
            for line in file:
                rows.append({key: value for key, value in json.loads(line).items()
                             if value is not None})
    return sorted(rows, key=lambda row: (row["capture"], row["file"]))


def measure_times(table, simrec, data, folder):
    files = sum(len(names) for _, _, names in os.walk(data))
    cat = CAT.format(data, -(-files // 2))
    out = {name: os.path.join(folder, name) for name in ("script", "jsonl", "csv", "sqlite")}

    def medians():
        times = {name: [] for name in [*out, "cat"]}
        for _ in range(ROUNDS):
            for name, path in out.items():
                command = ([sys.executable, EXPORT_ROWS, data, path] if name == "script" else
                           [simrec, "--data", data, "export", "--format", name, "-o", path])
                times[name].append(seconds(command))
            if rows_of(out["script"]) != rows_of(out["jsonl"]):
                sys.exit("simrec export and export_rows.py give different rows")
            for path in out.values():
                remove(path)
            times["cat"].append(seconds(cat, shell=True))
        return {name: statistics.median(some) for name, some in times.items()}

    def ratio(above, below):
        took = medians()
        return took[above] / took[below]
    table.row(f"export, {CAPTURES} captures of 26 files: time of a script / export's",
              lambda: ratio("script", "jsonl"), 8, 20, at_least=True)
    for name in ("jsonl", "csv", "sqlite"):
        table.row(f"the same, {name}: time / that of cat by two processes",
                  lambda: ratio(name, "cat"), 5, 3)


def measure_memory(table, simrec, folder, files):
    out = os.path.join(folder, "out")

    def memory(name, data):
        remove(out)
        return Run(simrec, "--data", os.path.join(folder, data), "export", "--format", name,
                   "-o", out).memory
    for name in ("jsonl", "sqlite"):
        table.row(f"{name}, 10,000 captures: memory / that of 100",
                  lambda: memory(name, "many") / memory(name, "few"), 1.2, 1.1)


def remove(path):
    if os.path.isfile(path):
        os.unlink(path)
    else:
        shutil.rmtree(path, ignore_errors=True)


def main():
    simrec, capture_session = map(os.path.abspath, sys.argv[1:])
    with tempfile.TemporaryDirectory(prefix="simrec-bench-", dir=roomy_folder(simrec, 2**31)) as folder:
        session, data = os.path.join(folder, "session"), os.path.join(folder, "data")
        print("making captures for export", file=sys.stderr)
        subprocess.run([capture_session, "--requests", "30", "--data", session], check=True,
                       stdout=subprocess.DEVNULL)
        files = one_of_each_kind(simrec, session)
        table = Table(f"Tables, measured (must, aim); medians, {os.cpu_count()} cores.")
        copy_captures(data, CAPTURES, files)
        measure_times(table, simrec, data, folder)
        shutil.rmtree(data)
        link_captures(os.path.join(folder, "few"), 100, files)
        link_captures(os.path.join(folder, "many"), 10000, files)
        measure_memory(table, simrec, folder, files)
    return 1 if table.missed else 0


sys.exit(main())
