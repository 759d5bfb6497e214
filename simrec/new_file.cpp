#include "simrec/new_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "simrec/error.h"

namespace simrec {
namespace {

/// Where a link leads; else the path itself.
std::string resolved(const std::string& path) {
  char target[PATH_MAX];
  return realpath(path.c_str(), target) != nullptr ? target : path;
}

/// The rights of a file that anybody makes.
mode_t usualMode() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

/// A file without a name, which nobody has to remove when the program is ended; -1: the file system
/// has none, or nothing could give it a name later.
int openNameless(const std::string& path) {
  if (access("/proc/self/fd", X_OK) != 0) return -1;
  return open(folderOf(path).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
}

bool link(int file, const std::string& path) {
  const std::string handle = "/proc/self/fd/" + std::to_string(file);
  return linkat(AT_FDCWD, handle.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

}  // namespace

NewFile::NewFile(const std::string& path) : shown_(path), path_(resolved(path)) {
  struct stat status;
  if (path.empty()) throw Error("a file without a name can't be written");
  if (stat(path_.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
    throw Error(shown_ + ": it is no regular file, so it is not replaced");
  }
  file_.emplace(openNameless(path_));
  if (file_->valid()) return;
  draft_ = path_ + ".XXXXXX";
  file_.emplace(mkostemp(draft_.data(), O_CLOEXEC));
  if (!file_->valid()) {
    draft_.clear();
    fail();
  }
}

NewFile::~NewFile() {
  if (!draft_.empty()) unlink(draft_.c_str());
}

void NewFile::write(std::string_view text) {
  if (!writeAll(*file_, text.data(), text.size())) fail();
  bytes_ += text.size();
}

void NewFile::finish() {
  if (fchmod(file_->get(), usualMode()) != 0) fail();
  if (draft_.empty() && !name()) fail();
  if (!file_->close() || std::rename(draft_.c_str(), path_.c_str()) != 0) fail();
  draft_.clear();
}

bool NewFile::name() {
  constexpr int kTries = 100;  // others' files may have such names
  for (int i = 0; i < kTries; ++i) {
    const std::string draft = path_ + "." + std::to_string(getpid()) + "." + std::to_string(i);
    if (link(file_->get(), draft)) {
      draft_ = draft;
      return true;
    }
    if (errno != EEXIST) return false;
  }
  return false;
}

void NewFile::fail() const { throw Error(shown_ + ": " + std::strerror(errno)); }

}  // namespace simrec
