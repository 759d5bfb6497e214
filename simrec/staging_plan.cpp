#include "simrec/staging_plan.h"

#include <algorithm>
#include <climits>

namespace simrec {
namespace {

std::set<std::string> namesIn(const std::optional<Directory>& room, const char* name) {
  const auto folder = room ? room->find(name) : std::nullopt;
  if (!folder) return {};
  const std::vector<std::string> names = folder->names();
  return {names.begin(), names.end()};
}

}  // namespace

StagedState stateOf(const Directory& data, const JournalEntry& entry) {
  const auto standing = data.look(entry.file);
  if (!standing) return StagedState::kGone;
  const bool same = S_ISREG(standing->st_mode) && contentOf(data, entry.file) == entry.content;
  return same ? StagedState::kUntouched : StagedState::kEdited;
}

StagingPlan::StagingPlan(const Directory& data, const std::optional<Directory>& room)
    : data_(data), aside_(namesIn(room, kAsideFolder)), edited_(namesIn(room, kEditedFolder)) {
  if (room) journal_ = readJournal(*room, kJournal);
  if (journal_) waiting_ = namesIn(room, kNewFolders[static_cast<std::size_t>(journal_->folder)]);
}

Change StagingPlan::keep(const std::string& file) {
  std::string name = file;
  for (int number = 2; !edited_.insert(name).second; ++number) {
    const std::string suffix = "~" + std::to_string(number);
    name = file.substr(0, NAME_MAX - suffix.size()) + suffix;
  }
  return {Deed::kKeep, file, name};
}

std::vector<Change> StagingPlan::leave() {
  std::vector<Change> changes;
  if (!journal_) return changes;
  for (const JournalEntry& entry : journal_->files) {
    if (waiting_.count(entry.file) != 0) continue;
    const StagedState state = stateOf(data_, entry);
    if (state == StagedState::kGone) continue;
    left_.insert(entry.file);
    changes.push_back(state == StagedState::kEdited ? keep(entry.file)
                                                    : Change{Deed::kRemove, entry.file});
  }
  return changes;
}

std::vector<Change> StagingPlan::setAside(const std::vector<Placement>& placements) {
  std::set<std::string> targets;
  for (const Placement& placement : placements) targets.insert(placement.target);
  std::vector<Change> changes;
  std::vector<std::string> names = data_.names();
  std::sort(names.begin(), names.end());
  for (const std::string& name : names) {
    if (name.rfind(catalogue::kRecordPrefix, 0) != 0 || left_.count(name) != 0) continue;
    // A folder is a capture of that name, and only in the way where a file is to stand.
    if (targets.count(name) == 0 && data_.leadsToFolder(name)) continue;
    changes.push_back(aside_.insert(name).second ? Change{Deed::kSetAside, name} : keep(name));
  }
  return changes;
}

std::vector<Change> StagingPlan::bringBack() {
  std::vector<Change> changes;
  for (const std::string& name : aside_) {
    if (left_.count(name) == 0 && data_.has(name)) changes.push_back(keep(name));
    changes.push_back({Deed::kBringBack, name});
  }
  return changes;
}

}  // namespace simrec
