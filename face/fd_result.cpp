// The face-detection result of one request: six of the caller's blocks, one
// after another in one file that does not tell where a block ends.
#include <simulation/simulation.h>

#include "core/data_paths.h"
#include "core/fatal.h"
#include "core/raw_file.h"
#include "face/codecs.h"

namespace simulation {
namespace {

/// Where the block after `block` begins. Aborts when no size_t can tell.
std::size_t offsetAfter(std::size_t offset, const FdBlock& block) {
  std::size_t next = 0;
  if (__builtin_add_overflow(offset, block.size, &next)) fatal();
  return next;
}

}  // namespace

/// Each block is appended by itself: one that fails is missing from the file,
/// which shifts those after it.
void dumpFdResult(const char* path, const FdBlocks& blocks) {
  if (exists(path)) return;
  for (const FdBlock& block : blocks) {
    writeFile(block.data, path, block.size, kDumpFlags | O_APPEND);
  }
}

/// Offsets count whole blocks, however much of them could be read. Only their
/// low 32 bits are used: a file beyond 2 GiB is not read in its right places.
void readFdResult(const char* path, const FdBlocks& blocks) {
  std::size_t offset = 0;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    if (i > 0) offset = offsetAfter(offset, blocks[i - 1]);
    readFile(blocks[i].data, path, blocks[i].size, static_cast<int>(offset));
  }
}

}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForFDResult(SimulationInfo* info, void* block1, unsigned long size1,
                                       void* block2, unsigned long size2, void* block3,
                                       unsigned long size3, void* block4, unsigned long size4,
                                       void* block5, unsigned long size5, void* block6,
                                       unsigned long size6, unsigned int requestId,
                                       unsigned int camId) {
  const FdBlocks blocks = {{{block1, size1},
                            {block2, size2},
                            {block3, size3},
                            {block4, size4},
                            {block5, size5},
                            {block6, size6}}};
  const Path path = recordPath(*info, FileType::FACE, "_FDResult", requestId, camId, ".bin");
  if (info->mode == kDump) dumpFdResult(path.c_str(), blocks);
  if (info->mode == kReadback) readFdResult(path.c_str(), blocks);
}
