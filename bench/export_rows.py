#!/usr/bin/env python3
"""export_rows.py FOLDER OUT: the scalars of all captures in FOLDER as JSON lines in OUT, like
`simrec export --format jsonl`, by two processes.

As one would write it with Python's own libraries; simrec is measured against it. A record's lists
are no columns here, but whether they are sound is: `problem` tells.
"""
import datetime
import json
import os
import struct
import sys
import xml.etree.ElementTree as xml

from show_capture import ARRAYS, LISTS, NAME, WRAPPERS, number

PROCESSES = 2

CHANNELS = ("R", "B", "GRorG", "GB", "Y")
# The largest numbers in lists of integers.
LARGEST = {"qsegStatsInfo": 255, "channelGainThreshold": 2**32 - 1,
           **{channel + "Sum": 2**64 - 1 for channel in CHANNELS},
           **{channel + "Count": 2**16 - 1 for channel in CHANNELS}}
# The lengths of lists; others are as long as their record says.
COUNTS = {"qsegStatsInfo": 307200, "channelGainThreshold": 4, "BETemplateMatrix": 4,
          "channelDatas": 20, "rGain": 221, "grGain": 221, "gbGain": 221, "bGain": 221}


def check(row, name, text, wanted):
    try:
        if name in LARGEST:
            numbers = [int(item) for item in text.split()]
            sound = not numbers or 0 <= min(numbers) <= max(numbers) <= LARGEST[name]
        else:
            numbers = [float(item) for item in text.split()]
            sound = True
    except ValueError:
        sound = False
    if not sound or len(numbers) != wanted:
        row["problem"] = f"{name} is damaged"


def add_members(row, element, path):
    for name, text in element.attrib.items():
        if name in LISTS:
            check(row, name, text, COUNTS[name])
        else:
            row[path + name] = number(text)
    for child in element:
        name = path + child.tag
        if child.tag in ARRAYS:
            for index, item in enumerate(child):
                add_members(row, item, f"{name}_{index}_")
        elif child.attrib or len(child):
            add_members(row, child, name + "_")
        elif child.tag in LISTS:
            check(row, child.tag, child.text or "", COUNTS.get(child.tag, row.get("numROIs")))
        else:
            row[name] = number(child.text or "")


def add_values(row, path, kind, size):
    if path.endswith(".bin"):
        row["size"] = size
        if kind == "AWB_TuningMode":
            with open(path, "rb") as file:
                row["sensorMode"], row["secondModeWord"] = struct.unpack_from(
                    "<16xH6xI", file.read())
        return
    root = xml.parse(path).getroot()
    add_members(row, root[0] if len(root) == 1 and root[0].tag in WRAPPERS else root, "")


def row_of(folder, capture, name):
    parts = NAME.fullmatch(name)
    kind = parts["lsc"] or parts["grid"] or parts["kind"]
    path = os.path.join(folder, capture, name)
    status = os.stat(path)
    modified = datetime.datetime.fromtimestamp(status.st_mtime_ns // 10**9, datetime.timezone.utc)
    row = {"capture": capture, "request": None}
    for key in ("camera", "ev"):
        row[key] = int(parts[key]) if parts[key] is not None else None
    row["text"] = parts["table"] if parts["lsc"] else parts["text"]
    row["index"] = int(parts["index"]) if parts["index"] is not None else None
    row["file"] = name
    row["modified"] = (f"{modified:%Y-%m-%dT%H:%M:%S}"
                       f".{status.st_mtime_ns // 10**6 % 1000:03}Z")
    row["problem"] = None
    add_values(row, path, kind, status.st_size)
    return kind, row


def export(folder, captures, out, part):
    files = {}
    for capture in captures:
        for name in sorted(os.listdir(os.path.join(folder, capture))):
            kind, row = row_of(folder, capture, name)
            camera = row["camera"]
            place = os.path.join(out, kind, *([f"camera={camera}"] if camera is not None else []))
            if place not in files:
                os.makedirs(place, exist_ok=True)
                files[place] = open(os.path.join(place, f"part-{part:05}.jsonl"), "w")
            files[place].write(json.dumps(row, separators=(",", ":")) + "\n")
    for file in files.values():
        file.close()


def main():
    folder, out = sys.argv[1:]
    captures = sorted(os.listdir(folder))
    children = []
    for part in range(PROCESSES):
        child = os.fork()
        if child == 0:
            export(folder, captures[part::PROCESSES], out, part)
            os._exit(0)
        children.append(child)
    return max(os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]) for child in children)


sys.exit(main())
