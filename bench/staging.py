#!/usr/bin/env python3
"""staging.py SIMREC: measures what staging costs beside cp, sync and du.

The data is made in a folder of its own beside the program, since in memory nothing waits for a
disk, and taken away at the end. What is compared runs in alternating order; times by the clock, the
best of some rounds, which is what the machine's other work disturbs least. Prints a table; status 1
when a number that must be reached is missed.
"""
import os
import subprocess
import sys
import tempfile
import time

ROUNDS = 25
CAPTURES, FILES = 10000, 26
# A request's records: a segmentation, statistics, shading, and many small ones.
SIZES = [900_000, 250_000, 250_000, 60_000] + [1_784, 964, 888, 620, 320] * 4 + [144, 60]


def seconds(*commands):
    start = time.monotonic()
    for command in commands:
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    return time.monotonic() - start


def fill(folder):
    os.mkdir(folder)
    for number, size in enumerate(SIZES):
        name = f"simulation_AWB_ParsedAWBStatsOutput_{number}_camId[0].xml"
        with open(os.path.join(folder, name), "wb") as file:
            file.write(os.urandom(size))


def row(title, measured, must):
    miss = measured > must
    print(f"| {title:<58} | {measured:.2f} ({must}){' MISSED' if miss else ''} |", flush=True)
    return miss


def measure_staging(simrec, data):
    """Copies and staged files, on the same file system; what stands there is set aside."""
    capture, copies = os.path.join(data, "IMG_0"), os.path.join(data, "copies")
    fill(capture)
    files = [entry.path for entry in os.scandir(capture)]
    subprocess.run(["cp", *files, data], check=True)
    times = {"copy": [], "stage": [], "unstage": []}
    for _ in range(ROUNDS):
        os.mkdir(copies)
        seconds(["sync", "-f", data])
        times["copy"].append(seconds(["cp", *files, copies], ["sync", "-f", data]))
        times["stage"].append(seconds([simrec, "--data", data, "stage", "IMG_0"]))
        times["unstage"].append(seconds([simrec, "--data", data, "unstage"]))
        seconds(["rm", "-r", copies])
    copy = min(times["copy"])
    return sum(row(f"{what}, {FILES} files: time / that of cp and sync",
                   min(times[what]) / copy, 3) for what in ("stage", "unstage"))


def measure_prune(simrec, data):
    for capture in range(CAPTURES):
        folder = os.path.join(data, f"IMG_{capture:06}")
        os.mkdir(folder)
        for number in range(FILES):
            open(os.path.join(folder, f"simulation_{number}"), "wb").close()
    times = {"prune": [], "du": []}
    for _ in range(5):
        times["prune"].append(seconds([simrec, "--data", data, "prune", "--keep", "10", "--dry-run"]))
        times["du"].append(seconds(["du", "-s", data]))
    return row(f"prune --dry-run, {CAPTURES:,} captures of {FILES} files: time / du's",
               min(times["prune"]) / min(times["du"]), 2)


def main():
    simrec = os.path.abspath(sys.argv[1])
    missed = 0
    print("\nStaging, measured (must); best times.\n")
    print(f"| {'command':<58} | {'measured':<22} |\n| --- | --- |")
    for measure in (measure_staging, measure_prune):
        with tempfile.TemporaryDirectory(prefix="data-", dir=os.path.dirname(simrec)) as data:
            missed += measure(simrec, data)
    return 1 if missed else 0


sys.exit(main())
