#!/usr/bin/env python3
"""questions.py SIMREC CAPTURE_SESSION DOCUMENT: the questions that the document asks of exports have
an answer in SQL, over the demo's data, and the same one in Python where pandas is there.
"""
import glob
import math
import os
import re
import sqlite3
import subprocess
import sys
import tempfile
import time

try:
    import pandas
except ImportError:
    pandas = None

LARGE = 2**64 - 3


def close(a, b):
    if isinstance(a, float) or isinstance(b, float):
        return math.isclose(a, b, rel_tol=1e-6)
    return a == b


def same(rows, others):
    return len(rows) == len(others) and all(
        len(a) == len(b) and all(map(close, a, b)) for a, b in zip(rows, others))


def spoil(data):
    """What answers trip over: nan in each sensor's record of a scene, a record that is cut, an
    integer that no float holds, and images of the same day a week ago."""
    images = sorted(glob.glob(os.path.join(data, "IMG*")))
    for file in glob.glob(os.path.join(data, "IMG*", "*SpectralSensor*"))[::2]:
        edit(file, rb'(<cct>|cct=")[^<"]*', rb"\1nan")
    exposures = sorted(glob.glob(os.path.join(data, "IMG*", "*AE_AECData*")))
    os.truncate(exposures[0], 10)
    edit(exposures[1], rb'ExposureTime="\d+"', b'ExposureTime="%d"' % LARGE)
    edit(exposures[2], rb'Gain="[^"]*"', b'Gain="nan"')
    for file in glob.glob(os.path.join(images[-1], "*")):
        os.utime(file, times=(2 * (time.time() - 7 * 86400 - 60,)))


def edit(path, old, new):
    with open(path, "rb") as file:
        text, count = re.subn(old, new, file.read())
    assert count, path
    with open(path, "wb") as file:
        file.write(text)


def main():
    simrec, capture_session, document = map(os.path.abspath, sys.argv[1:])
    with open(document) as file:
        section = file.read().split("\n### Five questions\n")[1].split("\n## ")[0]
    blocks = re.findall(r"```(sql|python)\n(.*?)```", section, re.DOTALL)
    head, questions = blocks[0][1], list(zip(blocks[1::2], blocks[2::2]))
    bad = len(questions) != 5
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        environment = {**os.environ, "SIMREC_DATA": os.path.join(folder, "data")}
        subprocess.run([capture_session, "--requests", "30", "--data", "data"], check=True,
                       stdout=subprocess.DEVNULL)
        spoil("data")
        for call in re.findall(r"^\$ scripts/simrec (export .*)$", open(document).read(), re.M):
            subprocess.run([simrec, *call.split()], check=True, env=environment)
        for (_, sql), (_, python) in questions:
            rows = sqlite3.connect("captures.db").execute(sql).fetchall()
            print(f"{len(rows)} rows: {rows[0] if rows else None}")
            bad += not rows
            if pandas is None:
                continue
            names = {}
            exec(head + python, names)
            others = [tuple(row) for row in names["answer"].itertuples(index=False)]
            if not same(rows, others):
                print(f"{sql}\n{rows[:5]}\n{others[:5]}")
                bad += 1
        if pandas is not None:
            times = names["table"]("AE_AECData").ExposureIndexLong_ExposureTime
            bad += times.dtype != "UInt64" or LARGE not in times.dropna().tolist()
    return 1 if bad else 0


sys.exit(main())
