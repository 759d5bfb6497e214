// Takes the place of the pipeline's memory services in the tests: counts what is
// not released and fails on demand.
#pragma once

#include <cstddef>

/// Blocks of CamxCalloc that were not released; forgets and releases them.
std::size_t takeUnreleasedBlocks();

/// While it lives, one of the two services has no memory.
struct NoMemory {
  enum Service { kBlocks, kObjects };
  explicit NoMemory(Service service);
  ~NoMemory();
};
