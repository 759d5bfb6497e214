// Rows that several records have in common: each is told once, with the records that have it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "simrec/comparison.h"
#include "simrec/report/parts.h"

namespace simrec::report {

/// Several records of one kind in few words: "All cameras, ev 0 to 2".
class RecordWords {
 public:
  /// All that there are.
  explicit RecordWords(const std::vector<RecordPair>& pairs);

  std::string of(const std::vector<const RecordPair*>& records) const;

 private:
  std::map<const catalogue::Kind*, std::set<int>> cameras_;
};

/// Records are the caller's and outlive it.
class MergedRows {
 public:
  using Texts = std::vector<std::string>;

  struct Row {
    Texts texts;
    std::vector<const RecordPair*> records;
    double rank = 0;
  };

  void add(const RecordPair& record, Texts texts, double rank = 0);

  const std::vector<Row>& rows() const { return rows_; }

  /// The first ones by rank.
  std::vector<Row> most(std::size_t count) const;

 private:
  std::vector<Row> rows_;
  std::map<Texts, std::size_t> places_;
};

/// Row's name of what is wrong with a file.
inline constexpr char kProblem[] = "problem";

/// The first text is the row's name; records are told last.
Json rowsFor(const std::vector<MergedRows::Row>& merged, const RecordWords& words);

}  // namespace simrec::report
