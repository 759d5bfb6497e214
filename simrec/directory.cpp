#include "simrec/directory.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "simrec/error.h"

namespace simrec {
namespace {

constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

struct Close {
  void operator()(DIR* folder) const { closedir(folder); }
};

/// Null at the end, where errno is 0, and after an error.
const dirent* nextOf(DIR& folder) {
  errno = 0;
  return readdir(&folder);
}

/// Fails with EEXIST where something stands at the new name. File systems that can't do
/// this at once do it in two steps.
int renameOntoNothing(int from, const char* name, int to, const char* newName) {
  const int result = renameat2(from, name, to, newName, RENAME_NOREPLACE);
  if (result == 0 || (errno != EINVAL && errno != ENOSYS)) return result;
  struct stat status;
  if (fstatat(to, newName, &status, AT_SYMLINK_NOFOLLOW) == 0) {
    errno = EEXIST;
    return -1;
  }
  return errno == ENOENT ? renameat(from, name, to, newName) : -1;
}

}  // namespace

Directory::Directory(std::string path, int file)
    : path_(std::move(path)), file_(std::make_shared<simulation::FileDescriptor>(file)) {}

Directory::Directory(const std::string& path)
    : Directory(path, ::open(path.c_str(), kFolderFlags)) {
  if (!file_->valid()) throw Error(path + ": " + std::strerror(errno));
}

std::optional<Directory> Directory::find(const std::string& name) const {
  const int file = open(name, kFolderFlags | O_NOFOLLOW);
  if (file >= 0) return Directory(pathOf(name), file);
  if (errno != ENOENT) fail(name);
  return std::nullopt;
}

Directory Directory::make(const std::string& name) const {
  // Another process may take it away between the two calls.
  for (int attempt = 0; attempt < 100; ++attempt) {
    if (mkdirat(get(), name.c_str(), 0777) != 0 && errno != EEXIST) fail(name);
    if (auto made = find(name)) return *made;
  }
  fail(name);
}

std::vector<std::string> Directory::names() const {
  const int again = open(".", kFolderFlags);
  const std::unique_ptr<DIR, Close> folder(again >= 0 ? fdopendir(again) : nullptr);
  if (folder == nullptr) fail(".");
  std::vector<std::string> names;
  while (const dirent* const entry = nextOf(*folder)) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  if (errno != 0) fail(".");
  return names;
}

std::optional<struct stat> Directory::look(const std::string& name, bool followLinks) const {
  struct stat status;
  if (fstatat(get(), name.c_str(), &status, followLinks ? 0 : AT_SYMLINK_NOFOLLOW) == 0) {
    return status;
  }
  // A link that leads nowhere or around in a circle leads to nothing.
  if (errno != ENOENT && errno != ENOTDIR && !(followLinks && errno == ELOOP)) fail(name);
  return std::nullopt;
}

bool Directory::leadsToFolder(const std::string& name) const {
  struct stat status;
  return fstatat(get(), name.c_str(), &status, 0) == 0 && S_ISDIR(status.st_mode);
}

int Directory::open(const std::string& name, int flags, unsigned int mode) const {
  return openat(get(), name.c_str(), flags | O_CLOEXEC, mode);
}

void Directory::move(const std::string& name, const Directory& to,
                     const std::string& newName) const {
  if (renameOntoNothing(get(), name.c_str(), to.get(), newName.c_str()) == 0) return;
  errno == EEXIST ? to.fail(newName) : fail(name);
}

void Directory::replace(const std::string& name, const std::string& newName) const {
  if (renameat(get(), name.c_str(), get(), newName.c_str()) != 0) fail(name);
}

void Directory::remove(const std::string& name) const {
  if (unlinkat(get(), name.c_str(), 0) != 0 && errno != ENOENT) fail(name);
}

bool Directory::removeIfEmpty(const std::string& name) const {
  return unlinkat(get(), name.c_str(), AT_REMOVEDIR) == 0;
}

void Directory::sync() const {
  // Some file systems have nothing to do for a folder, and say so.
  if (fsync(get()) != 0 && errno != EINVAL) fail(".");
}

void Directory::syncFileSystem() const {
  if (syncfs(get()) != 0) fail(".");
}

void Directory::checkWritable() const {
  if (faccessat(get(), ".", W_OK | X_OK, AT_EACCESS) != 0) fail(".");
}

void Directory::checkRemovable(const std::vector<std::string>& names) const {
  checkWritable();
  struct statx found;
  const auto looks = [&](const std::string& name) {
    constexpr unsigned int kWanted = STATX_UID | STATX_MODE;
    return statx(get(), name.c_str(), AT_SYMLINK_NOFOLLOW, kWanted, &found) == 0;
  };
  if (!looks(".")) fail(".");
  const uid_t user = geteuid();
  const bool anybody = user == 0 || found.stx_uid == user || (found.stx_mode & S_ISVTX) == 0;
  for (const std::string& name : names) {
    if (!looks(name)) {
      if (errno == ENOENT) continue;
      fail(name);
    }
    errno = EPERM;
    if (!anybody && found.stx_uid != user) fail(name);
    if ((found.stx_attributes & (STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND)) != 0) fail(name);
  }
}

void Directory::fail(const std::string& name) const {
  throw Error((name == "." ? path_ : pathOf(name)) + ": " + std::strerror(errno));
}

}  // namespace simrec
