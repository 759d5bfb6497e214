#!/usr/bin/env python3
"""simrec.py SIMREC CAPTURE_SESSION: measures simrec beside what people would use without it.

The data is made in memory where there is room for as many files, else beside the program, and
taken away at the end. Times are processor time of whole processes, which run in alternating
order; memory is the most that a process had (this script's own counts in, so it keeps nothing).
Prints a table; status 1 when a number that must be reached is missed.
"""
import os
import shutil
import statistics
import subprocess
import sys
import tempfile

SHOW_CAPTURE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "show_capture.py")
MEGABYTE = 1024  # in the unit of ru_maxrss

SAME_DOCUMENT = "import json, sys; a, b = (json.load(open(f)) for f in sys.argv[1:]); sys.exit(a != b)"

missed = 0


class Run:
    """A process that ended: its processor time in seconds and its memory in MB."""

    def __init__(self, *command, output=os.devnull):
        with open(output, "wb") as stdout:
            child = subprocess.Popen(command, stdout=stdout)
        _, status, usage = os.wait4(child.pid, 0)
        child.returncode = os.waitstatus_to_exitcode(status)
        if child.returncode != 0:
            sys.exit(f"{command[0]} ended with {child.returncode}")
        self.seconds = usage.ru_utime + usage.ru_stime
        self.memory = usage.ru_maxrss / MEGABYTE


def medians(rounds, **commands):
    """The median time of each command, and the most memory, by their names."""
    runs = {name: [] for name in commands}
    for _ in range(rounds):
        for name, command in commands.items():
            runs[name].append(Run(*command))
    return {name: (statistics.median(run.seconds for run in some),
                   max(run.memory for run in some)) for name, some in runs.items()}


def row(title, measured, must, aim=None, at_least=False):
    global missed
    miss = measured < must if at_least else measured > must
    missed += miss
    goal = f"{must}" if aim is None else f"{must}, {aim}"
    print(f"| {title:<58} | {measured:.2f} ({goal}){' MISSED' if miss else ''} |", flush=True)


def link_captures(data, count, files):
    """Captures of these files, which are copied anew before they have too many names."""
    os.mkdir(data)
    for number in range(count):
        folder = os.path.join(data, f"IMG_{number:06}")
        os.mkdir(folder)
        if number % 30000 == 0:
            first = folder
        for file in files:
            name = os.path.basename(file)
            if folder == first:
                shutil.copy(file, os.path.join(folder, name))
            else:
                os.link(os.path.join(first, name), os.path.join(folder, name))


def bytes_in(folder):
    return sum(entry.stat().st_size for entry in os.scandir(folder))


def images_of(session):
    return [entry.path for entry in os.scandir(session)
            if entry.name.startswith("IMG_") and entry.is_dir()]


def whole_capture(session):
    """The image of the demo's run with the most bytes: one that has the large records."""
    return max(images_of(session), key=lambda folder: (len(os.listdir(folder)), bytes_in(folder)))


def small_files(session):
    """Those of camera 0 in the image with the fewest bytes: one without the large records."""
    return sorted(entry.path for entry in os.scandir(min(images_of(session), key=bytes_in))
                  if "camId[" not in entry.name or "camId[0]" in entry.name)


def measure_list(simrec, data, files):
    link_captures(data, 10000, files)
    runs = medians(5, list=[simrec, "--data", data, "list"],
                   find=["find", data, "-type", "f", "-printf", "%s %T@ %p\\n"])
    row("list, 10,000 captures of 26 files: time / find's", runs["list"][0] / runs["find"][0],
        2, 1.2)
    row("list, the same: MB", runs["list"][1], 64)


def measure_many(simrec, data, files):
    link_captures(data, 100000, files[:1])
    for order in ("name", "time"):
        memory = Run(simrec, "--data", data, "list", "--json", "--sort", order).memory
        row(f"list --json --sort {order}, 100,000 captures: MB", memory, 64)


def measure_show(simrec, capture):
    show = [simrec, "--data", os.path.dirname(capture), "show", "--json", "--lists",
            os.path.basename(capture)]
    script = [sys.executable, SHOW_CAPTURE, capture]
    documents = [capture + "-show.json", capture + "-script.json"]
    Run(*show, output=documents[0])
    Run(*script, output=documents[1])
    if subprocess.run([sys.executable, "-c", SAME_DOCUMENT, *documents]).returncode != 0:
        sys.exit("simrec show and show_capture.py give different documents")
    runs = medians(9, show=show, script=script, start=script[:2])
    row("show --json --lists: time of a Python script / show's",
        (runs["script"][0] - runs["start"][0]) / runs["show"][0], 5, 12, at_least=True)
    row("show --json --lists: MB", runs["show"][1], 64)


def link_requests(data, count, files):
    """Requests of camera 0 that are still in tmp, all with these files."""
    first = None
    for number in range(count):
        folder = os.path.join(data, "tmp", f"RequestID[{number}]_camId[0]")
        os.makedirs(folder)
        for file in files:
            name = os.path.basename(file)
            if first is None:
                shutil.copy(file, os.path.join(folder, name))
            else:
                os.link(os.path.join(first, name), os.path.join(folder, name))
        first = first or folder


def measure_report(simrec, data, capture, small):
    page = data + ".html"
    image = [simrec, "--data", os.path.dirname(capture), "report", os.path.basename(capture),
             "-o", page]
    seconds, memory = medians(5, image=image)["image"]
    row("report, an image of three cameras with all records: s", seconds, 1)
    row("report, the same: MB of the page", os.path.getsize(page) / 2**20, 3)
    row("report, the same: MB", memory, 64)
    link_requests(data, 1000, small)
    seconds, memory = medians(3, all=[simrec, "--data", data, "report", "-o", page])["all"]
    row(f"report, 1,000 requests of {len(small)} files: s", seconds, 3)
    row("report, the same: MB of the page", os.path.getsize(page) / 2**20, 8)
    row("report, the same: MB", memory, 64)


def roomy_folder(beside):
    memory = "/dev/shm"
    if os.access(memory, os.W_OK):
        free = os.statvfs(memory)
        if free.f_favail > 10**6 and free.f_bavail * free.f_frsize > 2**28:
            return memory
    return os.path.dirname(beside)


def main():
    simrec, capture_session = map(os.path.abspath, sys.argv[1:])
    with tempfile.TemporaryDirectory(prefix="simrec-bench-", dir=roomy_folder(simrec)) as folder:
        session = os.path.join(folder, "session")
        print("making captures for simrec", file=sys.stderr)
        Run(capture_session, "--requests", "30", "--data", session)
        capture = whole_capture(session)
        files = sorted(entry.path for entry in os.scandir(capture)
                       if "camId[" not in entry.name or "camId[0]" in entry.name)
        print("\nsimrec, measured (must, aim); medians.\n")
        print(f"| {'command':<58} | {'measured':<22} |\n| --- | --- |")
        measure_show(simrec, capture)
        measure_report(simrec, os.path.join(folder, "report"), capture,
                       small_files(session))
        measure_list(simrec, os.path.join(folder, "list"), files[:26])
        measure_many(simrec, os.path.join(folder, "many"), files)
    return 1 if missed else 0


sys.exit(main())
