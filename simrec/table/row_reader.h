// Record files as rows. What a file holds is what readRecord() tells of it; files that look as the
// library writes them are read without the values and documents that others cost.
#pragma once

#include "simrec/table/row.h"

namespace simrec {

/// Reads `file`, a record of the table's kind in `capture`'s folder. Never throws what is the
/// file's fault: that is the row's problem, in words ("; " between several). `capture` and `file`
/// must outlive the row's use. May be called from several threads, with a row of its own each.
void readRow(const Capture& capture, const File& file, const Table& table, Row& row);

}  // namespace simrec
