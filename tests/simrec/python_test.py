"""The Python module: what it tells of a session of the host program is what `simrec show` tells.

SIMREC_PROGRAM and CAPTURE_SESSION are the two programs, SIMREC_EXAMPLE the example's script.
"""
import ast
import concurrent.futures
import copy
import gc
import inspect
import json
import os
import pickle
import resource
import shutil
import subprocess
import sys
import tempfile
import threading
import time
import tracemalloc
import types
import unittest
import warnings

import numpy
import simrec

AE = "simulation_AE_AECData_camId[0]_ev[{}].xml"
AWB = "simulation_AWB_AECData_camId[0].xml"
KIND = "AWB_ParsedAWBStatsOutput"
GRID = "simulation_AWB_ParsedAWBStatsOutput_preview_camId[0].xml"


def setUpModule():
    global folder, store, image, burst
    folder = tempfile.mkdtemp(prefix="simrec_python_")
    unittest.addModuleCleanup(shutil.rmtree, folder)
    data = os.path.join(folder, "session")
    subprocess.run([os.environ["CAPTURE_SESSION"], "--requests", "16", "--data", data],
                   check=True, stdout=subprocess.DEVNULL)
    store = simrec.Store(data)
    # The kinds of a request, and those that go to a folder with a name of its own.
    image = max((c for c in store if c.kind == "image" and "qseg" in c), key=lambda c: c.bytes)
    burst = max((c for c in store if "LSC" in c and "acb_orientation" in c), key=lambda c: c.bytes)


def output(*arguments):
    command = [os.environ["SIMREC_PROGRAM"], *map(os.fspath, arguments)]
    return json.loads(subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout)


def show(capture):
    return output("show", capture.path + "/", "--json", "--lists")["records"]


def plain(value):
    """A member as JSON has it."""
    if isinstance(value, types.SimpleNamespace):
        return {name: plain(member) for name, member in vars(value).items()}
    if isinstance(value, tuple):
        return [plain(item) for item in value]
    if isinstance(value, numpy.ndarray):
        return [plain(item) for item in value.ravel().tolist()]
    if isinstance(value, float) and not numpy.isfinite(value):
        return str(value)
    return value


def content(path):
    with open(path, "rb") as file:
        return file.read()


def document_section():
    root = os.path.dirname(os.path.dirname(os.environ["SIMREC_EXAMPLE"]))
    document = content(os.path.join(root, "doc", "simrec.md")).decode()
    return document.split("\n## Python\n")[1].split("\n## ")[0]


def document_code():
    return [block.split("```")[0] for block in document_section().split("```python\n")[1:]]


class CopyCase(unittest.TestCase):
    """Each test has a copy of some of the image's records, alone in a data folder."""

    def setUp(self):
        self.data = os.path.join(folder, "copy")
        self.path = os.path.join(self.data, "IMG")
        os.makedirs(self.path)
        self.addCleanup(shutil.rmtree, self.data)
        for name in (*map(AE.format, range(3)), AWB, GRID):
            shutil.copy2(os.path.join(image.path, name), self.path)
        self.store = simrec.Store(self.data)
        self.capture = self.store["IMG"]

    def write(self, name, data):
        path = os.path.join(self.path, name)
        with open(path, "wb") as file:
            file.write(data)
        return path

    def edit(self, name, *pairs):
        data = content(os.path.join(self.path, name))
        for old, new in pairs:
            self.assertIn(old, data)
            data = data.replace(old, new)
        return self.write(name, data)

    def check_as_shown(self, capture, strict=True):
        records = capture.records(strict=strict)
        shown = show(capture)
        self.assertEqual([record.file for record in records], [each["file"] for each in shown])
        for record, each in zip(records, shown):
            values = each["values"]
            with self.subTest(record.path):
                self.assertEqual(record.data.hex(), values.pop("hex", ""))
                self.assertEqual({n: plain(m) for n, m in vars(record).items()}, values)
                self.assertEqual(list(record.problems), each["problems"])
                self.assertEqual(record.kind, each["record"])
                self.assertEqual(record.bytes, each["bytes"])
                modified = record.modified and str(record.modified)[:23] + "Z"
                self.assertEqual(modified, each["modified"])
                for part in ("camera", "ev", "text", "index"):
                    self.assertEqual(getattr(record, part), each.get(part))


