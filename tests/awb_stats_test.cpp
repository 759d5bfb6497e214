// The Bayer-grid statistics, of a request and of a named image.
#include <simulation/records.h>

#include <cstring>
#include <memory>

#include "tests/support/camera_data.h"
#include "tests/support/camx_memory.h"

namespace {

const char* const kArrays[] = {"RSum",   "BSum",   "GRorGSum",   "GBSum",   "YSum",
                               "RCount", "BCount", "GRorGCount", "GBCount", "YCount"};

/// A region that no other small number makes.
BGRegionStats region(std::uint64_t n) {
  const auto count = [&](std::uint64_t factor) { return static_cast<std::uint16_t>(factor * n); };
  return {~0ULL - n,   2 * n,    3 * n,    4 * n,    n << 40,
          count(7919), count(7), count(8), count(9), count(10)};
}

bool same(const BGRegionStats& a, const BGRegionStats& b) { return std::memcmp(&a, &b, 50) == 0; }

/// A document whose arrays all hold the same list.
std::string documentOf(const std::string& attributes, const std::string& list) {
  std::string text = "<SimulationData>\n    <AWBBGStats " + attributes + ">\n";
  for (const std::string name : kArrays) {
    text += "        <" + name + ">" + list + "</" + name + ">\n";
  }
  return text + "    </AWBBGStats>\n</SimulationData>\n";
}

constexpr std::uint64_t kLive = 0xA5A5A5A5A5A5A5A5U;

struct AwbStats : CameraDataTest {
  ~AwbStats() override { EXPECT_EQ(takeUnreleasedBlocks(), 0U); }

  void setHeader(std::uint32_t flags, std::uint32_t regions) {
    *stats = {flags, regions, 72, 54, {10, 20, 30, 4294967295U}, 1.1F, {}};
    for (std::uint32_t i = 0; i <= BayerGridOutput::kMaxRegions; ++i) stats->regions[i] = region(i);
  }
  void run(std::uint32_t mode) {
    SimulationInfo info = infoFor(mode);
    sim().SimulationForAWBParsedStatsOutput(&info, stats.get(), kRequest, kCamId, "preview");
  }
  void readBack(const std::string& document) {
    std::memset(static_cast<void*>(stats.get()), 0xA5, sizeof *stats);
    writeFile(file, document);
    run(1);
  }
  const std::unique_ptr<BayerGridOutput> stats{new BayerGridOutput};
  const std::string name = "simulation_AWB_ParsedAWBStatsOutput_preview_camId[3].xml";
  const std::string file = kCamera + name;
  const std::string dumped = kCamera + kTmpFolder + name;
};

TEST_F(AwbStats, NoRegionsAreBlankTexts) {
  setHeader(2, 0);
  run(0);
  EXPECT_EQ(readFile(dumped), golden("NoRegions.xml"));
}

TEST_F(AwbStats, FullFrameThereAndBackGivesPairsTheNextRegion) {
  for (const bool paired : {false, true}) {
    setHeader(paired ? 2 : 0, 3888);
    for (std::uint32_t i = 0; paired && i < 3888; ++i) stats->pairs[i] = {region(i), region(7777)};
    run(0);
    readBack(readFile(dumped));
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
}

TEST_F(AwbStats, MoreRegionsThanFit) {
  for (const std::uint32_t flags : {0U, 2U}) {
    setHeader(flags, 3889);
    EXPECT_EXIT(run(0), testing::KilledBySignal(SIGABRT), "") << flags;
  }
  std::string many;
  for (int i = 0; i < 4000; ++i) many += "7 ";
  readBack(documentOf("numROIs='4294967295'", many));
  EXPECT_EQ(stats->regions[3887].YCount, 7);
  EXPECT_EQ(stats->regions[3888].RSum, kLive);
  readBack(documentOf("numROIs='3889' hasSatInfo='1'", many));
  EXPECT_EQ(stats->pairs[3887].first.RSum, 7U);
  EXPECT_EQ(stats->pairs[3887].second.RSum, 0U);
}

TEST_F(AwbStats, DocumentWithoutStatisticsKeepsItsWorkingCopy) {
  readBack("<other/>");
  EXPECT_EQ(takeUnreleasedBlocks(), 1U);
}

TEST_F(AwbStats, NothingToWriteOrToWorkWith) {
  std::string path = kCamera + "stats.xml";
  sim().dumpAWBStatsForSimulation(nullptr, path.data());
  setHeader(0, 1);
  for (const auto service : {NoMemory::kObjects, NoMemory::kBlocks}) {
    const NoMemory noMemory(service);
    sim().dumpAWBStatsForSimulation(stats.get(), path.data());
    writeFile(file, documentOf("numROIs='1'", "5 "));
    run(1);
  }
  EXPECT_EQ(takeLog(), (LogLines{{6, "failed, pBayerGridOutput is null"},
                                 {6, "create XMLDocument " + path + " failed"},
                                 {6, "create XMLDocument failed"},
                                 {6, "[" + path + "] failed, SimulationAWBBGStats is null"},
                                 {6, "failed, SimulationAWBBGStats is null"}}));
  EXPECT_EQ(tree(), Names{name});
}

struct OfflineStats : AwbStats {
  LogLines runOffline(std::uint32_t mode, const char* folderName = "IMG_0001") {
    SimulationInfo info = infoFor(mode, folderName);
    sim().SimulationForOfflineAWBBGStats(&info, stats.get(), config.data(), kRequest, kCamId);
    return takeLog();
  }

  std::string config = pattern(144, 1);
  const std::string folder = kCamera + kImageFolder;
  const std::string statsName = "simulation_OfflineAWB_ParsedAWBStatsOutput_camId[3].xml";
  const std::string configName = "simulation_OfflineAWB_ISPAWBBGStatsConfig_camId[3].bin";
};

TEST_F(OfflineStats, FirstDumpOfEachFileWins) {
  setHeader(0, 1);
  EXPECT_EQ(runOffline(0), (LogLines{{3, "dump " + folder + statsName + " success"}}));
  EXPECT_EQ(tree(folder), (Names{configName, statsName}));
  writeFile(folder + statsName, "older");
  ASSERT_EQ(unlink((folder + configName).c_str()), 0);
  EXPECT_EQ(runOffline(0), LogLines{});
  EXPECT_EQ(readFile(folder + statsName), "older");
  EXPECT_EQ(readFile(folder + configName), config);
}

TEST_F(OfflineStats, OneFileDoesNotNeedTheOther) {
  writeFile(kCamera + configName, pattern(144, 3));
  EXPECT_EQ(runOffline(1, nullptr), (LogLines{{6, "load " + kCamera + statsName + " failed"}}));
  EXPECT_EQ(config, pattern(144, 3));
  ASSERT_EQ(unlink((kCamera + configName).c_str()), 0);
  writeFile(kCamera + statsName, documentOf("numROIs='1'", "5 "));
  EXPECT_EQ(runOffline(1, nullptr).size(), 2U);
  EXPECT_EQ(stats->regions[0].RSum, 5U);
  setHeader(0, 1);
  EXPECT_EQ(runOffline(0, "a/b").size(), 4U) << "the folder, one file, two lines for the other";
}

}  // namespace
