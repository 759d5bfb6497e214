// The content of a file in memory, with as few calls as it takes. No state, no locks.
#pragma once

#include <cstddef>
#include <memory>

namespace simulation {

struct WholeFile {
  std::unique_ptr<char[]> bytes;
  std::size_t size = 0;
};

/// Reads a regular file. Empty where it can't be read whole, is empty, or where `path`
/// is anything else, of which nothing is taken.
WholeFile readWholeFile(const char* path);

}  // namespace simulation