class Values(CopyCase):
    def test_are_what_show_tells(self):
        kinds = set()
        for capture in (image, burst):
            self.check_as_shown(capture)
            kinds |= {record.kind for record in capture.records()}
        self.assertEqual(kinds, set(simrec.kinds()))

    def test_captures_are_what_list_tells(self):
        os.mkdir(os.path.join(self.data, "foreign"))
        for some in (store, self.store):
            rows = output("list", "--json", "--data", some.data)["captures"]
            for capture, row in zip(list(some), rows, strict=True):
                self.assertEqual([capture.name, capture.kind, capture.cameras, capture.bytes],
                                 [row["name"], row["kind"], row["cameras"], row["bytes"]])
                self.assertEqual(str(capture.modified)[:23] + "Z", row["modified"])
                self.assertEqual(capture.problems, row["problems"])
        self.assertEqual({c.request for c in store if c.kind == "request"} & {None}, set())

    def test_lists_are_arrays_of_their_own(self):
        grid = self.capture[KIND, 0]
        self.assertEqual(grid.RSum.shape, (grid.vertical_num, grid.horizontal_num))
        self.assertNotEqual(grid.vertical_num, grid.horizontal_num)
        self.assertEqual((grid.RSum.dtype, grid.RCount.dtype), (numpy.uint64, numpy.uint16))
        self.assertEqual(grid.channelGainThreshold.shape, (4,))
        labels = image["qseg", 0]
        self.assertEqual(labels.qsegStatsInfo.dtype, numpy.uint8)
        self.assertEqual(labels.qsegStatsInfo.shape,
                         (labels.verticalRegionCount, labels.horizontalRegionCount))
        self.assertIsInstance(labels.qsegInstInfos[2].roi.left, int)
        shading = burst["LSC"][0]
        self.assertEqual((shading.rGain.shape, shading.rGain.dtype), ((13, 17), numpy.float64))
        for array in (grid.RSum, labels.qsegStatsInfo, shading.rGain):
            self.assertTrue(array.flags.owndata and array.flags.writeable)
        # Dimensions that don't fit leave the list as it is; a small grid shapes no settings.
        self.edit(GRID, (b'vertical_num="%d"' % grid.vertical_num, b'vertical_num="5"'))
        self.assertEqual(self.capture[KIND, 0].RSum.shape, (grid.RSum.size,))
        self.write(GRID, b'<SimulationData><AWBBGStats usesY="0" hasSatInfo="0" numROIs="4" '
                   b'horizontal_num="2" vertical_num="2" BLStretchFactor="1" '
                   b'channelGainThreshold="1 2 3 4 ">' +
                   b"".join(b"<%s>1 2 3 4 </%s>" % (tag, tag) for tag in (
                       b"RSum", b"BSum", b"GRorGSum", b"GBSum", b"YSum", b"RCount", b"BCount",
                       b"GRorGCount", b"GBCount", b"YCount")) + b"</AWBBGStats></SimulationData>")
        small = self.capture[KIND, 0]
        self.assertEqual(small.GBSum.tolist(), [[1, 2], [3, 4]])
        self.assertEqual(small.channelGainThreshold.tolist(), [1, 2, 3, 4])

    def test_numbers_are_exact(self):
        largest = 2**64 - 1
        ae = self.capture.record("AE_AECData", camera=0, ev=2)
        self.edit(AE.format(2), (b"%d" % ae.ExposureIndexLong.ExposureTime, b"%d" % largest),
                  (b"<LuxIndex>%s<" % repr(ae.LuxIndex).encode(), b"<LuxIndex>nan<"),
                  (b"<DrcGain>%s<" % repr(ae.DrcGain).encode(), b"<DrcGain>-inf<"))
        awb = self.capture["AWB_AECData", 0]
        self.edit(AWB, (b'AECSettled="%d"' % awb.AECSettled, b'AECSettled="-2147483648"'),
                  *((b"%g " % number, odd) for number, odd in zip(
                      awb.BETemplateMatrix[1:], (b"1e-45 ", b"+0.10000000149 ", b" -inf\n"))))
        self.check_as_shown(self.capture)
        ae = self.capture.record("AE_AECData", camera=0, ev=2)
        self.assertEqual(ae.ExposureIndexLong.ExposureTime, largest)
        self.assertEqual(self.capture["AWB_AECData"].AECSettled, -2**31)
        table = self.store.table("AE_AECData")
        self.assertEqual(int(table["ExposureIndexLong_ExposureTime"][2]), largest)
        self.assertTrue(numpy.isnan(table["LuxIndex"][2]) and table["DrcGain"][2] == -numpy.inf)


