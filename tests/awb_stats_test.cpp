// The Bayer-grid statistics, of a request and of a named image.
#include <simulation/records.h>

#include <cstring>
#include <memory>

#include "tests/support/all_records.h"

namespace {

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
  const struct {
    NoMemory::Service lacking;
    std::string dump, readback;
  } cases[] = {{NoMemory::kObjects, "create XMLDocument " + record.dumped() + " failed",
                "create XMLDocument failed"},
               {NoMemory::kBlocks, "[" + record.dumped() + "] failed, SimulationAWBBGStats is null",
                "failed, SimulationAWBBGStats is null"}};
  for (const auto& row : cases) {
    const NoMemory noMemory(row.lacking);
    EXPECT_EQ(run(0), LogLines({{6, row.dump}}));
    EXPECT_EQ(run(1), LogLines({{6, row.readback}}));
  }
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
  EXPECT_EQ(readFile(dumpedConfig), config);
  writeFile(record.dumped(), "older");
  ASSERT_EQ(unlink(dumpedConfig.c_str()), 0);
  data.back() = 'x';
  EXPECT_EQ(run(0), LogLines{});
  EXPECT_EQ(readFile(record.dumped()), "older");
  EXPECT_EQ(readFile(dumpedConfig).back(), 'x');
  data.back() = 'y';
  EXPECT_EQ(run(0), LogLines{});
  EXPECT_EQ(readFile(dumpedConfig).back(), 'x');
}

TEST_F(OfflineStats, OneFileDoesNotNeedTheOther) {
  run(0);
  const std::string whole = data, other = record.memory(2);
  writeFile(kCamera + configName, config);
  data = other;
  EXPECT_EQ(run(1, nullptr), (LogLines{{6, "load " + record.replayed() + " failed"}}));
  EXPECT_EQ(data, other.substr(0, configAt) + config);
  ASSERT_EQ(unlink((kCamera + configName).c_str()), 0);
  writeFile(record.replayed(), readFile(record.dumped()));
  data = other;
  EXPECT_EQ(run(1, nullptr).size(), 2U);
  EXPECT_NE(data.substr(0, configAt), other.substr(0, configAt));
  EXPECT_EQ(data.substr(configAt), other.substr(configAt));
  EXPECT_EQ(run(0, "a/b").size(), 4U) << "the folder, one file, two lines for the other";
}

}  // namespace
