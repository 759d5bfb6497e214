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

/// A document whose arrays hold the ten `lists`, or all the same one.
std::string documentOf(const std::string& attributes, const std::vector<std::string>& lists) {
  std::string text = "<SimulationData>\n    <AWBBGStats " + attributes + ">\n";
  for (std::size_t i = 0; i < std::size(kArrays); ++i) {
    const std::string name = kArrays[i];
    text += "        <" + name + ">" + lists[lists.size() == 1 ? 0 : i] + "</" + name + ">\n";
  }
  return text + "    </AWBBGStats>\n</SimulationData>\n";
}

const std::string kRestOfHeader =
    " horizontal_num=\"72\" vertical_num=\"54\" BLStretchFactor=\"1.1\" "
    "channelGainThreshold=\"10 20 30 4294967295 \"";

constexpr std::uint64_t kLive = 0xA5A5A5A5A5A5A5A5U;

struct AwbStats : CameraDataTest {
  AwbStats() { reset(); }
  ~AwbStats() override { EXPECT_EQ(takeUnreleasedBlocks(), 0U); }

  void reset() { std::memset(static_cast<void*>(stats.get()), 0xA5, sizeof *stats); }
  void setHeader(std::uint32_t flags, std::uint32_t regions) {
    *stats = {flags, regions, 72, 54, {10, 20, 30, 4294967295U}, 1.1F, {}};
    for (std::uint32_t i = 0; i <= BayerGridOutput::kMaxRegions; ++i) stats->regions[i] = region(i);
  }
  void run(std::uint32_t mode) {
    SimulationInfo info = infoFor(mode);
    simulation.SimulationForAWBParsedStatsOutput(&info, stats.get(), 57, 1, "preview");
  }
  void readBack(const std::string& document) {
    reset();
    writeFile(file, document);
    run(1);
  }
  void expectUntouched(const std::string& what = "") {
    const std::string bytes(reinterpret_cast<const char*>(stats.get()), sizeof *stats);
    EXPECT_EQ(bytes.find_first_not_of('\xA5'), std::string::npos) << what;
  }

  const std::unique_ptr<BayerGridOutput> stats{new BayerGridOutput};
  const std::string name = "simulation_AWB_ParsedAWBStatsOutput_preview_camId[1].xml";
  const std::string file = kCamera + name;
  const std::string dumped = kCamera + "tmp/RequestID[57]_camId[1]/" + name;
  const LogLine success = {6, "readback " + file + " success"};
};

TEST_F(AwbStats, DocumentAsAWhole) {
  const std::vector<std::string> lists = {"18446744073709551615 18446744073709551614 ",
                                          "0 2 ",
                                          "0 3 ",
                                          "0 4 ",
                                          "0 1099511627776 ",
                                          "0 7919 ",
                                          "0 7 ",
                                          "0 8 ",
                                          "0 9 ",
                                          "0 10 "};
  setHeader(0xFFFFFFFD, 2);
  run(0);
  EXPECT_EQ(readFile(dumped),
            documentOf("usesY=\"1\" hasSatInfo=\"0\" numROIs=\"2\"" + kRestOfHeader, lists));
  EXPECT_EQ(takeLog(), (LogLines{{3, "dump " + dumped + " success"}}));
  const auto answer = askXmllint("string(//AWBBGStats[@numROIs=2]/RSum)", dumped);
  EXPECT_EQ(answer.value_or(lists[0] + "\n"), lists[0] + "\n");
}

TEST_F(AwbStats, NoRegionsAreBlankTextsThatChangeNothing) {
  setHeader(2, 0);
  run(0);
  const std::string document =
      documentOf("usesY=\"0\" hasSatInfo=\"1\" numROIs=\"0\"" + kRestOfHeader, {" "});
  EXPECT_EQ(readFile(dumped), document);
  takeLog();
  readBack(document);
  expectUntouched();
  EXPECT_EQ(takeLog(), LogLines{success});
}

TEST_F(AwbStats, FullFrameThereAndBack) {
  setHeader(0, 3888);
  run(0);
  readBack(readFile(dumped));
  for (std::uint32_t i = 0; i < 3888; ++i) ASSERT_TRUE(same(stats->regions[i], region(i))) << i;
  EXPECT_EQ(stats->regions[3888].RSum, kLive);
  EXPECT_EQ(stats->numROIs, 0xA5A5A5A5U);
}

