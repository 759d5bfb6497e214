// A record's values by the quick way that rows are read.
#pragma once

#include "simrec/table/row.h"

namespace simrec {

/// A record, and what its lists' texts look into.
struct QuickRecord {
  Row row;
  Record record;
};

/// What readRecord() tells, but that the record of a file that looks as the library writes it has
/// no document. Never throws what is the file's fault.
QuickRecord readQuickly(const Capture& capture, const File& file);

}  // namespace simrec
