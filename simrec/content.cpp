#include "simrec/content.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <vector>

#include "simrec/error.h"

namespace simrec {
namespace {

using simulation::FileDescriptor;

constexpr std::size_t kPiece = 256 << 10;  ///< whole words

/// Each step maps different words, and different hashes so far, to different hashes.
std::uint64_t hashed(std::uint64_t hash, std::uint64_t word) {
  hash = (hash ^ word) * 0x9E3779B97F4A7C15;
  return hash ^ hash >> 32;
}

void add(Content& content, const char* bytes, std::size_t size) {
  content.bytes += size;
  for (; size > 0;) {
    std::uint64_t word = 0;
    const std::size_t count = size < sizeof word ? size : sizeof word;
    std::memcpy(&word, bytes, count);
    content.hash = hashed(content.hash, word);
    bytes += count;
    size -= count;
  }
}

/// Reads all of it, `take` each piece. False after an error.
template <typename Take>
bool readPieces(const FileDescriptor& file, Take take) {
  std::vector<char> piece(kPiece);
  for (;;) {
    bool failed = false;
    const std::size_t count = readUpTo(file, piece.data(), piece.size(), &failed);
    if (failed) return false;
    if (count > 0) take(piece.data(), count);
    if (count < piece.size()) return true;
  }
}

/// Waits for nobody where a FIFO has taken the file's place.
constexpr int kReadFlags = O_RDONLY | O_NONBLOCK;

}  // namespace

std::optional<Content> contentOf(const Directory& folder, const std::string& name) {
  const FileDescriptor file(folder.open(name, kReadFlags | O_NOFOLLOW));
  if (!file.valid() && (errno == EACCES || errno == EPERM)) return std::nullopt;
  if (!file.valid()) folder.fail(name);
  Content content;
  const auto take = [&](const char* bytes, std::size_t size) { add(content, bytes, size); };
  if (!readPieces(file, take)) folder.fail(name);
  return content;
}

Content copyFile(const Directory& from, const std::string& name, const Directory& to,
                 const std::string& newName) {
  const FileDescriptor original(from.open(name, kReadFlags));
  if (!original.valid()) from.fail(name);
  struct stat status;
  if (fstat(original.get(), &status) != 0) from.fail(name);
  if (!S_ISREG(status.st_mode)) throw Error(from.pathOf(name) + ": no regular file");
  FileDescriptor copy(to.open(newName, O_WRONLY | O_CREAT | O_EXCL, status.st_mode & 0777));
  if (!copy.valid()) to.fail(newName);
  Content content;
  const auto take = [&](const char* bytes, std::size_t size) {
    if (!writeAll(copy, bytes, size)) to.fail(newName);
    add(content, bytes, size);
  };
  if (!readPieces(original, take)) from.fail(name);
  if (!copy.close()) to.fail(newName);
  return content;
}

}  // namespace simrec
