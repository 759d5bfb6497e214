// What records and tables hold as Python objects. Called with the interpreter's lock held.
#pragma once

#include <pybind11/pybind11.h>

#include <string>

#include "simrec/record.h"
#include "simrec/table/columns.h"

namespace simrec::python {

/// A name or path from disk, as the interpreter has such names itself.
pybind11::str nameFromDisk(const std::string& name);

/// Adds the members under their names: numbers, groups, tuples of groups, and arrays that own their
/// memory.
void addMembers(const Values& values, pybind11::dict& members);

/// Columns under their names, each an array or, where numbers are missing, a masked array.
pybind11::dict toPython(Columns columns);

}  // namespace simrec::python
