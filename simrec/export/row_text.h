// Rows of tables as lines of text. No state but what is prepared once for each table.
#pragma once

#include <string>
#include <vector>

#include "simrec/table/row.h"

namespace simrec {

/// An object in a line. Absent values are null, non-finite floats the strings "nan", "inf" and
/// "-inf", lists arrays; beside a name that is not UTF-8 stands its hex ("fileBytes").
class JsonLines {
 public:
  explicit JsonLines(const Table& table);
  std::string head() const { return ""; }
  void append(std::string& out, const Row& row) const;

 private:
  std::vector<std::string> keys_;  ///< with what stands around them
};

/// Comma-separated values with a line of names. Absent values are empty, other texts in quotation
/// marks where need be, lists as in JSON.
class CsvLines {
 public:
  explicit CsvLines(const Table& table);
  const std::string& head() const { return head_; }
  void append(std::string& out, const Row& row) const;

 private:
  std::string head_;
};

/// The column types of the table, as a document.
std::string schemaOf(const Table& table);

/// A float in the fewest digits, or "nan", "inf", "-inf"; as its file has it where that is known.
void appendDouble(std::string& out, const Cell& cell);

}  // namespace simrec
