// What face detection's records are as files, wherever a file lies. The caller owns
// records, blocks and paths; nothing is kept. Logs as the operations do. No state, no
// locks.
#pragma once

#include <simulation/records.h>

#include <array>
#include <cstddef>

#include "core/binary_record.h"

namespace simulation {

inline constexpr BinaryRecord kFdRoi = {FileType::FACE, "_FaceROI", kFdRoiSize, 8, true};

/// The six of the caller's blocks that stand one after another in a face-detection
/// result, which does not tell where a block ends.
struct FdBlock {
  void* data;
  std::size_t size;
};
using FdBlocks = std::array<FdBlock, 6>;

/// Appends each block to the file, unless it is there.
void dumpFdResult(const char* path, const FdBlocks& blocks);

/// Reads each block where the sizes of those before it put it, as far as the file
/// goes. Aborts when those sizes exceed a size_t.
void readFdResult(const char* path, const FdBlocks& blocks);

}  // namespace simulation
