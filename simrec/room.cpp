#include "simrec/room.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "simrec/error.h"
#include "simrec/journal.h"
#include "simrec/store.h"

namespace simrec {
namespace {

bool isSame(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// The holder's id, but for a moment after it has taken the lock.
std::string holderOf(const simulation::FileDescriptor& lock) {
  std::string id(20, '\0');
  for (int attempt = 0; attempt < 50; ++attempt) {
    const ssize_t count = pread(lock.get(), id.data(), id.size(), 0);
    id.resize(std::min(count > 0 ? id.find_first_not_of("0123456789") : 0, id.size()));
    if (!id.empty()) return " (process " + id + ")";
    id.assign(20, '\0');
    usleep(1000);
  }
  return "";
}

/// Where something may be half done: all but the files that the journal names.
std::vector<std::string> draftsIn(const Directory& room) {
  const auto journal = readJournal(room, kJournal);
  std::vector<std::string> names = {kDraftFolder};
  for (const int folder : {0, 1}) {
    if (journal && journal->folder == folder) continue;
    names.emplace_back(kNewFolders[static_cast<std::size_t>(folder)]);
  }
  return names;
}

bool hasFiles(const Directory& folder) {
  const std::vector<std::string> names = folder.names();
  return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
    const auto status = folder.look(name);
    return status && !S_ISDIR(status->st_mode);
  });
}

[[noreturn]] void refuse(const Directory& data, const simulation::FileDescriptor& lock) {
  throw Error("another simrec" + holderOf(lock) + " is at work on " + data.path());
}

}  // namespace

Room::Room(const std::string& data) : data_(data) {
  try {
    // Whoever has just left may take folder or lock away while we take hold of them.
    for (int attempt = 1; !lock(); ++attempt) {
      if (attempt == 100) {
        throw Error(data_.pathOf(kJournalFolder) + ": others come and go too fast");
      }
    }
    deleteFolder(*folder_, kDraftFolder);
  } catch (const Error&) {
    data_.removeIfEmpty(kJournalFolder);
    throw;
  }
  try {
    sweep(*folder_);
  } catch (const Error&) {
    // Whom it is in the way of tells.
  }
}

bool Room::lock() {
  folder_ = data_.make(kJournalFolder);
  lock_.emplace(folder_->open(kLock, O_RDWR | O_CREAT | O_NOFOLLOW, 0666));
  if (!lock_->valid() && errno == ENOENT) return false;
  if (!lock_->valid()) folder_->fail(kLock);
  if (flock(lock_->get(), LOCK_EX | LOCK_NB) != 0) {
    errno == EWOULDBLOCK ? refuse(data_, *lock_) : folder_->fail(kLock);
  }
  struct stat held;
  if (fstat(lock_->get(), &held) != 0) folder_->fail(kLock);
  const auto standing = folder_->look(kLock);
  if (!standing || !isSame(*standing, held)) return false;
  // The id is for people alone: a full disk must not keep anybody from unstaging.
  const std::string id = std::to_string(getpid()) + "\n";
  if (ftruncate(lock_->get(), 0) == 0) (void)!pwrite(lock_->get(), id.data(), id.size(), 0);
  return true;
}

void refuseWhileAnotherWorks(const Directory& data) {
  const auto folder = data.find(kJournalFolder);
  if (!folder) return;
  const simulation::FileDescriptor lock(folder->open(kLock, O_RDONLY | O_NOFOLLOW | O_NONBLOCK));
  if (lock.valid() && flock(lock.get(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    refuse(data, lock);
  }
}

Room::~Room() {
  try {
    for (const char* folder : {kNewFolders[0], kNewFolders[1], kAsideFolder, kEditedFolder,
                               kPrunedFolder, kDraftFolder}) {
      folder_->removeIfEmpty(folder);
    }
    const std::vector<std::string> names = folder_->names();
    const bool needed = std::any_of(names.begin(), names.end(), [](const std::string& name) {
      return name != kLock && name != kEditedFolder;
    });
    if (!needed) folder_->remove(kLock);
    data_.removeIfEmpty(kJournalFolder);
  } catch (const Error&) {
    // The next one who works here tidies up.
  }
}

void checkWorkable(const Directory& data) {
  data.checkWritable();
  if (const auto room = data.find(kJournalFolder)) room->checkWritable();
}

std::vector<std::string> abandoned(const Directory& room) {
  std::vector<std::string> names = draftsIn(room);
  const auto isNone = [&](const std::string& name) {
    const auto folder = room.find(name);
    return !folder || !hasFiles(*folder);
  };
  names.erase(std::remove_if(names.begin(), names.end(), isNone), names.end());
  return names;
}

void sweep(const Directory& room) {
  room.remove(kNextJournal);
  for (const std::string& name : draftsIn(room)) deleteFolder(room, name);
}

void deleteFolder(const Directory& parent, const std::string& name) {
  const auto folder = parent.find(name);
  if (!folder) return;
  for (const std::string& file : folder->names()) {
    const auto status = folder->look(file);
    if (status && !S_ISDIR(status->st_mode)) folder->remove(file);
  }
  if (!parent.removeIfEmpty(name) && errno != ENOTEMPTY) parent.fail(name);
}

}  // namespace simrec
