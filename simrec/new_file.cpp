#include "simrec/new_file.h"

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

}  // namespace

NewFile::NewFile(const std::string& path) : shown_(path), path_(resolved(path)) {
  struct stat status;
  if (path.empty()) throw Error("a file without a name can't be written");
  if (stat(path_.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
    throw Error(shown_ + ": it is no regular file, so it is not replaced");
  }
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
  const bool done = fchmod(file_->get(), usualMode()) == 0 && file_->close() &&
                    std::rename(draft_.c_str(), path_.c_str()) == 0;
  if (!done) fail();
  draft_.clear();
}

void NewFile::fail() const { throw Error(shown_ + ": " + std::strerror(errno)); }

}  // namespace simrec
