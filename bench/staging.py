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

from measuring import Table

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


def best_times(rounds, **steps):
    """The best time of each step, which are taken in turn, by their names."""
    times = {name: [] for name in steps}
    for _ in range(rounds):
        for name, step in steps.items():
            times[name].append(step())
    return {name: min(some) for name, some in times.items()}


def measure_staging(table, simrec, data):
    """Copies and staged files, on the same file system; what stands there is set aside."""
    capture, copies = os.path.join(data, "IMG_0"), os.path.join(data, "copies")
    fill(capture)
    files = [entry.path for entry in os.scandir(capture)]
    subprocess.run(["cp", *files, data], check=True)

    def copy():
        os.mkdir(copies)
        seconds(["sync", "-f", data])
        took = seconds(["cp", *files, copies], ["sync", "-f", data])
        seconds(["rm", "-r", copies])
        seconds(["sync", "-f", data])
        return took

    def times_copy(what):
        times = best_times(ROUNDS, copy=copy,
                           stage=lambda: seconds([simrec, "--data", data, "stage", "IMG_0"]),
                           unstage=lambda: seconds([simrec, "--data", data, "unstage"]))
        return times[what] / times["copy"]
    for what in ("stage", "unstage"):
        table.row(f"{what}, {FILES} files: time / that of cp and sync", lambda: times_copy(what), 3)


def measure_prune(table, simrec, data):
    for capture in range(CAPTURES):
        folder = os.path.join(data, f"IMG_{capture:06}")
        os.mkdir(folder)
        for number in range(FILES):
            open(os.path.join(folder, f"simulation_{number}"), "wb").close()
    prune = [simrec, "--data", data, "prune", "--keep", "10", "--dry-run"]

    def times_du():
        times = best_times(5, prune=lambda: seconds(prune), du=lambda: seconds(["du", "-s", data]))
        return times["prune"] / times["du"]
    table.row(f"prune --dry-run, {CAPTURES:,} captures of {FILES} files: time / du's", times_du, 2)


def main():
    simrec = os.path.abspath(sys.argv[1])
    table = Table("Staging, measured (must); best times.")
    for measure in (measure_staging, measure_prune):
        with tempfile.TemporaryDirectory(prefix="data-", dir=os.path.dirname(simrec)) as data:
            measure(table, simrec, data)
    return 1 if table.missed else 0


sys.exit(main())
