#include "core/raw_file.h"

#include <cerrno>
#include <cstring>

#include "core/log.h"

namespace simulation {
namespace {

constexpr std::size_t kAllOnes = ~std::size_t{0};

bool isComplete(ssize_t count, std::size_t size) {
  return count >= 0 && static_cast<std::size_t>(count) == size;
}

void logWrittenCount(ssize_t count, std::size_t size) {
  SimulationLog(kError, "write size(%d) is not equal to we need(%d) ,may be somthing wrong",
                static_cast<int>(count), shown(size));
}

}  // namespace

FileDescriptor openToRead(const char* path) {
  const int descriptor = open(path, O_RDONLY);
  if (descriptor < 0) {
    SimulationLog(kError, "open file:%s failed %s", path, std::strerror(errno));
  }
  return FileDescriptor(descriptor);
}

bool writeAll(const FileDescriptor& file, const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t count = write(file.get(), data, size);
    if (count <= 0) return false;
    data += count;
    size -= static_cast<std::size_t>(count);
  }
  return true;
}

std::size_t readUpTo(const FileDescriptor& file, char* data, std::size_t size, bool* failed) {
  std::size_t total = 0;
  while (total < size) {
    const ssize_t count = read(file.get(), data + total, size - total);
    if (count < 0 && failed != nullptr) *failed = true;
    if (count <= 0) break;
    total += static_cast<std::size_t>(count);
  }
  return total;
}

ssize_t readFile(void* data, const char* path, std::size_t size, int offset) {
  const FileDescriptor file = openToRead(path);
  if (!file.valid()) return -1;
  if (offset > 0) lseek(file.get(), offset, SEEK_SET);
  const ssize_t count = read(file.get(), data, size);
  if (!isComplete(count, size)) {
    SimulationLog(kError, "read fileName:%s size(%d) is not equal to we need(%d)", path,
                  static_cast<int>(count), shown(size));
  }
  return count;
}

ssize_t writeFile(const void* data, const char* path, std::size_t size, int flags) {
  const FileDescriptor file(open(path, flags, 0777));
  if (!file.valid()) {
    SimulationLog(kError, "open file:%s failed; %s", path, std::strerror(errno));
    if (size != kAllOnes) logWrittenCount(-1, size);
    return -1;
  }
  const ssize_t count = write(file.get(), data, size);
  if (!isComplete(count, size)) logWrittenCount(count, size);
  return count;
}

}  // namespace simulation