class Choice(CopyCase):
    def test_by_kind_camera_and_variable_parts(self):
        self.assertEqual([record.ev for record in self.capture["AE_AECData", 0]], [0, 1, 2])
        self.assertEqual(self.capture["AWB_AEC", 0].file, AWB)
        self.assertEqual(self.capture.record("AE_AECData", camera=0, ev=2).ev, 2)
        for text in ("preview", "snapshot"):
            self.assertEqual(image.record(KIND, camera=1, text=text).text, text)
        last = burst.records("LSC")[-1]
        same = burst.record("LSC", text=last.text, ev=last.ev, index=last.index)
        self.assertEqual(same.path, last.path)
        self.assertIn(("AE_AECData", 0), self.capture)
        self.assertNotIn(("AE_AECData", 1), self.capture)
        self.assertNotIn("LSC", self.capture)
        # A kind without a camera belongs to each.
        self.assertEqual(image["Spectral", 2].path, image["Spectral"].path)

    def test_of_captures(self):
        self.assertIn("IMG", self.store)
        self.assertNotIn("nix", self.store)
        self.assertIn(self.capture, self.store)
        self.assertNotIn(image, self.store)
        self.assertEqual({self.capture, self.store["IMG"]}, set(self.store))
        self.assertFalse(self.capture == image or self.capture == "IMG")

    def test_that_fails_says_why(self):
        cases = [(simrec.NotFound, "no LSC in " + self.path, lambda: self.capture["LSC"]),
                 (simrec.NotFound, "no AE_AECData, camera 0, ev 7 in " + self.path,
                  lambda: self.capture.record("AE_AECData", camera=0, ev=7)),
                 (simrec.Error, "3 records may be meant by AE_AECData, camera 0 in " + self.path,
                  lambda: self.capture.record("AE_AECData", camera=0)),
                 (simrec.Error, "'AECData' may be any of AE_AECData, AWB_AECData",
                  lambda: self.capture["AECData", 0]),
                 (simrec.Error, "no kind of record is called 'nix': see simrec.kinds()",
                  lambda: store.table("nix")),
                 (simrec.Error, "no kind of record is called 'AE_AECDta': is it AE_AECData?",
                  lambda: self.capture["AE_AECDta", 0]),
                 (simrec.NotFound, "no capture is called 'nix' in " + self.data,
                  lambda: self.store["nix"]),
                 (simrec.Error, "/nowhere: No such file or directory",
                  lambda: list(simrec.Store("/nowhere"))),
                 (simrec.Error, "/nowhere: No such file or directory",
                  lambda: simrec.Store("/nowhere").table("LSC")),
                 (AttributeError, os.path.join(self.path, AWB) + " has no member 'LuxIndex'",
                  lambda: self.capture["AWB_AECData", 0].LuxIndex)]
        for kind, words, ask in cases:
            with self.subTest(words), self.assertRaises(kind) as raised:
                ask()
            self.assertEqual(str(raised.exception), words)
        for key in (0, ("AE_AECData",), *(("AE_AECData", camera) for camera in (
                "0", 2**40, 0.0, None)), None, "\ud800"):
            with self.subTest(key), self.assertRaises(TypeError):
                self.capture[key]
        with self.assertRaises(simrec.Error) as raised:
            list(simrec.Store("/nowhere"))
        self.assertEqual(raised.exception.file, "/nowhere")
        self.assertRaises(TypeError, iter, self.capture)
        with self.assertRaises(AttributeError) as raised:
            self.capture[KIND, 0].rsum
        self.assertIn("RSum", dir(raised.exception.obj))  # where the interpreter looks for it
        self.assertEqual(raised.exception.name, "rsum")

    def test_with_names_that_are_no_text(self):
        name = os.fsdecode(b"IMG_\xff\n")
        path = os.path.join(self.data, name)
        grid = os.path.join(path, os.fsdecode(b"simulation_AWB_ParsedAWBStatsOutput_\xfe_camId[0].xml"))
        os.mkdir(path)
        shutil.copy(os.path.join(self.path, GRID), grid)
        capture = next(c for c in self.store if c.name == name)
        self.assertEqual(self.store[name].path, path)
        record = capture[KIND, 0]
        self.assertEqual((record.path, record.text), (grid, os.fsdecode(b"\xfe")))
        self.assertEqual(capture.record(KIND, text=b"\xfe").path, grid)
        self.assertIn(name, self.store.table(KIND)["capture"].tolist())
        with open(grid, "wb"), self.assertRaises(simrec.Error) as raised:
            capture[KIND, 0]
        self.assertEqual(raised.exception.file, grid)
        str(raised.exception).encode()  # the message is printable


