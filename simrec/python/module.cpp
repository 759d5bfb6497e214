// The Python module simrec._simrec: stores, captures and records as classes. Files and folders are
// read without the interpreter's lock, by code that knows nothing of Python.
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "simrec/capture_list.h"
#include "simrec/error.h"
#include "simrec/overview.h"
#include "simrec/provenance.h"
#include "simrec/python/conversion.h"
#include "simrec/python/errors.h"
#include "simrec/selection.h"
#include "simrec/table/record_stream.h"
#include "simrec/text.h"

namespace simrec::python {
namespace {

namespace py = pybind11;

using Unlocked = py::call_guard<py::gil_scoped_release>;

/// What is known of a record beside its members, which are attributes of the Python object.
struct RecordHead {
  catalogue::FileName parts;
  std::string capture, name, path;
  std::uint64_t bytes;
  std::optional<std::int64_t> modified;
  std::vector<std::string> problems;
  std::string content;  ///< of a binary file
};

/// Which records somebody asks for. None: any.
struct Query {
  const catalogue::Kind* kind = nullptr;
  std::optional<int> camera = {}, ev = {}, index = {};
  std::optional<std::string> text = {};

  bool takes(const catalogue::FileName& parts) const {
    const auto fits = [](const auto& wanted, const auto& has) { return !wanted || wanted == has; };
    return (kind == nullptr || parts.kind == kind) &&
           (!parts.camera || fits(camera, parts.camera)) && fits(ev, parts.ev) &&
           fits(index, parts.index) && fits(text, parts.text);
  }
};

std::string fromPython(const py::object& path) {
  PyObject* bytes = nullptr;
  if (PyUnicode_FSConverter(path.ptr(), &bytes) == 0) throw py::error_already_set();
  return py::reinterpret_steal<py::bytes>(bytes);
}

py::object timeOf(std::int64_t nanoseconds) {
  return py::module_::import("numpy").attr("datetime64")(nanoseconds, "ns");
}

/// As the command line knows it.
std::string dataFolder() {
  const char* const variable = std::getenv("SIMREC_DATA");
  return variable != nullptr && *variable != '\0' ? variable : "/data/vendor/camera";
}

py::list kindNames() {
  py::list names;
  for (const catalogue::Kind& kind : catalogue::kinds()) names.append(kind.name);
  return names;
}

/// Of a form that fits none, says what may be meant.
const catalogue::Kind& kindCalled(const std::string& form) {
  if (!catalogue::kindsLike(form).empty()) return kindFor(form);
  const py::list near =
      py::module_::import("difflib").attr("get_close_matches")(nameFromDisk(form), kindNames(), 1);
  const std::string hint =
      near.empty() ? "see simrec.kinds()" : "is it " + near[0].cast<std::string>() + "?";
  throw Error("no kind of record is called '" + form + "': " + hint);
}

std::vector<File> filesFor(const Capture& capture, const Query& query) {
  const py::gil_scoped_release unlocked;
  std::vector<File> files =
      query.kind != nullptr ? filesOf(capture, *query.kind) : filesOf(capture);
  const auto left = [&](const File& file) { return !file.isRecord() || !query.takes(*file.parts); };
  files.erase(std::remove_if(files.begin(), files.end(), left), files.end());
  return files;
}

std::string wordsFor(const Capture& capture, const Query& query) {
  std::string words = query.kind->name;
  const auto add = [&](const char* name, const auto& number) {
    if (number) words += std::string(", ") + name + " " + std::to_string(*number);
  };
  add("camera", query.camera);
  add("ev", query.ev);
  if (query.text) words += ", text " + *query.text;
  add("index", query.index);
  return words + " in " + capture.path;
}

py::object recordOf(const Capture& capture, const File& file, Record record, bool strict) {
  const std::string path = capture.path + "/" + file.name;
  if (strict && !record.problems.empty()) {
    std::string words;
    for (const std::string& problem : record.problems) {
      words += (words.empty() ? ": " : "; ") + problem;
    }
    throw FileError(path + words, path, std::move(record.problems));
  }
  const bool binary = file.parts->kind->format == catalogue::Format::kBinary;
  py::object object =
      py::cast(RecordHead{*file.parts, capture.name, file.name, path, record.file.bytes,
                          file.hasTime() ? std::optional(file.modified) : std::nullopt,
                          std::move(record.problems), std::move(record.bytes)});
  py::dict members = object.attr("__dict__");
  addMembers(record.values, members);
  if (binary && record.opened) members["size"] = record.file.bytes;
  return object;
}

py::object readOne(const Capture& capture, const File& file, bool strict) {
  QuickRecord quick;
  {
    const py::gil_scoped_release unlocked;
    quick = readQuickly(capture, file);
  }
  return recordOf(capture, file, std::move(quick.record), strict);
}

py::list readAll(const Capture& capture, const Query& query, bool strict) {
  py::list records;
  for (const File& file : filesFor(capture, query)) records.append(readOne(capture, file, strict));
  return records;
}

/// "AE_AECData", or that and a camera.
Query queryFor(const py::object& key) {
  try {
    if (py::isinstance<py::str>(key)) return {&kindCalled(key.cast<std::string>())};
    if (py::isinstance<py::tuple>(key) && py::len(key) == 2) {
      const auto [kind, camera] = key.cast<std::pair<std::string, int>>();
      return {&kindCalled(kind), camera};
    }
  } catch (const py::cast_error&) {
    // Neither text nor a number that a camera can have.
  }
  throw py::type_error("a record is named by its kind, or by (kind, camera)");
}

py::object recordsAt(const Capture& capture, const py::object& key) {
  const Query query = queryFor(key);
  py::list records = readAll(capture, query, true);
  if (records.empty()) throw NotFound("no " + wordsFor(capture, query));
  if (records.size() == 1) return records[0];
  return std::move(records);
}

py::object recordFor(const Capture& capture, const Query& query, bool strict) {
  const std::vector<File> files = filesFor(capture, query);
  if (files.empty()) throw NotFound("no " + wordsFor(capture, query));
  if (files.size() > 1) {
    throw Error(counted(files.size(), "record") + " may be meant by " + wordsFor(capture, query));
  }
  return readOne(capture, files.front(), strict);
}

void warn(const std::string& trouble) {
  if (PyErr_WarnEx(PyExc_RuntimeWarning, printable(trouble).c_str(), 1) != 0) {
    throw py::error_already_set();
  }
}

/// Records of all captures.
struct RecordIterator {
  std::unique_ptr<RecordStream> stream;  // can't be copied
  bool strict;

