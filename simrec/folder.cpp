#include "simrec/folder.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>

#include "simrec/error.h"

namespace simrec {

std::int64_t modified(const struct stat& status) {
  constexpr std::int64_t kMost = 9'223'372'035;
  const std::int64_t seconds = std::clamp(std::int64_t{status.st_mtim.tv_sec}, -kMost, kMost);
  return seconds * 1'000'000'000 + status.st_mtim.tv_nsec;
}

Folder::Folder(const std::string& path) : path_(path), folder_(opendir(path.c_str())) {
  if (folder_ == nullptr) throw FolderError(path, std::strerror(errno));
}

const char* Folder::next() {
  do {
    errno = 0;
    entry_ = readdir(folder_.get());
    if (entry_ == nullptr && errno != 0) throw FolderError(path_, std::strerror(errno));
    if (entry_ == nullptr) return nullptr;
  } while (std::string_view(entry_->d_name) == "." || std::string_view(entry_->d_name) == "..");
  return entry_->d_name;
}

bool Folder::status(const char* name, struct stat& status, bool followLinks) const {
  return fstatat(dirfd(folder_.get()), name, &status, followLinks ? 0 : AT_SYMLINK_NOFOLLOW) == 0;
}

}  // namespace simrec
