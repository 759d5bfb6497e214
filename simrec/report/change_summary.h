// The answer above all others: what changed most between two captures, and what only one of them
// has.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "simrec/report/merged_rows.h"

namespace simrec::report {

/// A number as tables have it; "missing" without one.
std::string numberText(const std::optional<Number>& number);

/// Pairs of records are the caller's and outlive it.
class ChangeSummary {
 public:
  void add(const RecordPair& pair, const RecordDifference& difference);

  /// `a`: the capture that tells where in its pictures the numbers of a list are.
  Json tables(const Capture& a, const RecordWords& words);

 private:
  /// Of all records that have it, where most of it changed.
  struct List {
    const RecordPair* pair;
    ListDifference difference;
    bool hasLabels;

    double share() const;
  };

  void addMembers(const RecordPair& pair, const RecordDifference& difference);
  void addLists(const RecordPair& pair, const RecordDifference& difference);
  std::vector<MergedRows::Row> listRows(const Capture& a) const;

  MergedRows members_;
  std::map<std::string, MergedRows::Row> repeated_;  ///< by the array: of its items the first
  std::vector<List> lists_;
  std::map<std::string, std::size_t> listPlaces_;  ///< by kind and member
  Json alone_ = Json::array();
};

}  // namespace simrec::report
