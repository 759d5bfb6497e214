#!/usr/bin/env python3
"""python.py MODULE_FOLDER CAPTURE_SESSION: measures the Python module simrec beside what one would
write with Python's own XML reader and NumPy.

Wall-clock time, all cores, in memory where there is room: both ways run in this process in
alternating order, and of each the fastest round counts. Before it measures, it compares what they
give. Prints a table; status 1 when a number that must be reached is missed.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
import xml.etree.ElementTree as xml

import numpy

sys.path.insert(0, sys.argv[1])
import simrec  # noqa: E402

GRID = "AWB_ParsedAWBStatsOutput"
EXPOSURE = re.compile(r"simulation_AE_AECData_camId\[(-?\d+)\]_ev\[(-?\d+)\]\.xml")
LEADS = ("capture", "camera", "ev", "file", "modified")
ROUNDS = 7


def exposure_rows(data):
    for capture in sorted(os.listdir(data)):
        folder = os.path.join(data, capture)
        for name in sorted(os.listdir(folder)):
            parts = EXPOSURE.fullmatch(name)
            if parts is None:
                continue
            path = os.path.join(folder, name)
            row = {"capture": capture, "camera": int(parts[1]), "ev": int(parts[2]), "file": name,
                   "modified": os.stat(path).st_mtime_ns}
            for element in xml.parse(path).getroot():
                for attribute, text in element.attrib.items():
                    value = int(text) if attribute == "ExposureTime" else float(text)
                    row[f"{element.tag}_{attribute}"] = value
                if not element.attrib:
                    row[element.tag] = float(element.text)
            yield row


def plain_table(data):
    rows = list(exposure_rows(data))
    return {name: numpy.array([row[name] for row in rows]) for name in rows[0]}


def plain_arrays(paths):
    records = []
    for path in paths:
        grid = xml.parse(path).getroot()[0]
        shape = int(grid.get("vertical_num")), int(grid.get("horizontal_num"))
        records.append({
            element.tag: numpy.array(
                element.text.split(),
                dtype=numpy.uint64 if element.tag.endswith("Sum") else numpy.uint16).reshape(shape)
            for element in grid})
    return records


def module_arrays(data):
    return list(simrec.Store(data).records(GRID, camera=0))


def compare_tables(table, plain):
    for name, column in plain.items():
        same = table[name].astype(numpy.int64) if name == "modified" else table[name]
        if not numpy.array_equal(same, column):
            sys.exit(f"both tables differ in {name}")


def compare_arrays(records, plain):
    for record, arrays in zip(records, plain, strict=True):
        for name, array in arrays.items():
            if not numpy.array_equal(getattr(record, name), array):
                sys.exit(f"both arrays differ in {record.path}: {name}")


def seconds(work):
    begin = time.perf_counter()
    work()
    return time.perf_counter() - begin


def ratio(module, plain):
    """How many times as fast the module is."""
    rounds = [(seconds(module), seconds(plain)) for _ in range(ROUNDS)]
    return min(plain for _, plain in rounds) / min(module for module, _ in rounds)


def row(title, measured, must, aim):
    missed = measured < must
    print(f"| {title:<58} | {measured:.2f} ({must}, {aim}){' MISSED' if missed else ''} |",
          flush=True)
    return missed


def link_captures(data, count, files):
    for number in range(count):
        folder = os.path.join(data, f"IMG_{number:06}")
        os.makedirs(folder)
        for file in files:
            (os.link if number else shutil.copy)(file, os.path.join(folder, os.path.basename(file)))
        files = [os.path.join(folder, os.path.basename(file)) for file in files]


def roomy_folder(beside):
    memory = "/dev/shm"
    if os.access(memory, os.W_OK):
        free = os.statvfs(memory)
        if free.f_favail > 10**6 and free.f_bavail * free.f_frsize > 2**28:
            return memory
    return os.path.dirname(beside)


def main():
    capture_session = os.path.abspath(sys.argv[2])
    with tempfile.TemporaryDirectory(prefix="simrec-python-bench-",
                                     dir=roomy_folder(capture_session)) as folder:
        session = os.path.join(folder, "session")
        print("making captures for the Python module", file=sys.stderr)
        subprocess.run([capture_session, "--requests", "30", "--data", session], check=True,
                       stdout=subprocess.DEVNULL)
        captures = [capture for capture in simrec.Store(session) if (GRID, 0) in capture]
        richest = max(captures, key=lambda capture: len(capture.records()))
        files = [record.path for record in richest.records(camera=0)][:26]

        data = os.path.join(folder, "exposure")
        link_captures(data, 5000, files)
        store = simrec.Store(data)
        compare_tables(store.table("AE_AECData"), plain_table(data))
        print("\nThe Python module, measured (must, aim); fastest of "
              f"{ROUNDS} rounds, {os.cpu_count()} cores.\n")
        print(f"| {'work':<58} | {'times as fast':<22} |\n| --- | --- |")
        missed = row("table of exposure, 5,000 captures: xml.etree / module",
                     ratio(lambda: store.table("AE_AECData"), lambda: plain_table(data)), 8, 15)

        data = os.path.join(folder, "grids")
        grid = richest.record(GRID, camera=0, text="preview").path
        link_captures(data, 300, [grid])
        paths = [os.path.join(data, name, os.path.basename(grid)) for name in sorted(os.listdir(data))]
        compare_arrays(module_arrays(data), plain_arrays(paths))
        missed |= row("arrays of 300 statistics files: xml.etree, numpy / module",
                      ratio(lambda: module_arrays(data), lambda: plain_arrays(paths)), 12, 25)
    return 1 if missed else 0


sys.exit(main())