class Damage(CopyCase):
    def break_files(self):
        """A record of AE_AECData for each way to be broken; one is sound."""
        sound = content(os.path.join(self.path, AE.format(0)))
        names = map(AE.format, range(1, 100))
        broken = [self.write(next(names), data) for data in (
            b"", b"\0" * 100, sound[:300], sound.replace(b"Gain", b"gain"), b"<a>" * 1000,
            sound.replace(b"</LuxIndex>", b"x</LuxIndex>"),
            sound.replace(b"<DigitalGain>", b"<Other/><DigitalGain>"))]
        for make in (os.mkfifo, os.mkdir, lambda path: os.symlink("nowhere", path),
                     lambda path: os.symlink("/dev/zero", path),
                     lambda path: os.truncate(self.write(path, b""), 65 << 20)):
            broken.append(os.path.join(self.path, next(names)))
            make(broken[-1])
        return broken

    def test_is_an_exception_that_names_the_file(self):
        broken = self.break_files()
        shown = {each["file"]: each["problems"] for each in show(self.capture)}
        for ev, path in enumerate(broken, 1):
            with self.subTest(path), self.assertRaises(simrec.Error) as raised:
                self.capture.record("AE_AECData", ev=ev)
            problems = shown[os.path.basename(path)]
            self.assertEqual(raised.exception.file, path)
            self.assertEqual(list(raised.exception.problems), problems)
            self.assertEqual(str(raised.exception), path + ": " + "; ".join(problems))
        with self.assertRaises(simrec.Error):
            self.capture["AE_AECData", 0]
        self.check_as_shown(self.capture, strict=False)
        self.assertEqual(self.capture.record("AE_AECData", ev=0).ev, 0)
        records, read = self.store.records("AE_AECData"), []
        for _ in range(len(broken) + 1):
            try:
                read.append(next(records).path)
            except simrec.Error as error:
                read.append(error.file)
        self.assertRaises(StopIteration, next, records)
        self.assertEqual(read, [record.path for record in
                                self.store.records("AE_AECData", strict=False)])

    def test_is_a_row_with_a_problem(self):
        broken = self.break_files()
        sound = vars(self.capture.record("AE_AECData", ev=0))
        table = self.store.table("AE_AECData")
        problems = dict(zip(table["file"], table["problem"]))
        shown = {each["file"]: "; ".join(each["problems"]) or None for each in show(self.capture)
                 if each["record"] == "AE_AECData"}
        self.assertEqual(problems, shown)
        self.assertEqual(len(table["file"]), len(broken) + 1)
        times = table["ExposureIndexLong_ExposureTime"]
        self.assertEqual(times.dtype, numpy.uint64)
        self.assertEqual(times[0], sound["ExposureIndexLong"].ExposureTime)
        missing = table["file"].tolist().index(AE.format(1))
        self.assertIs(times[missing], numpy.ma.masked)
        self.assertTrue(numpy.isnan(table["LuxIndex"][missing]))
        nowhere = problems and table["problem"].tolist().index("a link to nowhere")
        self.assertTrue(numpy.isnat(table["modified"][nowhere]))

    def test_of_binary_files(self):
        name = "simulation_AWB_TuningMode_camId[0].bin"
        for size in (0, 17, 61, 100_000):
            path = self.write(name, bytes(size))
            self.assertRaisesRegex(simrec.Error, "instead of 60" if size else "empty",
                                   lambda: self.capture["tuning", 0])
            self.check_as_shown(self.capture, strict=False)
            self.assertEqual(self.store.table("tuning")["size"].tolist(), [size])
        self.assertEqual(self.capture.record("tuning", strict=False).data, content(path))


