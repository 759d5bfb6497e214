// Record files as bytes: opening, one read, one write, and what a failure logs.
// No state, no locks.
#pragma once

#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

#include <cstddef>
#include <utility>

namespace simulation {

/// A file descriptor that is closed when it goes out of scope.
class FileDescriptor {
 public:
  explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
  ~FileDescriptor() {
    if (valid()) ::close(descriptor_);
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  bool valid() const { return descriptor_ >= 0; }
  /// True when closing found nothing that could not be written.
  bool close() { return ::close(std::exchange(descriptor_, -1)) == 0; }
  int get() const { return descriptor_; }

 private:
  int descriptor_;
};

/// How a binary dump opens its file: an older, longer file keeps its tail.
inline constexpr int kDumpFlags = O_RDWR | O_CREAT;

/// Opens `path` to be read; a failure is logged.
FileDescriptor openToRead(const char* path);

/// Writes all `size` bytes, in as many steps as it takes. False at the first
/// error.
bool writeAll(const FileDescriptor& file, const char* data, std::size_t size);

/// Reads until `size` bytes are there, the file ends or an error occurs. The
/// count read; `failed`, where given, tells whether it was an error.
std::size_t readUpTo(const FileDescriptor& file, char* data, std::size_t size,
                     bool* failed = nullptr);

/// Reads `size` bytes at `offset` (not positive: from the start) with one read
/// and returns the count, or -1. Another count than `size` is logged; what was
/// read stays in `data`.
ssize_t readFile(void* data, const char* path, std::size_t size, int offset);

/// Writes `size` bytes with one write to a file opened with `flags` and returns
/// the count, or -1. Another count than `size` is logged; a failed open is logged
/// before that, and alone where `size` is all ones.
ssize_t writeFile(const void* data, const char* path, std::size_t size, int flags);

}  // namespace simulation
