// The entries of a folder. Belongs to the call that opened it.
#pragma once

#include <dirent.h>
#include <sys/stat.h>

#include <cstdint>
#include <memory>
#include <string>

#include "simrec/error.h"

namespace simrec {

/// Of the last change, in nanoseconds since 1970; what does not fit is as early or late as does.
std::int64_t modified(const struct stat& status);

/// The folder at `path` can't be read.
class FolderError : public Error {
 public:
  FolderError(const std::string& itsPath, const std::string& why)
      : Error(itsPath + ": " + why), path(itsPath) {}
  std::string path;
};

class Folder {
 public:
  /// Throws Error, which names the folder as `path` does, where it can't be opened.
  explicit Folder(const std::string& path);

  /// The next name but "." and ".."; null at the end. Valid up to the next call. Throws Error: a
  /// folder that can't be read to its end is none with fewer files.
  const char* next();

  /// What the folder's own file system tells of an entry without looking: DT_DIR, DT_REG, ...
  unsigned char type() const { return entry_->d_type; }

  /// False where the entry is gone.
  bool status(const char* name, struct stat& status, bool followLinks) const;

 private:
  struct Close {
    void operator()(DIR* folder) const { closedir(folder); }
  };
  std::string path_;
  std::unique_ptr<DIR, Close> folder_;
  const dirent* entry_ = nullptr;
};

}  // namespace simrec
