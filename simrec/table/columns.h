// All records of one kind as columns in memory, read over all cores.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "simrec/store.h"
#include "simrec/table/table.h"

namespace simrec {

/// The cells of one column, from above. A number or time is the bits of its column's type.
struct ColumnCells {
  std::vector<std::uint64_t> numbers;  ///< empty for texts
  std::vector<std::string> texts;      ///< empty for numbers
  std::vector<char> missing;           ///< 1 where the record lacks it
};

struct Columns {
  explicit Columns(const Table& itsTable) : table(&itsTable), cells(itsTable.columns.size()) {}

  const Table* table;
  std::vector<ColumnCells> cells;     ///< as the table's columns
  std::vector<std::string> troubles;  ///< folders that can't be read, and why

  void append(Columns&& others);
};

/// The records of the table's kind in the order of the captures and the files' names. A damaged
/// file is a row with a problem. The table has no lists.
Columns readColumns(const std::vector<Capture>& captures, const Table& table);

}  // namespace simrec
