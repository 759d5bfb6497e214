// The table that the records of a kind make: a row for each record, a column for each number that
// the catalogue knows in it, the same names wherever tables are made. Constant once made.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "catalogue/kind.h"

namespace simrec {

enum class ColumnType : std::uint8_t { kInt64, kUint64, kDouble, kText, kTime };

struct Column {
  std::string name;  ///< the way to the member: "ExposureIndexLong_Gain", "roi_2_left"
  ColumnType type;
  std::string unit;
  bool list;  ///< numbers of that type
  /// None for what the file's place and name tell, and for a binary file's size.
  const catalogue::Member* member;
};

/// The columns that each table begins with, in their order.
enum Lead : std::size_t {
  kCapture,
  kRequest,
  kCamera,
  kEv,
  kText,
  kIndex,
  kFile,
  kModified,
  kProblem,
  kLeads  ///< the number of them
};

/// Behind those, a binary file's `size` and then the members in the catalogue's order, those of
/// groups and items in their places: of an array, as many items as it has room for.
struct Table {
  Table(const catalogue::Kind& itsKind, bool withLists);

  const catalogue::Kind* kind;
  bool lists;  ///< lists are columns, too
  std::vector<Column> columns;
};

/// One of each kind, in the order of catalogue::kinds().
std::vector<Table> makeTables(bool lists);

/// "int64", "uint64", "double", "text" or "time"; "[]" behind it for a list.
std::string nameOfType(const Column& column);

}  // namespace simrec
