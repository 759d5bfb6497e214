// What every record operation leaves allocated: nothing, but for what is kept on
// purpose.
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <regex>
#include <stdexcept>

#include "core/record_document.h"
#include "tests/support/all_records.h"
#include "tests/support/camera_data.h"
#include "tests/support/camx_memory.h"

namespace {

namespace fs = std::filesystem;

std::atomic<long> live;

// Out of line: once it sees through them, g++ takes malloc for a mismatched new.
__attribute__((noinline)) void* take(std::size_t size) {
  ++live;
  return std::malloc(size);
}
__attribute__((noinline)) void giveBack(void* memory) {
  live -= memory != nullptr;
  std::free(memory);
}

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return take(size); }
void* operator new(std::size_t size) { return take(size); }
void operator delete(void* memory) noexcept { giveBack(memory); }
void operator delete(void* memory, std::size_t) noexcept { giveBack(memory); }

namespace {

struct Left {
  long blocks = 0;             ///< of operator new
  std::size_t camxBlocks = 0;  ///< of CamxCalloc
  bool threw = false;          ///< a conversion threw
};

Left leftBy(const RecordOperation& record, std::uint32_t mode) {
  Left left;
  Bytes data = record.memory(1);
  const long before = live;
  try {
    record.run(mode, data, 21, 1);
  } catch (const std::logic_error&) {
    left.threw = true;
  }
  takeLog();
  Simulation::m_LscIndex.clear();
  left.camxBlocks = takeUnreleasedBlocks();
  left.blocks = live - before;
  return left;
}

long blocksOfDocument(const std::string& path) {
  const long before = live;
  const auto document = std::make_unique<simulation::RecordDocument>();
  if (!path.empty()) document->load(path.c_str());
  return live - before;
}

using LeakTest = CameraDataTest;

TEST_F(LeakTest, OnlyWhatIsKeptOnPurposeStaysAllocated) {
  int kept = 0, threw = 0;
  for (const RecordOperation& record : kAllRecords) {
    SCOPED_TRACE(record.name);
    const std::string name = record.name;
    const bool always = name == "SimulationForAWBExtExposure";
    leftBy(record, 0);  // what the first call of all allocates for good
    EXPECT_EQ(leftBy(record, 2).blocks, 0);
    EXPECT_EQ(leftBy(record, 0).blocks, always ? blocksOfDocument("") : 0);
    std::string path, text;
    for (const auto& entry : fs::recursive_directory_iterator(kCamera)) {
      if (!entry.is_regular_file()) continue;
      const std::string file = kCamera + entry.path().filename().string();
      fs::rename(entry.path(), file);
      if (entry.path().extension() == ".xml") text = readFile(path = file);
    }
    // The last number of a file is one that some records can't do without.
    std::string badNumber = text;
    if (!text.empty()) {
      badNumber[text.find_last_of("> ", text.find_last_of("0123456789")) + 1] = 'x';
    }
    const std::string noStats = std::regex_replace(text, std::regex("AWBBGStats"), "Other");
    for (const std::string& content : {text, badNumber, noStats}) {
      if (!path.empty()) writeFile(path, content);
      const Left left = leftBy(record, 1);
      const bool keeps = always || (left.threw && name != "SimulationForZoAWBSpectralSensorInfo" &&
                                    name != "simulationForLscMeta");
      EXPECT_EQ(left.blocks, keeps ? blocksOfDocument(path) : 0);
      EXPECT_EQ(left.camxBlocks, content == noStats && noStats != text ? 1U : 0U);
      kept += keeps;
      threw += left.threw;
    }
    for (const auto& entry : fs::directory_iterator(kCamera)) fs::remove_all(entry.path());
  }
  EXPECT_EQ(threw, 7) << "the damage is not where a conversion is";
  EXPECT_EQ(kept, 5 + 3);
}

}  // namespace
