// What the request map does with dump folders on disk.
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

#include "core/log.h"
#include "core/path.h"
#include "requestmap/request_map.h"

namespace simulation {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

/// The name of the next entry, valid until the one after it is asked for. Null
/// at the end, which an unreadable folder has early.
const char* nextEntry(const Folder& folder) {
  while (const dirent* entry = readdir(folder.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") return entry->d_name;
  }
  return nullptr;
}

/// What can't be looked at counts as existing: nothing is ever overwritten.
bool isMissing(const char* path) {
  struct stat status;
  return stat(path, &status) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

void moveEntry(const char* name, const char* srcDir, const char* dstDir) {
  using LongPath = BoundedPath<4096>;
  const LongPath source(srcDir, "/", name);
  const LongPath destination(dstDir, "/", name);
  SimulationLog(kError, "move_file:%s:%s", source.c_str(), destination.c_str());
  if (!isMissing(destination.c_str())) return;
  if (std::rename(source.c_str(), destination.c_str()) != 0) {
    SimulationLog(kError, "Failed to move file %s", name);
  }
}

/// On the heap: a level of a deep tree must not cost a long path of stack, and
/// no name may be cut where things are deleted.
std::unique_ptr<char[]> joined(const char* folder, const char* name) {
  const std::size_t size = std::strlen(folder) + std::strlen(name) + 2;
  std::unique_ptr<char[]> path(new char[size]);
  std::snprintf(path.get(), size, "%s/%s", folder, name);
  return path;
}

int deleteEntry(RequestMap& map, const char* path) {
  struct stat status;
  if (stat(path, &status) != 0) return -1;
  return S_ISDIR(status.st_mode) ? map.delete_directory(path, true) : unlink(path);
}

/// Not 0 from the first entry that can't be deleted.
int deleteEntries(RequestMap& map, const char* path) {
  const Folder folder(opendir(path));
  if (folder == nullptr) return -1;
  while (const char* name = nextEntry(folder)) {
    const int result = deleteEntry(map, joined(path, name).get());
    if (result != 0) return result;
  }
  return 0;
}

/// False when `srcDir` can't be opened.
bool moveEntries(const char* srcDir, const char* dstDir) {
  const Folder folder(opendir(srcDir));
  if (folder == nullptr) return false;
  while (const char* name = nextEntry(folder)) moveEntry(name, srcDir, dstDir);
  return true;
}

}  // namespace
}  // namespace simulation

using namespace simulation;

int RequestMap::move_file(char* srcDir, char* dstDir) {
  if (!moveEntries(srcDir, dstDir)) {
    SimulationLog(kError, "Failed to open source directory");
    return 1;
  }
  rmdir(srcDir);  // fails while a file is left behind, which then keeps its folder
  return 0;
}

int RequestMap::delete_directory(const char* path, bool removeSelf) {
  const int result = deleteEntries(*this, path);
  if (result != 0) return result;
  return removeSelf ? rmdir(path) : 0;
}
