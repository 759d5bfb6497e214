// What is to be done to the files of a data folder, found out by looking: a dry run ends with it,
// a real one then does it.
#pragma once

#include <set>

#include "simrec/journal.h"
#include "simrec/room.h"
#include "simrec/staging.h"

namespace simrec {

/// What has become of a file that the journal names. One that may not be read counts as edited:
/// keeping it asks for no right to read it. Throws Error for other failures.
StagedState stateOf(const Directory& data, const JournalEntry& entry);

class StagingPlan {
 public:
  /// `room` is ".simrec" in `data`; none: nothing was ever staged.
  StagingPlan(const Directory& data, const std::optional<Directory>& room);

  const std::optional<Journal>& journal() const { return journal_; }
  /// Files that are staged and not in place.
  const std::set<std::string>& waiting() const { return waiting_; }
  /// Whether a user's file is out of its place.
  bool hasAside() const { return !aside_.empty(); }

  /// Each of them counts on those before: the changes in the order of the calls.
  std::vector<Change> leave();
  std::vector<Change> setAside(const std::vector<Placement>& placements);
  std::vector<Change> bringBack();

 private:
  Change keep(const std::string& file);

  Directory data_;
  std::optional<Journal> journal_;
  std::set<std::string> waiting_, aside_, edited_;  ///< names in simrec's folders
  std::set<std::string> left_;                      ///< in the data folder: gone after leave()
};

}  // namespace simrec
