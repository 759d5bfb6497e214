// The module's exceptions.
#pragma once

#include <pybind11/pybind11.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace simrec::python {

/// A file whose record can't be had, or not without doubt: becomes simrec.Error.
struct FileError : std::runtime_error {
  FileError(const std::string& message, std::string itsFile, std::vector<std::string> itsProblems)
      : std::runtime_error(message), file(std::move(itsFile)), problems(std::move(itsProblems)) {}
  std::string file;  ///< its path
  std::vector<std::string> problems;
};

/// There is no such capture or record: becomes simrec.NotFound.
struct NotFound : std::runtime_error {
  using std::runtime_error::runtime_error;
};

void addErrors(pybind11::module_& module);

}  // namespace simrec::python