  py::object operator()() {
    std::optional<RecordStream::Item> item;
    std::vector<std::string> troubles;
    {
      const py::gil_scoped_release unlocked;
      item = stream->next();
      troubles = stream->takeTroubles();
    }
    for (const std::string& trouble : troubles) warn(trouble);
    if (!item) throw py::stop_iteration();
    return recordOf(*item->capture, item->file, std::move(item->quick.record), strict);
  }
};

struct CaptureIterator {
  CaptureList captures;
  std::size_t next = 0;

  Capture operator()() {
    while (next < captures.size()) {
      Capture capture = captures[next++];
      if (looksLikeCapture(capture)) return capture;
    }
    throw py::stop_iteration();
  }
};

py::dict tableOf(const Store& store, const std::string& kind) {
  constexpr std::size_t kPiece = 2000;
  const Table table(kindCalled(kind), false);
  Columns columns(table);
  std::optional<CaptureList> captures;
  const auto unlocked = [](const auto& work) {
    const py::gil_scoped_release released;
    work();
  };
  unlocked([&] { captures.emplace(store.data()); });
  for (std::size_t at = 0; at < captures->size(); at += kPiece) {
    unlocked([&] {
      std::vector<Capture> some;
      const std::size_t end = std::min(at + kPiece, captures->size());
      for (std::size_t i = at; i < end; ++i) some.push_back((*captures)[i]);
      columns.append(readColumns(some, table));
    });
    if (PyErr_CheckSignals() != 0) throw py::error_already_set();  // somebody pressed Ctrl-C
  }
  for (const std::string& trouble : columns.troubles) warn(trouble);
  return toPython(std::move(columns));
}

/// The interpreter adds what may be meant, from the name and the record's own ones.
[[noreturn]] void failAt(const py::object& record, const py::str& member) {
  const auto& head = record.cast<const RecordHead&>();
  const py::object error = py::handle(PyExc_AttributeError)(
      printable(head.path) + " has no member '" + member.cast<std::string>() + "'");
  error.attr("name") = member;
  error.attr("obj") = record;
  PyErr_SetObject(PyExc_AttributeError, error.ptr());
  throw py::error_already_set();
}

/// @name What is pickled, which multiprocessing and copies need
/// @{
py::tuple stateOf(const Capture& capture) {
  const py::object request =
      capture.request
          ? py::object(py::make_tuple(capture.request->request, capture.request->camera))
          : py::none();
  return py::make_tuple(py::bytes(capture.name), py::bytes(capture.path),
                        static_cast<int>(capture.kind), request);
}

Capture captureFrom(const py::tuple& state) {
  Capture capture = {state[0].cast<std::string>(), state[1].cast<std::string>(),
                     static_cast<CaptureKind>(state[2].cast<int>())};
  if (!state[3].is_none()) {
    const auto [request, camera] = state[3].cast<std::pair<int, int>>();
    capture.request = {request, camera};
  }
  return capture;
}

py::tuple stateOf(const py::object& record) {
  const auto& head = record.cast<const RecordHead&>();
  return py::make_tuple(py::bytes(head.capture), py::bytes(head.name), py::bytes(head.path),
                        head.bytes, head.modified, head.problems, py::bytes(head.content),
                        record.attr("__dict__").attr("copy")());
}

std::pair<RecordHead, py::dict> recordFrom(const py::tuple& state) {
  const auto name = state[1].cast<std::string>();
  const auto parts = catalogue::parseFileName(name);
  if (!parts) throw py::value_error("the pickle is of another version of simrec");
  RecordHead head = {*parts,
                     state[0].cast<std::string>(),
                     name,
                     state[2].cast<std::string>(),
                     state[3].cast<std::uint64_t>(),
                     state[4].cast<std::optional<std::int64_t>>(),
                     state[5].cast<std::vector<std::string>>(),
                     state[6].cast<std::string>()};
  return {std::move(head), state[7].cast<py::dict>()};
}
/// @}

std::string shown(const RecordHead& record) {
  return "<simrec.Record " + printable(record.path) + ">";
}

py::object numberOrNone(const std::optional<int>& number) { return py::cast(number); }

void addRecord(py::module_& module) {
  py::class_<RecordHead>(
      module, "Record", py::dynamic_attr(),
      "One record, read. Its members are attributes, named as in the file: integers are exact,\n"
      "floats the decimals in the file, lists NumPy arrays (in rows and columns where the record\n"
      "tells them), groups and repeated elements objects with attributes of their own.\n"
      "``vars(record)`` is all of them as a dict. A binary record has its ``size``, the members\n"
      "that are known, and ``data``. What the file lacks raises AttributeError.")
      .def("__getattr__", &failAt)
      .def("__repr__", &shown)
      .def(py::pickle([](const py::object& record) { return stateOf(record); }, &recordFrom))
      .def_property_readonly(
          "kind", [](const RecordHead& record) { return record.parts.kind->name; },
          "the kind: 'AE_AECData'")
      .def_property_readonly(
          "camera", [](const RecordHead& record) { return numberOrNone(record.parts.camera); },
          "the camera, None where the kind has none")
      .def_property_readonly(
          "ev", [](const RecordHead& record) { return numberOrNone(record.parts.ev); },
          "the exposure step, None where the kind has none")
      .def_property_readonly(
          "index", [](const RecordHead& record) { return numberOrNone(record.parts.index); },
          "the number of the call, None where the kind has none")
      .def_property_readonly(
          "text",
          [](const RecordHead& record) -> py::object {
            if (!record.parts.text) return py::none();
            return nameFromDisk(*record.parts.text);
          },
          "what the caller put into the file's name, None where the kind has nothing of that")
      .def_property_readonly(
          "capture", [](const RecordHead& record) { return nameFromDisk(record.capture); },
          "the capture's name")
      .def_property_readonly(
          "file", [](const RecordHead& record) { return nameFromDisk(record.name); },
          "the file's name")
      .def_property_readonly(
          "path", [](const RecordHead& record) { return nameFromDisk(record.path); },
          "the file's path")
      .def_property_readonly(
          "bytes", [](const RecordHead& record) { return record.bytes; }, "the file's size")
      .def_property_readonly(
          "modified",
          [](const RecordHead& record) -> py::object {
            if (!record.modified) return py::none();
            return timeOf(*record.modified);
          },
          "the time of the file's last change, UTC, as numpy.datetime64; None of a link to nowhere")
      .def_property_readonly(
          "problems", [](const RecordHead& record) { return py::tuple(py::cast(record.problems)); },
          "what is wrong with the file, in words")
      .def_property_readonly(
          "data", [](const RecordHead& record) { return py::bytes(record.content); },
          "the bytes of a binary record; of more than 64 MB the first");
}

void addCapture(py::module_& module) {
  const auto overview = [](const Capture& capture) {
    const py::gil_scoped_release unlocked;
    return overviewOf(capture);
  };
  py::class_<Capture>(
      module, "Capture",
      "The records of one folder. ``capture[\"AE_AECData\", 0]`` reads those of a kind and "
      "camera,\n"
      "``capture[\"LSC\"]`` those of a kind: one Record, or a list in the order of the files' "
      "names\n"
      "where several match. ``(\"AE_AECData\", 0) in capture`` tells whether there is one. A kind\n"
      "may be given in any form that fits one alone. Nothing is kept: each call sees the folder\n"
      "as it is. What is wrong with a file is raised as Error.")
      .def("__getitem__", &recordsAt, py::arg("key"))
      .def(
          "__contains__",
          [](const Capture& capture, const py::object& key) {
            return !filesFor(capture, queryFor(key)).empty();
          },
          py::arg("key"))
      .def(
          "__eq__",
          [](const Capture& capture, const Capture& other) { return capture.path == other.path; },
          py::is_operator())
      .def("__hash__",
           [](const Capture& capture) { return std::hash<std::string>()(capture.path); })
      .def(py::pickle([](const Capture& capture) { return stateOf(capture); }, &captureFrom))
      .def("__iter__",
           [](const Capture&) -> py::object {
             throw py::type_error("a capture is no sequence: its records() are a list");
           })
      .def(
          "record",
          [](const Capture& capture, const std::string& kind, std::optional<int> camera,
             std::optional<int> ev, const py::object& text, std::optional<int> index, bool strict) {
            Query query = {&kindCalled(kind), camera, ev, index};
            if (!text.is_none()) query.text = fromPython(text);
            return recordFor(capture, query, strict);
          },
          py::arg("kind"), py::kw_only(), py::arg("camera") = py::none(),
          py::arg("ev") = py::none(), py::arg("text") = py::none(), py::arg("index") = py::none(),
          py::arg("strict") = true,
          "The one record that fits. Error when several do, NotFound when none does. With\n"
          "strict=False a damaged file gives what is left of it, and its ``problems`` tell the "
          "rest.")
      .def(
          "records",
          [](const Capture& capture, const std::optional<std::string>& kind,
             std::optional<int> camera, bool strict) {
            return readAll(capture, {kind ? &kindCalled(*kind) : nullptr, camera}, strict);
          },
          py::arg("kind") = py::none(), py::kw_only(), py::arg("camera") = py::none(),
          py::arg("strict") = true,
          "The records of a kind (all when none is given) and camera, and those that have none, "
          "in\n"
          "the order of the files' names.")
      .def(
          "__repr__",
          [](const Capture& capture) { return "<simrec.Capture " + printable(capture.path) + ">"; })
      .def_property_readonly(
          "name", [](const Capture& capture) { return nameFromDisk(capture.name); },
          "the name: 'IMG_000072', '57/0', 'staged'")
      .def_property_readonly(
          "path", [](const Capture& capture) { return nameFromDisk(capture.path); }, "the folder")
      .def_property_readonly(
          "kind", [](const Capture& capture) { return nameOf(capture.kind); },
          "'image', 'request', 'staged' or 'folder'")
      .def_property_readonly(
          "request",
          [](const Capture& capture) {
            return capture.request ? std::optional<int>(capture.request->request) : std::nullopt;
          },
          "the request's number, None where the folder does not tell it")
      .def_property_readonly(
          "cameras",
          [overview](const Capture& capture) {
            const Overview seen = overview(capture);
            return std::vector<int>(seen.cameras.begin(), seen.cameras.end());
          },
          "the cameras of its records")
      .def_property_readonly(
          "bytes", [overview](const Capture& capture) { return overview(capture).bytes; },
          "of all record files")
      .def_property_readonly(
          "modified",
          [overview](const Capture& capture) -> py::object {
            const Overview seen = overview(capture);
            if (!seen.newest) return py::none();
            return timeOf(*seen.newest);
          },
          "the time of the newest record, UTC, as numpy.datetime64; None where there is none")
      .def_property_readonly(
          "problems", [overview](const Capture& capture) { return overview(capture).problems; },
          "what can be seen to be wrong without reading a file, in words")
      .def_property_readonly(
          "changes",
          [](const Capture& capture) -> py::object {
            std::optional<Provenance> from;
            {
              const py::gil_scoped_release unlocked;
              from = readProvenance(capture);
            }
            if (!from) return py::none();
            return py::make_tuple(nameFromDisk(from->capture), from->changes);
          },
          "of a capture that `simrec set` made: the name of the one it is a copy of, and the\n"
          "changes in it; else None");
}

/// Whether there is a capture of that name, and it is the one, if any.
bool has(const Store& store, const std::string& name, const Capture* one) {
  try {
    const Capture found = store.find(name);
    return one == nullptr || found.path == one->path;
  } catch (const Error&) {
    return false;
  }
}

void addStore(py::module_& module) {
  py::class_<CaptureIterator>(module, "_CaptureIterator", py::module_local())
      .def("__iter__", [](py::object self) { return self; })
      .def("__next__", &CaptureIterator::operator(), Unlocked());
  py::class_<RecordIterator>(module, "_RecordIterator", py::module_local())
      .def("__iter__", [](py::object self) { return self; })
      .def("__next__", &RecordIterator::operator());
  py::class_<Store>(
      module, "Store",
      "A data folder; without one that of SIMREC_DATA, else /data/vendor/camera. Iterating gives\n"
      "its captures: images, then requests, each by name, then what is staged.")
      .def(py::init([](const py::object& data) {
             return Store(data.is_none() ? dataFolder() : fromPython(data));
           }),
           py::arg("data") = py::none())
      .def(py::pickle([](const Store& store) { return py::bytes(store.data()); },
                      [](const py::bytes& data) { return Store(data); }))
      .def_property_readonly(
          "data", [](const Store& store) { return nameFromDisk(store.data()); }, "its path")
      .def(
          "__iter__", [](const Store& store) { return CaptureIterator{CaptureList(store.data())}; },
          Unlocked())
      .def(
          "__getitem__",
          [](const Store& store, const py::object& name) {
            const std::string bytes = fromPython(name);
            const py::gil_scoped_release unlocked;
            try {
              return store.find(bytes);
            } catch (const Error& error) {
              throw NotFound(error.what());
            }
          },
          py::arg("name"), "The capture of that name, or of a path with a '/' to any folder.")
      .def(
          "__contains__",
          [](const Store& store, const Capture& capture) {
            const py::gil_scoped_release unlocked;
            return has(store, capture.name, &capture);
          },
          py::arg("capture"))
      .def(
          "__contains__",
          [](const Store& store, const py::object& name) {
            const std::string bytes = fromPython(name);
            const py::gil_scoped_release unlocked;
            return has(store, bytes, nullptr);
          },
          py::arg("name"), "Whether there is a capture of that name, or this one.")
      .def("__repr__",
           [](const Store& store) { return "<simrec.Store " + printable(store.data()) + ">"; })
      .def(
          "records",
          [](const Store& store, const std::string& kind, std::optional<int> camera, bool strict) {
            const Query query = {&kindCalled(kind), camera};
            const py::gil_scoped_release unlocked;
            const auto takes = [query](const File& file) { return query.takes(*file.parts); };
            return RecordIterator{std::make_unique<RecordStream>(store, *query.kind, takes),
                                  strict};
          },
          py::arg("kind"), py::kw_only(), py::arg("camera") = py::none(), py::arg("strict") = true,
          "The records of a kind of all captures, one after the other, in the order of the "
          "captures\n"
          "and of the files' names. They are read over all cores, some of them in advance. A\n"
          "damaged file raises Error, and the next one is the next; with strict=False it gives "
          "what\n"
          "is left of it. A folder that can't be read is a RuntimeWarning.")
      .def(
          "table", &tableOf, py::arg("kind"),
          "All records of a kind as a dict of columns, which pandas.DataFrame takes: a row per\n"
          "record, damaged ones among them (``problem`` tells what is wrong). Columns are\n"
          "``capture``, ``request``, ``camera``, ``ev``, ``text``, ``index``, ``file``,\n"
          "``modified``, ``problem`` and the members (``ExposureIndexLong_Gain``), lists left "
          "out.\n"
          "Texts and None are object arrays, times datetime64[ns] in UTC, floats float64 with nan\n"
          "for what is missing, integers int64 or uint64, masked arrays where some are missing.\n"
          "Files are read over all cores. A folder that can't be read is a RuntimeWarning.");
}

}  // namespace

PYBIND11_MODULE(_simrec, module) {
  module.doc() = "Captures of camera requests, their records as Python objects and NumPy arrays.";
  addErrors(module);
  addRecord(module);
  addCapture(module);
  addStore(module);
  module.def("kinds", &kindNames, "The kinds of records, in the order of the documents.");
  for (const char* const name : {"Record", "Capture", "Store"}) {
    module.attr(name).attr("__module__") = "simrec";
  }
}

}  // namespace simrec::python