TEST_F(AwbStats, FullFrameOfPairsComesBackWithTheNextRegionInTheSecondBlock) {
  setHeader(2, 3888);
  for (std::uint32_t i = 0; i < 3888; ++i) stats->pairs[i] = {region(i), region(i + 7777)};
  run(0);
  readBack(readFile(dumped));
  for (std::uint32_t i = 0; i < 3888; ++i) {
    const BGRegionStats next = i < 3887 ? region(i + 1) : BGRegionStats{};
    ASSERT_TRUE(same(stats->pairs[i].first, region(i))) << i;
    ASSERT_TRUE(same(stats->pairs[i].second, next)) << i;
    const char* gap = reinterpret_cast<const char*>(&stats->pairs[i].second) + 50;
    ASSERT_EQ(std::string(gap, 6), "\xA5\xA5\xA5\xA5\xA5\xA5");
  }
}

TEST_F(AwbStats, MoreRegionsThanFit) {
  for (const std::uint32_t flags : {0U, 2U}) {
    setHeader(flags, 3889);
    EXPECT_EXIT(run(0), testing::KilledBySignal(SIGABRT), "") << flags;
  }
  std::string many;
  for (int i = 0; i < 4000; ++i) many += "7 ";
  readBack(documentOf("numROIs='4294967295'", {many}));
  EXPECT_EQ(stats->regions[3887].YCount, 7);
  EXPECT_EQ(stats->regions[3888].RSum, kLive);
  readBack(documentOf("numROIs='3889' hasSatInfo='1'", {many}));
  EXPECT_EQ(stats->pairs[3887].first.RSum, 7U);
  EXPECT_EQ(stats->pairs[3887].second.RSum, 0U);
}

TEST_F(AwbStats, ListsEndAtTheFirstBadValueAndGoOnAsZeros) {
  const struct {
    std::string attributes, list;
    std::uint64_t sums[4], counts[3];
  } cases[] = {
      {"numROIs='2'", "5 6 7 ", {5, 6, kLive, kLive}, {5, 6, 0xA5A5}},
      {"numROIs='3'", "5", {5, 0, 0, kLive}, {5, 0, 0}},
      {"numROIs='3'", "\n +5\t-1 x 7", {5, ~0ULL, 0, kLive}, {5, 65535, 0}},
      {"numROIs='3'", "65536 1", {65536, 1, 0, kLive}, {0, 0, 0}},
      {"numROIs='3'", "18446744073709551616 1", {0, 0, 0, kLive}, {0, 0, 0}},
      {"numROIs='3'", "", {0, 0, 0, kLive}, {0, 0, 0}},
      {"numROIs='many'", "5", {kLive, kLive, kLive, kLive}, {0xA5A5, 0xA5A5, 0xA5A5}},
      {"numROIs='2' hasSatInfo='3'", "5 6 7 ", {5, 6, 6, 7}, {5, 6, 6}},
      {"numROIs='1' hasSatInfo='no'", "5 6", {5, kLive, kLive, kLive}, {5, 0xA5A5, 0xA5A5}},
  };
  for (const auto& row : cases) {
    readBack(documentOf(row.attributes, {row.list}));
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(stats->regions[i].GBSum, row.sums[i]) << row.list;
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(stats->regions[i].RCount, row.counts[i]) << i;
    EXPECT_EQ(takeLog(), LogLines{success});
  }
}

TEST_F(AwbStats, DamagedDocumentsChangeNothing) {
  const std::string whole = documentOf("numROIs='1'", {"5 "});
  const LogLine noStats = {6, "read AWBBGStats element failed"};
  run(1);
  readBack(whole + "<damaged");
  EXPECT_EQ(takeLog(), LogLines(2, {6, "load " + file + " failed"}));
  for (const std::string array : kArrays) {
    readBack(withoutLine(whole, "<" + array + ">"));
    expectUntouched(array);
    EXPECT_EQ(takeLog(), (LogLines{{6, "read " + array + " element failed"}}));
  }
  for (const std::string first : {"<?xml version=\"1.0\"?>", "<!-- -->", "<AWBBGStats/>"}) {
    EXPECT_EQ(takeUnreleasedBlocks(), 0U);
    readBack(first + whole);
    expectUntouched(first);
    EXPECT_EQ(takeLog(), LogLines{noStats});
    EXPECT_EQ(takeUnreleasedBlocks(), 1U);  // the one path that keeps its working copy
  }
}

TEST_F(AwbStats, NothingToWriteOrToWorkWith) {
  std::string path = kCamera + "stats.xml";
  simulation.dumpAWBStatsForSimulation(nullptr, path.data());
  setHeader(0, 1);
  for (const auto service : {NoMemory::kObjects, NoMemory::kBlocks}) {
    const NoMemory noMemory(service);
    simulation.dumpAWBStatsForSimulation(stats.get(), path.data());
    writeFile(file, documentOf("numROIs='1'", {"5 "}));
    run(1);
  }
  run(2);
  EXPECT_EQ(takeLog(), (LogLines{{6, "failed, pBayerGridOutput is null"},
                                 {6, "create XMLDocument " + path + " failed"},
                                 {6, "create XMLDocument failed"},
                                 {6, "[" + path + "] failed, SimulationAWBBGStats is null"},
                                 {6, "failed, SimulationAWBBGStats is null"}}));
  EXPECT_EQ(tree(), std::vector<std::string>{name});
}

