// What every record operation leaves allocated: nothing, but for what is kept on
// purpose.
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <stdexcept>

#include "core/record_document.h"
#include "tests/support/all_records.h"
#include "tests/support/camera_data.h"
#include "tests/support/camx_memory.h"

namespace {

namespace fs = std::filesystem;

std::atomic<long> live;

void* allocate(std::size_t size) noexcept {
  void* const memory = std::malloc(size + (size == 0));
  live += memory != nullptr;
  return memory;
}

void release(void* memory) noexcept {
  live -= memory != nullptr;
  std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
  void* const memory = allocate(size);
  return memory != nullptr ? memory : throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return ::operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }
void operator delete[](void* memory) noexcept { release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { release(memory); }

namespace {

class EveryRecordLeak : public CameraDataTest,
                        public testing::WithParamInterface<RecordOperation> {
 protected:
  /// The blocks that a run leaves; true in `threw` when a conversion threw.
  long leftBy(std::uint32_t mode) {
    Bytes data = callersMemory(record, 1);
    SimulationInfo info = infoFor(mode);
    takeLog(), takeUnreleasedBlocks();
    const long before = live;
    threw = false;
    try {
      record.run(info, data.data(), 21, 1);
    } catch (const std::logic_error&) {
      threw = true;
    }
    takeLog();
    Simulation::m_LscIndex.clear();
    const long after = live;
    camxBlocks = takeUnreleasedBlocks();
    return after - before;
  }

  /// Makes the record's files those of a readback, `from` replaced by `to`.
  std::string offer(const std::string& from = "", const std::string& to = "") {
    std::string last;
    for (const auto& entry : fs::recursive_directory_iterator(kCamera)) {
      if (!entry.is_regular_file()) continue;
      std::string bytes = readFile(entry.path());
      for (std::size_t at; !from.empty() && (at = bytes.find(from)) != std::string::npos;) {
        bytes.replace(at, from.size(), to);
      }
      writeFile(last = kCamera + entry.path().filename().string(), bytes);
      last = entry.path().extension() == ".xml" ? last : "";
    }
    return last;
  }

  const RecordOperation& record = GetParam();
  bool threw = false;
  std::size_t camxBlocks = 0;
};

long blocksOfDocument(const std::string& path) {
  const long before = live;
  const auto document = std::make_unique<simulation::RecordDocument>();
  if (!path.empty()) document->load(path.c_str());
  return live - before;
}

TEST_P(EveryRecordLeak, LeavesWhatIsKeptOnPurposeAndNoMore) {
  const std::string name = record.name;
  const bool keepsAll = name == "SimulationForAWBExtExposure";
  leftBy(0);
  const std::string path = offer();
  for (const std::uint32_t mode : {0, 1, 2}) {
    const bool kept = keepsAll && mode < 2;
    const long document = kept ? blocksOfDocument(mode == 1 ? path : "") : 0;
    EXPECT_EQ(leftBy(mode), document) << "mode " << mode;
    EXPECT_EQ(camxBlocks, 0U) << "mode " << mode;
    EXPECT_FALSE(threw);
  }
}

TEST_P(EveryRecordLeak, OfADamagedFileToo) {
  const std::string name = record.name;
  leftBy(0);
  leftBy(0);
  // A float of LSC is written past its table only when there are more of them.
  const std::string path = offer(">1", ">x1");
  if (path.empty()) return;
  leftBy(1);
}

}  // namespace
