#!/usr/bin/env python3
"""simrec.py SIMREC CAPTURE_SESSION: measures simrec beside what people would use without it.

The data is made in memory where there is room for as many files, else beside the program, and
taken away at the end. Times are processor time of whole processes, which run in alternating
order; memory is the most that a process had (this script's own counts in, so it keeps nothing).
Prints a table; status 1 when a number that must be reached is missed.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time

from measuring import Run, Table, medians, roomy_folder

SHOW_CAPTURE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "show_capture.py")
SAME_DOCUMENT = "import json, sys; a, b = (json.load(open(f)) for f in sys.argv[1:]); sys.exit(a != b)"


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


def measure_list(table, simrec, data, files):
    link_captures(data, 10000, files)
    listed = [simrec, "--data", data, "list"]

    def times_find():
        times = medians(5, list=listed,
                        find=["find", data, "-type", "f", "-printf", "%s %T@ %p\\n"])
        return times["list"] / times["find"]
    table.row("list, 10,000 captures of 26 files: time / find's", times_find, 2, 1.2)
    table.row("list, the same: MB", lambda: Run(*listed).memory, 64)


def measure_many(table, simrec, data, files):
    link_captures(data, 100000, files[:1])
    for order in ("name", "time"):
        listed = [simrec, "--data", data, "list", "--json", "--sort", order]
        table.row(f"list --json --sort {order}, 100,000 captures: MB",
                  lambda: Run(*listed).memory, 64)


def measure_show(table, simrec, capture):
    show = [simrec, "--data", os.path.dirname(capture), "show", "--json", "--lists",
            os.path.basename(capture)]
    script = [sys.executable, SHOW_CAPTURE, capture]
    documents = [capture + "-show.json", capture + "-script.json"]
    Run(*show, output=documents[0])
    Run(*script, output=documents[1])
    if subprocess.run([sys.executable, "-c", SAME_DOCUMENT, *documents]).returncode != 0:
        sys.exit("simrec show and show_capture.py give different documents")

    def times_script():
        times = medians(9, show=show, script=script, start=script[:2])
        return (times["script"] - times["start"]) / times["show"]
    table.row("show --json --lists: time of a Python script / show's", times_script, 5, 12,
              at_least=True)
    table.row("show --json --lists: MB", lambda: Run(*show).memory, 64)


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


def seconds_to_show(chromium, page, folder):
    """From the start of a browser until it has painted the page."""
    start = time.monotonic()
    subprocess.run([chromium, "--headless", "--no-sandbox", "--disable-gpu", "--no-first-run",
                    f"--user-data-dir={folder}", "--window-size=1280,900",
                    f"--screenshot={page}.png", f"file://{page}"],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.unlink(page + ".png")
    return time.monotonic() - start


def measure_opening(table, page):
    """What the page takes beyond an empty one; these are seconds of the clock."""
    chromium = shutil.which("chromium")
    if chromium is None:
        print("no chromium: the page is not opened", file=sys.stderr)
        return
    empty = page + ".empty.html"
    with open(empty, "w", encoding="utf-8") as file:
        file.write("<!DOCTYPE html><title>empty</title>")
    with tempfile.TemporaryDirectory(prefix="simrec-bench-") as folder:
        def beyond_empty():
            return min(seconds_to_show(chromium, page, folder) -
                       seconds_to_show(chromium, empty, folder) for _ in range(3))
        seconds_to_show(chromium, empty, folder)  # makes its folder
        table.row("report, the same: s until Chromium shows it", beyond_empty, 2)


def measure_report(table, simrec, data, capture, small):
    page = data + ".html"
    image = [simrec, "--data", os.path.dirname(capture), "report", os.path.basename(capture),
             "-o", page]

    def megabytes():
        return os.path.getsize(page) / 2**20
    table.row("report, an image of three cameras with all records: s",
              lambda: medians(5, image=image)["image"], 1)
    table.row("report, the same: MB of the page", megabytes, 3)
    table.row("report, the same: MB", lambda: Run(*image).memory, 64)
    link_requests(data, 1000, small)
    everything = [simrec, "--data", data, "report", "-o", page]
    table.row(f"report, 1,000 requests of {len(small)} files: s",
              lambda: medians(3, all=everything)["all"], 3)
    table.row("report, the same: MB of the page", megabytes, 8)
    table.row("report, the same: MB", lambda: Run(*everything).memory, 64)
    measure_opening(table, page)


def main():
    simrec, capture_session = map(os.path.abspath, sys.argv[1:])
    with tempfile.TemporaryDirectory(prefix="simrec-bench-", dir=roomy_folder(simrec)) as folder:
        session = os.path.join(folder, "session")
        print("making captures for simrec", file=sys.stderr)
        Run(capture_session, "--requests", "30", "--data", session)
        capture = whole_capture(session)
        files = sorted(entry.path for entry in os.scandir(capture)
                       if "camId[" not in entry.name or "camId[0]" in entry.name)
        table = Table("simrec, measured (must, aim); medians.")
        measure_show(table, simrec, capture)
        measure_list(table, simrec, os.path.join(folder, "list"), files[:26])
        measure_many(table, simrec, os.path.join(folder, "many"), files)
        measure_report(table, simrec, os.path.join(folder, "report"), capture,
                       small_files(session))
    return 1 if table.missed else 0


sys.exit(main())
