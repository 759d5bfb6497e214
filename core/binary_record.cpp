#include "core/binary_record.h"

#include <array>
#include <cstring>

#include "core/data_paths.h"
#include "core/fatal.h"
#include "core/log.h"
#include "core/raw_file.h"

namespace simulation {
std::optional<std::size_t> readStaged(const char* path, void* staging, std::size_t size) {
  const FileDescriptor file = openToRead(path);
  if (!file.valid()) return std::nullopt;
  return readUpTo(file, static_cast<char*>(staging), size);
}

void logStagedCount(const char* path, std::size_t count, std::size_t size) {
  SimulationLog(kError, "read fileName:%s size(%d) is not equal to we need(%d) or pData is NULL",
                path, shown(count), shown(size));
}

void replayStaged(const char* path, void* staging, void* data, std::size_t size,
                  std::size_t liveHead) {
  const auto count = readStaged(path, staging, size);
  if (!count) return;
  if (data == nullptr || *count != size) {
    logStagedCount(path, *count, size);
    return;
  }
  std::memcpy(static_cast<char*>(data) + liveHead, static_cast<char*>(staging) + liveHead,
              size - liveHead);
}

void dumpBinaryRecord(const BinaryRecord& record, const char* path, const void* data) {
  if (record.firstDumpWins && exists(path)) return;
  writeFile(data, path, record.size, kDumpFlags);
}

void readBinaryRecord(const BinaryRecord& record, const char* path, void* data) {
  requireBelow(record.size, kLargestBinaryRecord + 1);
  std::array<char, kLargestBinaryRecord> staging;
  replayStaged(path, staging.data(), data, record.size, record.liveHead);
}

void runBinaryRecord(const BinaryRecord& record, const SimulationInfo& info, const Path& path,
                     void* data) {
  if (info.mode == kDump) dumpBinaryRecord(record, path.c_str(), data);
  if (info.mode == kReadback) readBinaryRecord(record, path.c_str(), data);
}

void runBinaryRecord(const BinaryRecord& record, const SimulationInfo& info, void* data,
                     unsigned int requestId, unsigned int camId) {
  const Path path = recordPath(info, record.type, record.tail, requestId, camId, ".bin");
  runBinaryRecord(record, info, path, data);
}

}  // namespace simulation
