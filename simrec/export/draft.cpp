#include "simrec/export/draft.h"

#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "simrec/error.h"

namespace simrec {
namespace {

namespace fs = std::filesystem;

constexpr char kNew[] = "new", kOld[] = "old";

/// The path without the links in it; what is missing must be its last name.
std::string resolved(const std::string& place) {
  if (place.empty()) throw Error("a place without a name can't be written to");
  std::error_code error;
  if (fs::is_symlink(fs::symlink_status(place, error)) && !fs::exists(place, error)) {
    throw Error(place + ": a link to nowhere");
  }
  fs::path path = fs::absolute(place, error);
  if (!error) path = fs::weakly_canonical(path, error);
  if (error) throw Error(place + ": " + error.message());
  if (!path.has_filename()) path = path.parent_path();
  if (!path.has_filename()) throw Error(place + ": can't be replaced");
  return path.string();
}

void removeAll(const std::string& path) {
  std::error_code ignored;  // the next one tries again
  fs::remove_all(path, ignored);
}

}  // namespace

Draft::Draft(const std::string& place) : place_(resolved(place)) {
  const fs::path path = place_;
  name_ = path.filename().string();
  roomName_ = "." + name_ + ".simrec";
  parent_.emplace(path.parent_path().string());
  // Whoever has just left may take the folder away while we take hold of it.
  for (int attempt = 0; !lock(); ++attempt) {
    if (attempt == 100) throw Error(place_ + ": others come and go too fast");
  }
  // A process ended between two steps of its publish().
  if (room_->has(kOld) && !parent_->has(name_)) room_->move(kOld, *parent_, name_);
  removeAll(room_->pathOf(kOld));
  removeAll(room_->pathOf(kNew));
}

Draft::~Draft() {
  removeAll(room_->pathOf(kOld));
  removeAll(room_->pathOf(kNew));
  parent_->removeIfEmpty(roomName_);
}

bool Draft::lock() {
  room_ = parent_->make(roomName_);
  if (flock(room_->get(), LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK) throw Error("another simrec is writing " + place_);
    room_->fail(".");
  }
  const auto standing = parent_->look(roomName_), held = room_->look(".");
  return standing && held && standing->st_dev == held->st_dev && standing->st_ino == held->st_ino;
}

void Draft::publish() {
  const int from = room_->get(), to = parent_->get();
  const auto standing = parent_->look(name_);
  if (!standing || !S_ISDIR(standing->st_mode)) {
    if (renameat(from, kNew, to, name_.c_str()) != 0) parent_->fail(name_);
    return;
  }
  if (renameat2(from, kNew, to, name_.c_str(), RENAME_EXCHANGE) == 0) return;
  if (errno != EINVAL && errno != ENOSYS && errno != EXDEV) parent_->fail(name_);
  // In two steps where the file system can't do it in one.
  parent_->move(name_, *room_, kOld);
  room_->move(kNew, *parent_, name_);
}

}  // namespace simrec
