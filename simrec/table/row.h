// One record as a row of its kind's table. Cells look into texts and lists that the row keeps: all
// of it is good until the next record is read into the row.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "simrec/record.h"
#include "simrec/table/table.h"

namespace simrec {

struct Cell {
  enum class Is : std::uint8_t {
    kNull,      ///< the file lacks it, or the kind of file does
    kSigned,    ///< `integer`, with a sign
    kUnsigned,  ///< `integer`
    kDouble,    ///< `decimal`
    kText,      ///< `text`, bytes from disk
    kTime,      ///< `integer`: nanoseconds since 1970, with a sign
    kList,      ///< `list`
  };

  Is is = Is::kNull;
  std::uint64_t integer = 0;
  double decimal = 0;
  /// Of kDouble the number as its file has it, where JSON has numbers like that; else empty.
  std::string_view text = {};
  const NumberList* list = nullptr;

  static Cell ofSigned(std::int64_t value) {
    return {Is::kSigned, static_cast<std::uint64_t>(value)};
  }
  static Cell ofUnsigned(std::uint64_t value) { return {Is::kUnsigned, value}; }
  static Cell ofDouble(double value, std::string_view text = {}) {
    return {Is::kDouble, 0, value, text};
  }
  static Cell ofText(std::string_view text) { return {Is::kText, 0, 0, text}; }
  static Cell ofTime(std::int64_t value) { return {Is::kTime, static_cast<std::uint64_t>(value)}; }
  static Cell ofList(const NumberList* list) { return {Is::kList, 0, 0, {}, list}; }
};

struct Row {
  const Table* table = nullptr;
  std::vector<Cell> cells;  ///< one for each column of the table

  /// @name What cells look into
  /// @{
  std::vector<char> bytes;       ///< the file
  std::deque<NumberList> lists;  ///< its lists
  Record record;                 ///< of a file that was not as the library writes it
  std::string problem;
  /// @}
};

}  // namespace simrec