class Tables(CopyCase):
    def test_hold_what_the_records_hold(self):
        for kind in simrec.kinds():
            table = store.table(kind)
            rows = [(capture, record) for capture in store for record in capture.records(kind)]
            streamed = list(store.records(kind))
            self.assertEqual([record.path for record in streamed],
                             [record.path for _, record in rows])
            for record, (_, other) in zip(streamed[:3], rows):
                self.assertEqual(*({n: plain(m) for n, m in vars(r).items()}
                                   for r in (record, other)))
            self.assertEqual({len(column) for column in table.values()}, {len(rows)}, kind)
            self.assertEqual(table["capture"].tolist(), [capture.name for capture, _ in rows])
            for i, (capture, record) in enumerate(rows):
                expected = {name: getattr(record, name)
                            for name in ("file", "camera", "ev", "text", "index", "modified")}
                expected.update(request=capture.request, **self.flat(vars(record)))
                for name, value in expected.items():
                    cell = table[name][i]
                    same = cell is numpy.ma.masked if value is None and name != "text" else \
                        cell == value
                    self.assertTrue(same, (record.path, name, cell, value))
            self.assertEqual(set(table["problem"].tolist()) - {None}, set())

    def flat(self, members, path=""):
        flat = {}
        for name, member in members.items():
            if isinstance(member, types.SimpleNamespace):
                flat.update(self.flat(vars(member), path + name + "_"))
            elif isinstance(member, tuple):
                for i, item in enumerate(member):
                    flat.update(self.flat(vars(item), f"{path}{name}_{i}_"))
            elif not isinstance(member, numpy.ndarray):
                flat[path + name] = member
        return flat

    def test_of_many_captures_are_in_order(self):
        for number in range(2100):  # more than are read at a time
            os.mkdir(os.path.join(self.data, f"IMG_{number:06}"))
            os.link(os.path.join(self.path, AE.format(0)),
                    os.path.join(self.data, f"IMG_{number:06}", AE.format(number)))
        table = self.store.table("AE_AECData")
        self.assertEqual(table["ev"].tolist(), [0, 1, 2, *range(2100)])
        self.assertEqual(len(set(table["LuxIndex"][3:])), 1)
        self.assertEqual([record.ev for record in self.store.records("AE_AECData", camera=0)],
                         table["ev"].tolist())
        self.assertEqual(list(self.store.records("AE_AECData", camera=1)), [])

    def test_tell_folders_that_cannot_be_read(self):
        closed = os.path.join(self.data, "closed")
        os.mkdir(closed, 0)
        self.addCleanup(os.chmod, closed, 0o700)
        if os.geteuid() == 0:  # who reads every folder
            os.chmod(folder, 0o755)
            self.addCleanup(os.seteuid, 0)
            os.seteuid(65534)
        with self.assertWarnsRegex(RuntimeWarning, "closed: Permission denied"):
            table = self.store.table("AE_AECData")
        self.assertEqual(len(table["file"]), 3)
        with warnings.catch_warnings():
            warnings.simplefilter("error")
            self.assertRaises(RuntimeWarning, self.store.table, "AE_AECData")
        with self.assertWarnsRegex(RuntimeWarning, "closed: Permission denied"):
            self.assertEqual(len(list(self.store.records("AE_AECData"))), 3)
        with self.assertRaises(simrec.Error) as raised:
            self.store["closed"]["AE_AECData", 0]
        self.assertEqual(raised.exception.file, closed)

    def test_become_data_frames(self):
        try:
            import pandas
        except ImportError:
            self.skipTest("no pandas")
        ae = self.capture.record("AE_AECData", camera=0, ev=2)
        largest = 2**64 - 1
        self.edit(AE.format(2), (b"%d" % ae.ExposureIndexLong.ExposureTime, b"%d" % largest))
        self.write(AE.format(1), b"")
        names = {"store": self.store}
        for block in document_code():
            if "pandas" in block:
                exec(block, names)
        frame = names["frame"]
        self.assertEqual(frame.ev.tolist(), [0, 1, 2])
        self.assertEqual(frame.problem.isna().tolist(), [True, False, True])
        self.assertEqual(frame.ExposureIndexLong_ExposureTime.isna().tolist(), [False, True, False])
        self.assertEqual(str(frame.modified.dtype), "datetime64[ns]")
        self.assertIsNone(frame.problem[0])
        # Whole numbers, some of them missing, and names that are no text.
        column = names["column"] = self.store.table("AE_AECData")["ExposureIndexLong_ExposureTime"]
        recipe = "pandas.arrays.IntegerArray(column.data, column.mask)"
        self.assertIn(recipe, document_section())
        times = pandas.Series(eval(recipe, names))
        self.assertEqual(str(times.dtype), "UInt64")
        self.assertEqual(times.isna().tolist(), [False, True, False])
        self.assertEqual(times[2], largest)
        os.rename(self.path, os.path.join(self.data, os.fsdecode(b"IMG_\xff")))
        frame = pandas.DataFrame(self.store.table("AE_AECData"))
        path = os.path.join(self.data, "table.csv")
        frame.to_csv(path, errors="surrogateescape")
        self.assertEqual(content(path).count(b",IMG_\xff,"), 3)
        shown = frame.capture.map(lambda name: os.fsencode(name).decode(errors="replace")).to_json()
        self.assertEqual(json.loads(shown)["0"], "IMG_\ufffd")


