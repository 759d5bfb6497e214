#include "simrec/staging.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <set>

#include "simrec/error.h"
#include "simrec/prune.h"
#include "simrec/staging_plan.h"

namespace simrec {
namespace {

std::int64_t now() {
  return std::chrono::nanoseconds(std::chrono::system_clock::now().time_since_epoch()).count();
}

void append(std::vector<Change>& all, const std::vector<Change>& more) {
  all.insert(all.end(), more.begin(), more.end());
}

const char* besideOf(const Journal& journal) {
  return kNewFolders[static_cast<std::size_t>(journal.folder)];
}

/// The folders that changes lead from and to, opened when the first one does.
class Folders {
 public:
  explicit Folders(const Room& room) : room_(room) {}

  const Directory& from(const char* name) {
    const auto found = open_.find(name);
    return found != open_.end() ? found->second
                                : open_.emplace(name, room_.folder().make(name)).first->second;
  }

  const Directory& into(const char* name) {
    changed_.insert(name);
    return from(name);
  }

  /// Where something has come to is on the disk, and so is the data folder.
  void sync() const {
    for (const std::string& name : changed_) open_.at(name).sync();
    room_.data().sync();
  }

 private:
  const Room& room_;
  std::map<std::string, Directory> open_;
  std::set<std::string> changed_;
};

void perform(const Change& change, const Directory& data, Folders& folders, const char* beside) {
  const std::string& file = change.file;
  switch (change.deed) {
    case Deed::kRemove:
      return data.remove(file);
    case Deed::kKeep:
      return data.move(file, folders.into(kEditedFolder), change.other);
    case Deed::kSetAside:
      return data.move(file, folders.into(kAsideFolder), file);
    case Deed::kStage:
      return folders.from(beside).move(file, data, file);
    case Deed::kBringBack:
      return folders.from(kAsideFolder).move(file, data, file);
    case Deed::kFinish:
    case Deed::kDiscard:
      break;  // finishPruning(), sweep()
  }
}

/// Down to the disk.
void perform(const std::vector<Change>& changes, const Room& room, const char* beside = "") {
  if (changes.empty()) return;
  Folders folders(room);
  for (const Change& change : changes) perform(change, room.data(), folders, beside);
  folders.sync();
}

std::vector<Change> stagingOf(const std::vector<Placement>& placements) {
  std::vector<Change> changes;
  changes.reserve(placements.size());
  for (const auto& [source, target] : placements) changes.push_back({Deed::kStage, target, source});
  return changes;
}

/// Step 1: all that needs room on the disk.
Journal prepare(const Room& room, const Capture& capture, int folder,
                const std::vector<Placement>& placements, const Step& step) {
  const Directory source(capture.path);
  Journal journal = {capture.name, now(), folder, {}};
  const Directory beside = room.folder().make(besideOf(journal));
  for (const auto& [name, target] : placements) {
    journal.files.push_back({target, copyFile(source, name, beside, target)});
    step();
  }
  writeJournal(journal, room.folder(), kNextJournal);
  room.data().syncFileSystem();
  return journal;
}

/// Steps 2 to 5.
std::vector<Change> exchange(const Room& room, const Journal& journal,
                             const std::vector<Placement>& placements) {
  StagingPlan plan(room.data(), room.folder());
  std::vector<Change> changes = plan.leave();
  perform(changes, room);
  room.folder().replace(kNextJournal, kJournal);
  room.folder().sync();
  std::vector<Change> arrival = plan.setAside(placements);
  append(arrival, stagingOf(placements));
  perform(arrival, room, besideOf(journal));
  append(changes, arrival);
  sweep(room.folder());
  return changes;
}

std::vector<Change> undo(const Room& room) {
  StagingPlan plan(room.data(), room.folder());
  std::vector<Change> changes = plan.leave();
  perform(changes, room);
  room.folder().remove(kJournal);
  room.folder().sync();
  const std::vector<Change> back = plan.bringBack();
  perform(back, room);
  append(changes, back);
  sweep(room.folder());
  return changes;
}

/// What is to be told of a failure after which the data folder was brought back, as far as that
/// went.
std::string undone(const Room& room, const std::exception& error) {
  const std::string why = error.what();
  try {
    undo(room);
    return why + "; nothing is staged now";
  } catch (const std::exception&) {
    return why + "; 'simrec unstage' brings back what stood there";
  }
}

std::vector<Change> stageReally(const Store& store, const Capture& capture,
                                const std::vector<Placement>& placements, const Step& step) {
  const Room room(store.data());
  const auto staged = readJournal(room.folder(), kJournal);
  sweep(room.folder());
  std::optional<Journal> journal;
  try {
    journal = prepare(room, capture, staged ? 1 - staged->folder : 0, placements, step);
  } catch (const std::exception&) {
    sweep(room.folder());
    throw;
  }
  try {
    return exchange(room, *journal, placements);
  } catch (const std::exception& error) {
    throw Error(undone(room, error));
  }
}

/// What processes that were killed have left to be deleted.
std::vector<Change> tidyingOf(const Directory& room) {
  std::vector<Change> changes;
  for (const std::string& name : halfPruned(room)) changes.push_back({Deed::kFinish, name});
  for (const std::string& name : abandoned(room)) changes.push_back({Deed::kDiscard, name});
  return changes;
}

/// Throws where a dry run would promise what can't be.
void checkMoves(const std::vector<Change>& changes, const Directory& data) {
  checkWorkable(data);
  std::vector<std::string> names;
  for (const Change& change : changes) {
    const bool moves = change.deed == Deed::kRemove || change.deed == Deed::kKeep ||
                       change.deed == Deed::kSetAside;
    if (moves) names.push_back(change.file);
  }
  data.checkRemovable(names);
}

/// Whether there is nothing in simrec's folder but what is the user's.
bool isAtRest(const Directory& room) {
  const auto edited = room.find(kEditedFolder);
  return edited && !edited->names().empty() && room.names().size() == 1;
}

}  // namespace

std::vector<Change> stage(const Store& store, const Capture& capture,
                          const std::vector<Placement>& placements, Doing doing, const Step& step) {
  if (placements.empty()) throw Error("there is nothing to stage in '" + capture.name + "'");
  if (doing == Doing::kReally) return stageReally(store, capture, placements, step);
  const Directory data(store.data());
  refuseWhileAnotherWorks(data);
  StagingPlan plan(data, data.find(kJournalFolder));
  std::vector<Change> changes = plan.leave();
  append(changes, plan.setAside(placements));
  checkMoves(changes, data);
  append(changes, stagingOf(placements));
  return changes;
}

std::vector<Change> unstage(const Store& store, Doing doing) {
  const Directory data(store.data());
  const auto folder = data.find(kJournalFolder);
  if (!folder || isAtRest(*folder)) return {};
  refuseWhileAnotherWorks(data);
  const std::vector<Change> tidying = tidyingOf(*folder);
  std::vector<Change> changes;
  if (doing == Doing::kReally) {
    const Room room(store.data());
    changes = undo(room);
    finishPruning(room);
  } else {
    StagingPlan plan(data, folder);
    changes = plan.leave();
    append(changes, plan.bringBack());
    checkMoves(changes, data);
  }
  append(changes, tidying);
  return changes;
}

const char* nameOf(StagedState state) {
  return state == StagedState::kUntouched ? "untouched"
         : state == StagedState::kEdited  ? "edited"
                                          : "gone";
}

bool StagingStatus::isSound() const {
  return !interrupted && std::all_of(files.begin(), files.end(), [](const StagedFile& file) {
    return file.state == StagedState::kUntouched;
  });
}

namespace {

StagingStatus statusOf(const Directory& data, const std::optional<Directory>& room) {
  const StagingPlan plan(data, room);
  StagingStatus status;
  if (room) status.tidying = tidyingOf(*room);
  status.interrupted = !plan.journal() && plan.hasAside();
  if (!plan.journal()) return status;
  status.staged = true;
  status.from = plan.journal()->from;
  status.since = plan.journal()->since;
  for (const JournalEntry& entry : plan.journal()->files) {
    const bool waits = plan.waiting().count(entry.file) != 0;
    status.interrupted |= waits;
    status.files.push_back({entry.file, waits ? StagedState::kGone : stateOf(data, entry)});
  }
  std::sort(status.files.begin(), status.files.end(),
            [](const StagedFile& a, const StagedFile& b) { return a.name < b.name; });
  return status;
}

}  // namespace

StagingStatus stagingStatus(const Store& store) {
  const Directory data(store.data());
  for (;;) {
    refuseWhileAnotherWorks(data);
    const auto room = data.find(kJournalFolder);
    std::optional<StagingStatus> status;
    try {
      status = statusOf(data, room);
    } catch (const Error&) {
      refuseWhileAnotherWorks(data);  // which may be the reason
      throw;
    }
    refuseWhileAnotherWorks(data);
    // Others may have come and gone meanwhile.
    const StagingPlan plan(data, data.find(kJournalFolder));
    const std::int64_t since = plan.journal() ? plan.journal()->since : 0;
    if (plan.journal().has_value() == status->staged && since == status->since) return *status;
  }
}

}  // namespace simrec
