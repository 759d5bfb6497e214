// The Bayer-grid statistics, of a request and of a named image.
#include <simulation/records.h>

#include <cstring>
#include <filesystem>
#include <memory>

#include "tests/support/all_records.h"

namespace {

namespace fs = std::filesystem;

/// A region that no other small number makes.
BGRegionStats region(std::uint64_t n) {
  const auto count = [&](std::uint64_t factor) { return static_cast<std::uint16_t>(factor * n); };
  return {~0ULL - n,   2 * n,    3 * n,    4 * n,    n << 40,
          count(7919), count(7), count(8), count(9), count(10)};
}

bool same(const BGRegionStats& a, const BGRegionStats& b) { return std::memcmp(&a, &b, 50) == 0; }

constexpr std::uint64_t kLive = 0xA5A5A5A5A5A5A5A5U;

struct AwbStats : CameraDataTest {
  ~AwbStats() override { EXPECT_EQ(takeUnreleasedBlocks(), 0U); }

  void fill(std::uint32_t flags, std::uint32_t regions) {
    *stats = {flags, regions, 72, 54, {10, 20, 30, 4294967295U}, 1.1F, {}};
    for (std::uint32_t i = 0; i <= BayerGridOutput::kMaxRegions; ++i) stats->regions[i] = region(i);
  }
  LogLines run(std::uint32_t mode) {
    record.run(mode, reinterpret_cast<char*>(stats.get()));
    return takeLog();
  }
  void readBack(const std::string& document) {
    std::memset(static_cast<void*>(stats.get()), 0xA5, sizeof *stats);
    writeFile(record.replayed(), document);
    run(1);
  }
  const RecordOperation& record = recordNamed("AWBParsedStatsOutput");
  const std::unique_ptr<BayerGridOutput> stats{new BayerGridOutput};
};

TEST_F(AwbStats, NoRegionsAreBlankTexts) {
  fill(2, 0);
  run(0);
  EXPECT_EQ(readFile(record.dumped()), golden("NoRegions.xml"));
}

TEST_F(AwbStats, FullFrameThereAndBackGivesPairsTheNextRegion) {
  for (const bool paired : {false, true}) {
    fill(paired ? 2 : 0, 3888);
    for (std::uint32_t i = 0; paired && i < 3888; ++i) stats->pairs[i] = {region(i), region(7777)};
    run(0);
    // More than fits, in the lists and by their number, is left out.
    const std::string full = readFile(record.dumped());
    const std::string more = replaced(full, "numROIs=\"3888\"", "numROIs=\"4294967295\"");
    for (const std::string& document : {full, replaced(more, " </", " 7 7 </")}) {
      readBack(document);
      EXPECT_EQ(stats->numROIs, 0xA5A5A5A5U);
      for (std::uint32_t i = 0; i < 3888; ++i) {
        const BGRegionStats next = i < 3887 ? region(i + 1) : BGRegionStats{};
        const BGRegionPair& pair = stats->pairs[i];
        ASSERT_TRUE(same(paired ? pair.first : stats->regions[i], region(i))) << i;
        if (!paired) continue;
        ASSERT_TRUE(same(pair.second, next)) << i;
        ASSERT_EQ(std::memcmp(&pair.second.YCount + 1, &kLive, 6), 0) << "the gap at the end";
      }
      EXPECT_TRUE(paired || stats->regions[3888].RSum == kLive);
    }
    fill(paired ? 2 : 0, 3889);
    EXPECT_EXIT(run(0), testing::KilledBySignal(SIGABRT), "") << paired;
  }
}

// Numbers are taken many at a time: odd ones stand at all places among them.
TEST_F(AwbStats, ListsAreReadAsStreamsReadThem) {
  std::mt19937 random(3);
  for (const char* odd :
       {"", " ", "123456789 ", "-1 ", "+5 ", "0007 ", "65536 ", "\n", "7.5 ", "x"}) {
    fill(0, 100);
    run(0);
    std::string list, document = readFile(record.dumped());
    for (unsigned i = 0; i < 100; ++i) {
      list += std::to_string(random() % 65536 >> random() % 16) + ' ';
      if (i == 20 + random() % 20) list += odd;
    }
    for (const char* name : {"RSum", "YCount"}) {
      const std::size_t at = document.find('>', document.find(name)) + 1;
      document.replace(at, document.find('<', at) - at, list);
    }
    readBack(document);
    std::istringstream sums(list), counts(list);
    for (std::uint32_t i = 0; i < 100; ++i) {
      std::uint64_t sum = 0;
      std::uint16_t count = 0;
      EXPECT_EQ(stats->regions[i].RSum, sums >> sum ? sum : 0) << list;
      EXPECT_EQ(stats->regions[i].YCount, counts >> count ? count : 0) << list;
    }
  }
}

TEST_F(AwbStats, DocumentWithoutStatisticsKeepsItsWorkingCopy) {
  readBack("<other/>");
  EXPECT_EQ(takeUnreleasedBlocks(), 1U);
}

TEST_F(AwbStats, NothingToWriteOrToWorkWith) {
  std::string path = kCamera + "stats.xml";
  sim().dumpAWBStatsForSimulation(nullptr, path.data());
  EXPECT_EQ(takeLog(), LogLines({{6, "failed, pBayerGridOutput is null"}}));
  fill(0, 1);
  writeFile(record.replayed(), golden("NoRegions.xml"));
  const NoMemory noMemory(NoMemory::kBlocks);
  const std::string failed = "failed, SimulationAWBBGStats is null";
  EXPECT_EQ(run(0), LogLines({{6, "[" + record.dumped() + "] " + failed}}));
  EXPECT_EQ(run(1), LogLines({{6, failed}}));
  EXPECT_EQ(tree().size(), 3U) << "no file was made";
}

struct OfflineStats : CameraDataTest {
  LogLines run(std::uint32_t mode, const char* folder = "IMG_0001") {
    record.run(mode, data.data(), kRequest, kCamId, folder);
    return takeLog();
  }
  const RecordOperation& record = recordNamed("OfflineAWBBGStats");
  std::string data = record.memory(1);
  const std::size_t configAt = data.size() - 144;
  const std::string config = data.substr(configAt);
  const std::string configName = "simulation_OfflineAWB_ISPAWBBGStatsConfig_camId[3].bin";
  const std::string dumpedConfig = kCamera + kImageFolder + configName;
};

TEST_F(OfflineStats, FirstDumpOfEachFileWins) {
  EXPECT_EQ(run(0), (LogLines{{3, "dump " + record.dumped() + " success"}}));
  const std::string stats = readFile(record.dumped());
  for (const bool keepsStats : {true, false}) {
    writeFile(keepsStats ? record.dumped() : dumpedConfig, "older");
    fs::remove(keepsStats ? dumpedConfig : record.dumped());
    EXPECT_EQ(run(0).size(), keepsStats ? 0U : 1U);
    EXPECT_EQ(readFile(record.dumped()), keepsStats ? "older" : stats);
    EXPECT_EQ(readFile(dumpedConfig), keepsStats ? config : "older");
  }
}

TEST_F(OfflineStats, OneFileDoesNotNeedTheOther) {
  run(0);
  const std::string other = data = record.memory(2);
  fs::rename(dumpedConfig, kCamera + configName);
  EXPECT_EQ(run(1, nullptr), (LogLines{{6, "load " + record.replayed() + " failed"}}));
  EXPECT_EQ(data, other.substr(0, configAt) + config);
  fs::remove(kCamera + configName);
  fs::rename(record.dumped(), record.replayed());
  data = other;
  EXPECT_EQ(run(1, nullptr).size(), 2U);
  EXPECT_NE(data.substr(0, configAt), other.substr(0, configAt));
  EXPECT_EQ(data.substr(configAt), other.substr(configAt));
  EXPECT_EQ(run(0, "a/b").size(), 4U) << "the folder, one file, two lines for the other";
}

}  // namespace