class Interpreter(CopyCase):
    def test_lock_is_released_while_files_are_read(self):
        """With this switch interval another thread runs while the lock is given away, and only
        then: a good many rounds while a large file is read. What takes the lock may come late on a
        busy machine, so there are many chances."""
        self.edit(GRID, (b"</SimulationData>", b" " * (30 << 20) + b"</SimulationData>"))
        self.addCleanup(sys.setswitchinterval, sys.getswitchinterval())
        sys.setswitchinterval(1000)
        rounds, stopped = [0], []

        def work():
            while not stopped:
                rounds[0] += 1
                time.sleep(0)

        thread = threading.Thread(target=work)
        thread.start()
        self.addCleanup(thread.join)
        self.addCleanup(stopped.append, True)
        for read in (lambda: self.capture[KIND, 0], lambda: self.store.table(KIND),
                     lambda: list(self.store.records(KIND))):
            most = 0
            for _ in range(300):
                before = rounds[0]
                read()
                most = max(most, rounds[0] - before)
                if most >= 10:
                    break
            self.assertGreaterEqual(most, 10, inspect.getsource(read))

    def test_reads_in_several_threads(self):
        expected = image["qseg", 0].qsegStatsInfo
        with concurrent.futures.ThreadPoolExecutor(4) as pool:
            for record in pool.map(lambda _: image["qseg", 0], range(40)):
                self.assertTrue(numpy.array_equal(record.qsegStatsInfo, expected))
            self.assertEqual(len(list(pool.map(store.table, simrec.kinds()))), len(simrec.kinds()))
        for _ in range(10):
            records = store.records("AE_AECData")
            with concurrent.futures.ThreadPoolExecutor(4) as pool:
                parts = list(pool.map(lambda _: [each.path for each in records], range(4)))
            self.assertEqual(sorted(sum(parts, [])),
                             sorted(each.path for each in store.records("AE_AECData")))

    def test_copies_and_pickles(self):
        self.write(AE.format(1), b"<broken")
        request = next(capture for capture in store if capture.kind == "request")
        for each in (self.store, self.capture, request, *self.capture.records(strict=False),
                     *burst.records()):
            for same in (copy.copy(each), copy.deepcopy(each), pickle.loads(pickle.dumps(each))):
                for name in (name for name in vars(type(each)) if not name.startswith("_")):
                    if not callable(getattr(each, name)):
                        self.assertEqual(getattr(same, name), getattr(each, name))
                if isinstance(each, simrec.Record):
                    self.assertIsNot(vars(same), vars(each))
                    self.assertEqual(*({n: plain(m) for n, m in vars(record).items()}
                                       for record in (same, each)))
        with self.assertRaises(simrec.Error) as raised:
            self.capture["AE_AECData", 0]
        error = pickle.loads(pickle.dumps(raised.exception))
        self.assertEqual([str(error), error.file, error.problems],
                         [str(raised.exception), raised.exception.file, raised.exception.problems])

    def test_keeps_nothing_of_what_was_read(self):
        self.write(AE.format(1), b"<broken")

        def read(rounds):
            for _ in range(rounds):
                self.capture[KIND, 0]
                self.capture.records("AE_AECData", strict=False)
                self.store.table("AE_AECData")
                list(self.store.records(KIND))
                self.assertRaises(simrec.Error, lambda: self.capture["AE_AECData", 0])
                self.assertRaises(simrec.NotFound, lambda: self.capture["LSC"])
            gc.collect()

        def resident():
            with open("/proc/self/statm") as file:
                return int(file.read().split()[1]) * resource.getpagesize()

        read(200)
        before = resident()
        read(1500)  # some 10,000 files
        self.assertLess(resident() - before, 8 << 20)
        tracemalloc.start()
        self.addCleanup(tracemalloc.stop)
        read(100)
        before = tracemalloc.get_traced_memory()[0]
        read(500)
        self.assertLess(tracemalloc.get_traced_memory()[0] - before, 30_000)

    def test_stubs_and_docstrings_tell_all(self):
        stub = os.path.join(os.path.dirname(simrec.__file__), "__init__.pyi")
        self.assertTrue(os.path.exists(os.path.join(os.path.dirname(stub), "py.typed")))
        classes = {node.name: {item.name for item in node.body if isinstance(item, ast.FunctionDef)}
                   for node in ast.parse(content(stub)).body if isinstance(node, ast.ClassDef)}
        for kind in (simrec.Record, simrec.Capture, simrec.Store):
            names = {name for name in vars(kind) if not name.startswith("_")}
            self.assertEqual({name for name in classes[kind.__name__] if name[0] != "_"}, names)
            for documented in (kind, *(getattr(kind, name) for name in names)):
                self.assertTrue(documented.__doc__)
        for name in simrec.__all__:
            self.assertTrue(getattr(simrec, name).__doc__)
        # No member hides behind what every record has.
        for capture in (image, burst):
            for record in capture.records():
                for name in vars(record):
                    self.assertNotIn(name, dir(simrec.Record))

    def test_example_answers(self):
        expected = [c.name for c in store if ("AWB_AECData", 0) in c and "Spectral" in c and
                    240 <= c["AWB_AECData", 0].luxIndex <= 255 and c["Spectral"].cct > 4000]
        self.assertTrue(expected)
        said = subprocess.run(
            [sys.executable, os.environ["SIMREC_EXAMPLE"], "--data", store.data],
            check=True, stdout=subprocess.PIPE, text=True,
            env={**os.environ, "PYTHONPATH": os.path.dirname(os.path.dirname(simrec.__file__))})
        self.assertEqual([line.split()[0] for line in said.stdout.splitlines()[1:]], expected)

    def test_document_shows_what_works(self):
        names = {"capture": image, "shading": burst, "store": store}
        code = document_code()
        self.assertGreater(len(code), 1)
        for block in code:
            block = block.replace('"capture-data"', "store.data")
            if "pandas" not in block:
                exec(block.replace("IMG_000072", image.name), names)


if __name__ == "__main__":
    unittest.main()
