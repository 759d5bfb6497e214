#include "simrec/python/errors.h"

#include "simrec/error.h"
#include "simrec/folder.h"
#include "simrec/python/conversion.h"
#include "simrec/text.h"

namespace simrec::python {
namespace {

namespace py = pybind11;

// They live as long as the interpreter, which keeps them in the module, too.
PyObject* errorType = nullptr;
PyObject* notFoundType = nullptr;

constexpr char kErrorDoc[] =
    "What keeps a record, a capture or a data folder from being read.\n\n"
    "The message names it. ``file`` is the path of the record's file, or of the folder that can't "
    "be\n"
    "read (None where neither is at fault), and ``problems`` is what is wrong with it, in words.";
constexpr char kNotFoundDoc[] = "There is no such capture, or no such record in the capture.";

PyObject* newType(py::module_& module, const char* name, const char* doc, const py::object& bases) {
  py::dict members;
  members["file"] = py::none();
  members["problems"] = py::tuple();
  const std::string path = std::string("simrec.") + name;
  PyObject* const type = PyErr_NewExceptionWithDoc(path.c_str(), doc, bases.ptr(), members.ptr());
  if (type == nullptr) throw py::error_already_set();
  module.add_object(name, type);
  return type;
}

void raise(PyObject* type, const std::exception& error) {
  const py::object value = py::handle(type)(printable(error.what()));
  PyErr_SetObject(type, value.ptr());
}

void raise(const FileError& error) {
  const py::object value = py::handle(errorType)(printable(error.what()));
  value.attr("file") = nameFromDisk(error.file);
  py::tuple problems(error.problems.size());
  for (std::size_t i = 0; i < problems.size(); ++i) problems[i] = py::str(error.problems[i]);
  value.attr("problems") = problems;
  PyErr_SetObject(errorType, value.ptr());
}

void translate(std::exception_ptr thrown) {  // NOLINT: pybind11 calls it so
  try {
    std::rethrow_exception(std::move(thrown));
  } catch (const FileError& error) {
    raise(error);
  } catch (const NotFound& error) {
    raise(notFoundType, error);
  } catch (const FolderError& error) {
    raise(FileError(error.what(), error.path, {}));
  } catch (const Error& error) {
    raise(errorType, error);
  }
}

}  // namespace

void addErrors(py::module_& module) {
  errorType =
      newType(module, "Error", kErrorDoc, py::reinterpret_borrow<py::object>(PyExc_Exception));
  const py::tuple bases = py::make_tuple(py::handle(errorType), py::handle(PyExc_LookupError));
  notFoundType = newType(module, "NotFound", kNotFoundDoc, bases);
  py::register_exception_translator(translate);
}

}  // namespace simrec::python
