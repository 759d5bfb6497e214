// A file that is opened only if there is no harm in it: no FIFO, no device.
#pragma once

#include <cstdint>
#include <string>

#include "core/raw_file.h"
#include "simrec/store.h"

namespace simrec {

/// A regular file, or a link to one, opened to be read.
struct RegularFile {
  explicit RegularFile(const std::string& path);

  simulation::FileDescriptor descriptor;
  std::uint64_t bytes = 0;
  std::string problem;  ///< in words; empty: it is open
};

/// What an entry of this type is instead of a file that can be opened; null: it is one.
const char* problemOf(FileType type);

}  // namespace simrec
