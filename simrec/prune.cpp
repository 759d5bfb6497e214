#include "simrec/prune.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <tuple>

#include "simrec/error.h"
#include "simrec/folder.h"

namespace simrec {
namespace {

constexpr std::int64_t kLeftoverAge = 600'000'000'000;

bool mayGo(std::string_view name) {
  return name.substr(0, catalogue::kRecordPrefix.size()) == catalogue::kRecordPrefix ||
         name == kProvenanceFile;
}

bool isOlder(const Prunable& found, std::int64_t age, std::int64_t now) {
  std::int64_t limit = 0;
  return !__builtin_sub_overflow(now, age, &limit) && found.newest < limit;
}

bool isRequest(const Capture& capture) { return capture.kind == CaptureKind::kRequest; }

/// Whether a prune that was killed has begun to take it away.
bool isBegun(const Capture& capture) { return capture.kind == CaptureKind::kFolder; }

/// Its folder's name.
std::string nameOf(const Capture& capture) {
  return capture.path.substr(capture.path.rfind('/') + 1);
}

Prunable measure(const Capture& capture) {
  Prunable result = {capture};
  std::optional<std::int64_t> newest;
  Folder folder(capture.path);
  struct stat status;
  while (const char* const name = folder.next()) {
    const bool goes = mayGo(name);
    if ((!goes && !isRequest(capture)) || folder.type() == DT_DIR) continue;
    if (!folder.status(name, status, false)) {
      if (errno == ENOENT) continue;
      throw Error(capture.path + "/" + name + ": " + std::strerror(errno));
    }
    if (S_ISDIR(status.st_mode)) continue;
    newest = std::max(newest, std::optional(modified(status)));
    if (!goes) continue;
    ++result.files;
    result.bytes += static_cast<std::uint64_t>(status.st_size);
  }
  if (!newest && folder.status(".", status, false)) newest = modified(status);
  result.newest = newest.value_or(0);
  return result;
}

bool isLink(const Capture& capture) {
  struct stat status;
  return lstat(capture.path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

/// A folder of somebody else's, without a record, is no image; an empty request is one.
bool isPrunable(const Prunable& found) {
  return found.files > 0 ||
         (isRequest(found.capture) && Folder(found.capture.path).next() == nullptr);
}

/// Oldest first.
std::vector<Prunable> measured(const std::vector<Capture>& captures, CaptureKind kind,
                               const Trouble& trouble) {
  std::vector<Prunable> found;
  for (const Capture& capture : captures) {
    if (capture.kind != kind || isLink(capture)) continue;
    try {
      Prunable prunable = measure(capture);
      if (isPrunable(prunable)) found.push_back(std::move(prunable));
    } catch (const Error& error) {
      trouble(error.what());
    }
  }
  std::sort(found.begin(), found.end(), [](const Prunable& a, const Prunable& b) {
    return std::tie(a.newest, a.capture.name) < std::tie(b.newest, b.capture.name);
  });
  return found;
}

/// How many of the images, the oldest ones, go.
std::size_t chosenOf(const std::vector<Prunable>& images, const PruneWishes& wishes,
                     std::int64_t now) {
  std::uint64_t bytes = 0;
  for (const Prunable& image : images) bytes += image.bytes;
  std::size_t count = 0;
  for (; count < images.size(); ++count) {
    if (wishes.keep && images.size() - count <= *wishes.keep) break;
    const bool old = wishes.older && isOlder(images[count], *wishes.older, now);
    const bool large = wishes.maxBytes && bytes > *wishes.maxBytes;
    const bool many = wishes.keep && !wishes.older && !wishes.maxBytes;
    if (!old && !large && !many) break;
    bytes -= images[count].bytes;
  }
  return count;
}

/// The record files of a folder with their times, the newest last, and whether nothing else is in
/// it.
struct Contents {
  std::vector<std::pair<std::int64_t, std::string>> records;
  bool alone = true;

  bool operator==(const Contents& other) const {
    return records == other.records && alone == other.alone;
  }
};

Contents contentsOf(const Directory& folder) {
  Contents contents;
  for (const std::string& name : folder.names()) {
    const auto status = folder.look(name);
    if (!status) continue;
    if (mayGo(name) && !S_ISDIR(status->st_mode)) {
      contents.records.emplace_back(modified(*status), name);
    } else {
      contents.alone = false;
    }
  }
  std::sort(contents.records.begin(), contents.records.end());
  return contents;
}

/// False where it can't be moved: on another file system, in use as a mount point.
bool moveAway(const Directory& parent, const std::string& name, const Directory& bin) {
  try {
    parent.move(name, bin, name);
    return true;
  } catch (const Error&) {
    if (!parent.has(name)) throw;  // somebody else has moved it
    return false;
  }
}

void removeAll(const Contents& contents, const Directory& folder) {
  for (const auto& record : contents.records) folder.remove(record.second);
}

/// Undoes moveAway(), also where a new folder has taken the place meanwhile.
void giveBack(const Directory& bin, const std::string& name, const Directory& parent) {
  if (!parent.has(name)) return bin.move(name, parent, name);
  const Directory anew = parent.make(name), away = bin.make(name);
  for (const std::string& file : away.names()) {
    if (!anew.has(file)) away.move(file, anew, file);
  }
}

[[noreturn]] void leaveChanged(const std::string& path) {
  throw Error(path + ": has changed meanwhile, and stays");
}

/// False where it has changed meanwhile.
bool deleteWhole(const Contents& contents, const Directory& folder, const Directory& holder,
                 const std::string& name) {
  if (!(contentsOf(folder) == contents)) return false;
  removeAll(contents, folder);
  if (holder.removeIfEmpty(name)) return true;
  if (errno != ENOTEMPTY) holder.fail(name);
  return false;
}

bool isWhole(const Directory& folder, const Contents& contents) {
  try {
    return contentsOf(folder) == contents;
  } catch (const Error&) {
    return false;
  }
}

/// Of a folder with nothing but records in it. Whoever writes into it may do so until it has moved,
/// and into the moved one where the file was being made just then: such a file is not lost.
void takeWhole(const Contents& contents, const Directory& folder, const Directory& parent,
               const std::string& name, const Directory& bin) {
  const bool away = moveAway(parent, name, bin);
  try {
    if (deleteWhole(contents, folder, away ? bin : parent, name)) return;
  } catch (const Error& error) {
    if (!away) throw;
    if (!isWhole(folder, contents)) {
      throw Error(std::string(error.what()) + "; what is left of it is in " + bin.pathOf(name) +
                  ", and goes with the next prune or unstage");
    }
    giveBack(bin, name, parent);
    throw;
  }
  if (away) giveBack(bin, name, parent);
  leaveChanged(parent.pathOf(name));
}

/// What a prune that was killed has left of a capture.
void finish(const Room& room, const std::string& name) {
  const auto bin = room.folder().find(kPrunedFolder);
  const auto folder = bin ? bin->find(name) : std::nullopt;
  if (!folder) return;
  removeAll(contentsOf(*folder), *folder);
  if (!bin->removeIfEmpty(name) && errno != ENOTEMPTY) bin->fail(name);
}

void take(const Directory& parent, const Prunable& chosen, const Room& room) {
  const std::string name = nameOf(chosen.capture);
  const auto folder = parent.find(name);
  if (!folder) return;
  const Contents contents = contentsOf(*folder);
  // Looked at once more, now that it is known what goes: nothing that came since is in that.
  if (!(measure(chosen.capture) == chosen)) leaveChanged(chosen.capture.path);
  if (!contents.alone) return removeAll(contents, *folder);
  takeWhole(contents, *folder, parent, name, room.folder().make(kPrunedFolder));
}

/// The folder that a capture's is in.
std::optional<Directory> parentOf(const Capture& capture, const Directory& data) {
  if (isRequest(capture)) return data.find(std::string(catalogue::kTmpFolder));
  if (!isBegun(capture)) return data;
  const auto room = data.find(kJournalFolder);
  return room ? room->find(kPrunedFolder) : std::nullopt;
}

void take(const Prunable& chosen, const Room& room) {
  if (isBegun(chosen.capture)) return finish(room, nameOf(chosen.capture));
  if (const auto parent = parentOf(chosen.capture, room.data())) take(*parent, chosen, room);
}

/// Whether it can go, as far as that can be known: else it would be left half deleted.
bool isRemovable(const Prunable& chosen, const Directory& data, const Trouble& trouble) {
  try {
    const std::string name = nameOf(chosen.capture);
    const auto parent = parentOf(chosen.capture, data);
    const auto folder = parent ? parent->find(name) : std::nullopt;
    if (!folder) return true;
    std::vector<std::string> names;
    bool alone = true;
    Folder entries(chosen.capture.path);
    while (const char* const entry = entries.next()) {
      const bool goes = mayGo(entry) && entries.type() != DT_DIR;
      if (goes) names.emplace_back(entry);
      alone = alone && goes;
    }
    folder->checkRemovable(names);
    if (alone) parent->checkRemovable({name});
    return true;
  } catch (const Error& error) {
    trouble(error.what());
    return false;
  }
}

/// Those of a prune that was killed.
std::vector<Prunable> begunIn(const Directory& data) {
  std::vector<Prunable> begun;
  const auto room = data.find(kJournalFolder);
  if (!room) return begun;
  for (const std::string& name : halfPruned(*room)) {
    const std::string path = std::string(kJournalFolder) + "/" + kPrunedFolder + "/" + name;
    begun.push_back(measure({path, data.pathOf(path)}));
  }
  return begun;
}

void append(std::vector<Prunable> more, std::vector<Prunable>& all) {
  all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

std::vector<Prunable> leftoversIn(const std::vector<Capture>& captures, std::int64_t age,
                                  std::int64_t now, const Trouble& trouble) {
  for (const Capture& capture : captures) {  // stands for requests that nobody can tell
    if (isRequest(capture) && !capture.request) throw Error(capture.path + ": can't be read");
  }
  std::vector<Prunable> requests = measured(captures, CaptureKind::kRequest, trouble);
  const auto isYoung = [&](const Prunable& request) { return !isOlder(request, age, now); };
  requests.erase(std::find_if(requests.begin(), requests.end(), isYoung), requests.end());
  return requests;
}

}  // namespace

std::vector<Prunable> chosenBy(const PruneWishes& wishes, const Store& store, std::int64_t now,
                               const Trouble& trouble) {
  const std::vector<Capture> captures = store.captures();
  const Directory data(store.data());
  std::vector<Prunable> chosen = begunIn(data);
  if (wishes.older || wishes.keep || wishes.maxBytes) {
    std::vector<Prunable> images = measured(captures, CaptureKind::kImage, trouble);
    images.resize(chosenOf(images, wishes, now));
    append(std::move(images), chosen);
  }
  if (wishes.leftovers) {
    append(leftoversIn(captures, wishes.older.value_or(kLeftoverAge), now, trouble), chosen);
  }
  if (chosen.empty()) return chosen;
  checkWorkable(data);
  const auto stays = [&](const Prunable& each) { return !isRemovable(each, data, trouble); };
  chosen.erase(std::remove_if(chosen.begin(), chosen.end(), stays), chosen.end());
  return chosen;
}

void prune(const std::vector<Prunable>& chosen, const Store& store, const Trouble& trouble,
           const std::function<void()>& step) {
  const Room room(store.data());
  for (const Prunable& each : chosen) {
    try {
      take(each, room);
    } catch (const Error& error) {
      trouble(error.what());
    }
    step();
  }
}

std::vector<std::string> halfPruned(const Directory& room) {
  const auto bin = room.find(kPrunedFolder);
  if (!bin) return {};
  std::vector<std::string> names = bin->names();
  const auto isOthers = [&bin](const std::string& name) {
    const auto status = bin->look(name);
    const auto folder = status && S_ISDIR(status->st_mode) ? bin->find(name) : std::nullopt;
    return !folder || !contentsOf(*folder).alone;
  };
  names.erase(std::remove_if(names.begin(), names.end(), isOthers), names.end());
  std::sort(names.begin(), names.end());
  return names;
}

void finishPruning(const Room& room) {
  for (const std::string& name : halfPruned(room.folder())) finish(room, name);
}

}  // namespace simrec
