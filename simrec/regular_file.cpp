#include "simrec/regular_file.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

namespace simrec {

// Without waiting, should a FIFO have taken the file's place.
RegularFile::RegularFile(const std::string& path)
    : descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)) {
  struct stat status = {};
  if (!descriptor.valid() || fstat(descriptor.get(), &status) != 0) {
    problem = std::string("can't be opened: ") + std::strerror(errno);
  } else if (!S_ISREG(status.st_mode)) {
    problem = problemOf(S_ISDIR(status.st_mode) ? FileType::kFolder : FileType::kSpecial);
  } else {
    bytes = static_cast<std::uint64_t>(status.st_size);
  }
}

const char* problemOf(FileType type) {
  switch (type) {
    case FileType::kDanglingLink:
      return "a link to nowhere";
    case FileType::kUnreachable:
      return "can't be looked at: its folder does not let it";
    case FileType::kFolder:
      return "a folder";
    case FileType::kSpecial:
      return "a FIFO, device or socket";
    case FileType::kRegular:
      break;
  }
  return nullptr;
}

}  // namespace simrec
