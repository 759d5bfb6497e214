#include "core/raw_file.h"

#include <cerrno>
#include <cstring>

#include "core/log.h"

namespace simulation {
namespace {

ssize_t writeOnce(const void* data, const char* path, std::size_t size, int flags) {
  const FileDescriptor file(open(path, flags, 0777));
  if (!file.valid()) {
    SimulationLog(kError, "open file:%s failed; %s", path, std::strerror(errno));
    return -1;
  }
  return write(file.get(), data, size);
}

}  // namespace

FileDescriptor openToRead(const char* path) {
  const int descriptor = open(path, O_RDONLY);
  if (descriptor < 0) {
    SimulationLog(kError, "open file:%s failed %s", path, std::strerror(errno));
  }
  return FileDescriptor(descriptor);
}

ssize_t readFile(void* data, const char* path, std::size_t size, int offset) {
  const FileDescriptor file = openToRead(path);
  if (!file.valid()) return -1;
  if (offset > 0) lseek(file.get(), offset, SEEK_SET);
  const ssize_t count = read(file.get(), data, size);
  if (static_cast<std::size_t>(count) != size) {
    SimulationLog(kError, "read fileName:%s size(%d) is not equal to we need(%d)", path,
                  static_cast<int>(count), shown(size));
  }
  return count;
}

ssize_t writeFile(const void* data, const char* path, std::size_t size, int flags) {
  const ssize_t count = writeOnce(data, path, size, flags);
  if (static_cast<std::size_t>(count) != size) {
    SimulationLog(kError, "write size(%d) is not equal to we need(%d) ,may be somthing wrong",
                  static_cast<int>(count), shown(size));
  }
  return count;
}

}  // namespace simulation