struct OfflineStats : AwbStats {
  void runOffline(std::uint32_t mode, const char* folder, void* data) {
    SimulationInfo info = infoFor(mode, folder);
    simulation.SimulationForOfflineAWBBGStats(&info, stats.get(), data, 57, 1);
  }

  std::string config = pattern(144, 1);
  const std::string prefix = "simulation_OfflineAWB_";
  const std::string statsName = prefix + "ParsedAWBStatsOutput_camId[1].xml";
  const std::string configName = prefix + "ISPAWBBGStatsConfig_camId[1].bin";
};

TEST_F(OfflineStats, PrefixMakesTheNamedFolderAndTheTmpRoot) {
  char out[128];
  std::string folder = "IMG_0001";
  simulation.getOfflineAWBFilesPath(1, FileType::OfflineAWB, out, 57, 1, folder.data());
  EXPECT_EQ(out, kCamera + "simulation_OfflineAWB");
  EXPECT_EQ(tree(), std::vector<std::string>{});
  simulation.getOfflineAWBFilesPath(0, FileType::FACE, out, 57, 1, folder.data());
  EXPECT_EQ(out, kCamera + "IMG_0001/simulation_FACE");
  EXPECT_EQ(tree(), (std::vector<std::string>{"IMG_0001/", "tmp/"}));
  EXPECT_EXIT(simulation.getOfflineAWBFilesPath(1, static_cast<FileType>(10), out, 57, 1, nullptr),
              testing::KilledBySignal(SIGABRT), "");
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(OfflineStats, FirstDumpOfEachFileWins) {
  const std::string folder = kCamera + "IMG_0001/";
  setHeader(0, 1);
  runOffline(0, "IMG_0001", config.data());
  EXPECT_EQ(tree(folder), (std::vector<std::string>{configName, statsName}));
  EXPECT_EQ(readFile(folder + configName), config);
  EXPECT_EQ(takeLog(), (LogLines{{3, "dump " + folder + statsName + " success"}}));

  writeFile(folder + statsName, "older");
  std::string later = pattern(144, 2);
  runOffline(0, "IMG_0001", later.data());
  EXPECT_EQ(readFile(folder + statsName), "older");
  EXPECT_EQ(readFile(folder + configName), config);
  ASSERT_EQ(unlink((folder + configName).c_str()), 0);
  runOffline(0, "IMG_0001", later.data());
  EXPECT_EQ(readFile(folder + configName), later);
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(OfflineStats, ReadbackOfOneFileDoesNotNeedTheOther) {
  const std::string live = config;
  const std::string saved = pattern(144, 3);
  const std::string read = "read fileName:" + kCamera + configName + " size(";
  const std::string size = ") is not equal to we need(144) or pData is NULL";
  const LogLine noStats = {6, "load " + kCamera + statsName + " failed"};
  writeFile(kCamera + configName, saved.substr(0, 143));
  runOffline(1, nullptr, config.data());
  EXPECT_EQ(config, live);
  writeFile(kCamera + configName, saved);
  runOffline(1, nullptr, nullptr);
  EXPECT_EQ(takeLog(),
            (LogLines{noStats, {6, read + "143" + size}, noStats, {6, read + "144" + size}}));
  runOffline(1, nullptr, config.data());
  EXPECT_EQ(config, saved);
  ASSERT_EQ(unlink((kCamera + configName).c_str()), 0);
  writeFile(kCamera + statsName, documentOf("numROIs='1'", {"5 "}));
  runOffline(1, nullptr, config.data());
  EXPECT_EQ(stats->regions[0].RSum, 5U);
  runOffline(2, nullptr, nullptr);
  EXPECT_EQ(
      takeLog(),
      (LogLines{noStats,
                {6, "readback " + kCamera + statsName + " success"},
                {6, "open file:" + kCamera + configName + " failed No such file or directory"}}));
}

TEST_F(OfflineStats, OnlyTheLastFolderOfTheNameIsMade) {
  setHeader(0, 1);
  runOffline(0, "a/b", config.data());
  const std::string folder = kCamera + "a/b";
  EXPECT_EQ(takeLog(),
            (LogLines{{6, "dirPath:" + folder + " create fail"},
                      {6, "dump " + folder + "/" + statsName +
                              " failed, Error: XML_ERROR_FILE_COULD_NOT_BE_OPENED"},
                      {6, "open file:" + folder + "/" + configName +
                              " failed; No such file or directory"},
                      {6, "write size(-1) is not equal to we need(144) ,may be somthing wrong"}}));
  EXPECT_EQ(tree(), std::vector<std::string>{"tmp/"});
}

}  // namespace
