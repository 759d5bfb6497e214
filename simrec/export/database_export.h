// An export as a SQLite database, written in one transaction.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simrec/export/database.h"
#include "simrec/export/draft.h"
#include "simrec/export/export.h"
#include "simrec/table/batches.h"
#include "simrec/table/row.h"

namespace simrec {

class DatabaseExport {
 public:
  /// What a statement gets for one parameter. A text is a piece of the batch's.
  struct Parameter {
    enum class Is : std::uint8_t { kNull, kInteger, kReal, kText, kBytes } is = Is::kNull;
    std::uint32_t size = 0;  ///< of the text or bytes
    union {
      std::int64_t integer = 0;
      double real;
      std::size_t begin;  ///< of them
    };
  };
  /// A row to insert; one of another table than the kinds' gets the row of the record before it
  /// in front.
  struct Insertion {
    std::size_t statement, first, count;
  };
  struct Result {
    std::vector<Insertion> insertions;
    std::vector<Parameter> parameters;
    std::string texts;
    std::uint64_t problems = 0;
  };

  /// Throws Error where what stands there is no such database, or none to append to.
  explicit DatabaseExport(const ExportWishes& wishes);

  bool isNew(const Capture& capture, const File& file);
  /// May be called by several threads at once.
  Result read(const Batch& batch) const;
  void write(const Result& result);
  /// All is written; nothing of it stands in its place yet.
  void end();
  void publish() { draft_.publish(); }

 private:
  void begin(bool append);

  Draft draft_;
  std::vector<Table> tables_;
  std::vector<Table> readTables_;  ///< the same, with the lists that views need
  bool appending_ = false;
  std::optional<Database> older_;     ///< what is appended to, as it stands
  std::optional<Statement> knows_;    ///< whether it has a file
  std::optional<Database> database_;  ///< the new one
  std::vector<Statement> inserts_;    ///< by table, then those of the other tables
};

}  // namespace simrec
