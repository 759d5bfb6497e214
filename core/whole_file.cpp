#include "core/whole_file.h"

#include <sys/stat.h>

#include "core/raw_file.h"

namespace simulation {
namespace {

/// Most records are smaller, and files are read by pages: they are there as a whole
/// with the first read, and their size need not be asked for.
constexpr std::size_t kPage = 4096;

/// The size of a regular file; 0 for anything else.
std::size_t sizeOf(const FileDescriptor& file) {
  struct stat status = {};
  const bool known = fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode);
  return known ? static_cast<std::size_t>(status.st_size) : 0;
}

}  // namespace

WholeFile readWholeFile(const char* path) {
  const FileDescriptor file(open(path, O_RDONLY));
  if (!file.valid()) return {};
  std::unique_ptr<char[]> bytes(new char[kPage]);
  const ssize_t count = pread(file.get(), bytes.get(), kPage, 0);  // fails for a pipe
  if (count <= 0) return {};
  if (static_cast<std::size_t>(count) < kPage) {
    return {std::move(bytes), static_cast<std::size_t>(count)};
  }
  const std::size_t size = sizeOf(file);
  bytes.reset(new char[size]);
  if (readUpTo(file, bytes.get(), size) != size) return {};
  return {std::move(bytes), size};
}

}  // namespace simulation
