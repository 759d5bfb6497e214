// Fixed-size records that are the caller's memory, byte for byte. A readback
// stages the file in a local copy and touches the live record only when all of
// it is there. No state, no locks.
#pragma once

#include <simulation/simulation.h>

#include <cstddef>
#include <optional>

#include "core/path.h"

namespace simulation {

/// One row: what tells a fixed-size record from the others.
struct BinaryRecord {
  FileType type;
  const char* tail;            ///< of the file name, between the prefix and the camera
  std::size_t size;            ///< bytes in the file
  std::size_t liveHead = 0;    ///< leading bytes that a readback never takes from the file
  bool firstDumpWins = false;  ///< a file that exists is left alone
};

/// The size of the largest fixed-size record, and of a staging buffer.
inline constexpr std::size_t kLargestBinaryRecord = 1784;

/// Reads up to `size` bytes into `staging`, which keeps what it held beyond
/// them. The count read, or nothing (and one logged line) when the file can't be
/// opened.
std::optional<std::size_t> readStaged(const char* path, void* staging, std::size_t size);

/// Says how many bytes a staged readback got.
void logStagedCount(const char* path, std::size_t count, std::size_t size);

/// Reads `path` and, when all `size` bytes are there, copies those after the
/// first `liveHead` over `data`; a null `data` is logged like a short file.
void replayStaged(const char* path, void* staging, void* data, std::size_t size,
                  std::size_t liveHead = 0);

/// Writes `data` to `path`, unless a first dump that wins is there.
void dumpBinaryRecord(const BinaryRecord& record, const char* path, const void* data);

/// Replays `path` over `data` when all of the record is there.
void readBinaryRecord(const BinaryRecord& record, const char* path, void* data);

/// Dumps or replays `data` at `path`, as the mode says.
void runBinaryRecord(const BinaryRecord& record, const SimulationInfo& info, const Path& path,
                     void* data);

/// The same at the record's own path: prefix, tail, camera.
void runBinaryRecord(const BinaryRecord& record, const SimulationInfo& info, void* data,
                     unsigned int requestId, unsigned int camId);

}  // namespace simulation
