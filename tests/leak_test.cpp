// What every record operation leaves allocated: nothing, but for what is kept on
// purpose.
#include <atomic>
#include <cstdlib>
#include <new>
#include <stdexcept>

#include "core/record_document.h"
#include "tests/support/all_records.h"

namespace {

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

/// The blocks that a call leaves allocated.
long leftBy(const RecordOperation& record, std::uint32_t mode, bool* threw = nullptr) {
  std::string data = record.memory(1);
  const long before = live;
  try {
    record.run(mode, data.data());
  } catch (const std::logic_error&) {
    *threw = true;
  }
  takeLog();
  Simulation::m_LscIndex.clear();
  EXPECT_EQ(takeUnreleasedBlocks(), 0U);
  return live - before;
}

long blocksOfDocument(const std::string& path) {
  const long before = live;
  const auto document = std::make_unique<simulation::RecordDocument>();
  if (!path.empty()) document->load(path.c_str());
  return live - before;
}

using LeakTest = CameraDataTest;

TEST_F(LeakTest, OnlyWhatIsKeptOnPurposeStaysAllocated) {
  std::string kept, freed;  // where a conversion throws: the document stays, or not
  for (const RecordOperation& record : kAllRecords) {
    SCOPED_TRACE(record.name);
    const std::string path = record.replayed();
    const bool always = record.name == std::string("AWBExtExposure");
    leftBy(record, 0);  // what the first call of all allocates for good
    EXPECT_EQ(leftBy(record, 2), 0);
    EXPECT_EQ(leftBy(record, 0), always ? blocksOfDocument("") : 0);
    const std::string text = readFile(record.dumped());
    // The last number of a file is one that some records can't do without.
    std::string badNumber = text;
    badNumber[text.find_last_of("> ", text.find_last_of("0123456789")) + 1] = 'x';
    for (const std::string& content : {text, badNumber}) {
      writeFile(path, content);
      const long document = blocksOfDocument(path);
      bool threw = false;
      const long left = leftBy(record, 1, &threw);
      EXPECT_EQ(left, always || (threw && left != 0) ? document : 0);
      if (threw) (left != 0 ? kept : freed) += record.name + std::string(" ");
    }
  }
  EXPECT_EQ(kept,
            "QsegImageData ZOAWBWideAlwaysOnStatus ZOAWBSyncInfo ZOAWBPureColorRes "
            "ZOAWBLightSrcClassify ");
  EXPECT_EQ(freed, "ZoAWBSpectralSensorInfo LscMeta ");
}

}  // namespace
