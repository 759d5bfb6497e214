#!/usr/bin/env python3
"""show_capture.py FOLDER: what `simrec show --json --lists` prints of a capture.

As one would write it with Python's own libraries; simrec is measured against it. Without a
folder nothing is read: the time that the interpreter and its modules take to start.
"""
import datetime
import json
import os
import re
import struct
import sys
import xml.etree.ElementTree as xml

NAME = re.compile(
    r"simulation_(?:(?P<lsc>LSC)\[(?P<table>.*)\]_index\[(?P<index>-?\d+)\]"
    r"|(?P<grid>AWB_ParsedAWBStatsOutput|AWB_ISPAWBBGStatsConfig)_(?P<text>.*?)"
    r"|(?P<kind>\w+?))"
    r"(?:_camId\[(?P<camera>-?\d+)\])?(?:_ev\[(?P<ev>-?\d+)\])?\.(?:xml|bin)")
WRAPPERS = {"AWBAlgoExposureInformation", "AWBBGStats", "LensShadingInfo"}
ARRAYS = {"qsegInstInfos", "partROIs"}
LISTS = {"channelGainThreshold", "BETemplateMatrix", "channelDatas", "qsegStatsInfo",
         "RSum", "BSum", "GRorGSum", "GBSum", "YSum",
         "RCount", "BCount", "GRorGCount", "GBCount", "YCount",
         "rGain", "grGain", "gbGain", "bGain"}


def number(text):
    try:
        return int(text)
    except ValueError:
        return float(text)


def value(name, text):
    if name in LISTS:
        return [number(item) for item in text.split()]
    return number(text)


def members(element):
    values = {name: value(name, text) for name, text in element.attrib.items()}
    for child in element:
        if child.tag in ARRAYS:
            values[child.tag] = [members(item) for item in child]
        elif child.attrib or len(child):
            values[child.tag] = members(child)
        else:
            values[child.tag] = value(child.tag, child.text or "")
    return values


def xml_values(path):
    root = xml.parse(path).getroot()
    return members(root[0] if len(root) == 1 and root[0].tag in WRAPPERS else root)


def decimal(single):
    """The shortest decimal that stands for this float."""
    for digits in range(6, 10):
        text = f"{single:.{digits}g}"
        if struct.unpack("<f", struct.pack("<f", float(text)))[0] == single:
            break
    return float(text)


def binary_values(path, kind):
    with open(path, "rb") as file:
        data = file.read()
    values = {"size": len(data)}
    if kind == "AWB_TuningMode":
        values["sensorMode"], values["secondModeWord"] = struct.unpack_from("<16xH6xI", data)
    if kind == "AWB_ExtensionInfo":
        values["values"] = [
            decimal(single) for single in struct.unpack(f"<{len(data) // 4}f", data)]
    values["hex"] = data.hex()
    return values


def record(folder, name):
    parts = NAME.fullmatch(name)
    kind = parts["lsc"] or parts["grid"] or parts["kind"]
    result = {"record": kind}
    for key in ("camera", "ev"):
        if parts[key] is not None:
            result[key] = int(parts[key])
    text = parts["table"] if parts["lsc"] else parts["text"]
    if text is not None:
        result["text"] = text
    if parts["index"] is not None:
        result["index"] = int(parts["index"])
    path = os.path.join(folder, name)
    status = os.stat(path)
    modified = datetime.datetime.fromtimestamp(status.st_mtime_ns // 10**9, datetime.timezone.utc)
    result["file"] = name
    result["bytes"] = status.st_size
    result["modified"] = (f"{modified:%Y-%m-%dT%H:%M:%S}"
                          f".{status.st_mtime_ns // 10**6 % 1000:03}Z")
    binary = name.endswith(".bin")
    result["values"] = binary_values(path, kind) if binary else xml_values(path)
    result["problems"] = []
    return result


def main():
    if len(sys.argv) < 2:
        return
    folder = sys.argv[1]
    records = [record(folder, name) for name in sorted(os.listdir(folder))]
    capture = os.path.basename(folder)
    json.dump({"schema": 1, "capture": capture, "records": records}, sys.stdout,
              separators=(",", ":"))


if __name__ == "__main__":
    main()
