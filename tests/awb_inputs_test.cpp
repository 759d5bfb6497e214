// The eight white-balance inputs: names, bytes, and what a readback may change.
#include <functional>

#include "tests/support/camera_data.h"

namespace {

using testing::KilledBySignal;

/// One binary record and the ways in which it differs from the others.
struct Input {
  const char* file;  ///< name after the prefix
  std::size_t size;
  std::function<void(SimulationInfo*, void*)> run;
  enum { kStaged, kDirect, kTuning } kind = kStaged;
  std::size_t liveHead = 0;
};

Simulation& sim() { return *SimulationMgr::getInstance(); }

constexpr unsigned int kRequest = 12;
constexpr unsigned int kCamera3 = 3;

const Input kInputs[] = {
    {"_FaceROI_camId[3].bin", 1784,
     [](SimulationInfo* info, void* data) {
       sim().SimulationForAWBFaceROI(info, data, kRequest, kCamera3);
     },
     Input::kStaged, 8},
    {"_ISPAWBBGStatsConfig_preview_camId[3].bin", 144,
     [](SimulationInfo* info, void* data) {
       sim().SimulationForAWBISPStatsConfig(info, data, kRequest, kCamera3, "preview");
     }},
    {"_TuningMode_camId[3].bin", 60,
     [](SimulationInfo* info, void* data) {
       sim().SimulationForAWBTuningMode(info, data, kRequest, kCamera3);
     },
     Input::kTuning},
    {"_ExtensionInfo_camId[3].bin", 28,
     [](SimulationInfo* info, void* data) {
       sim().SimulationForAWBExtensionInfo(info, static_cast<float*>(data), 7, kRequest, kCamera3);
     }},
    {"_AWBFrameControlData_camId[3].bin", 888,
     [](SimulationInfo* info, void* data) {
       sim().SimulationForAWBFrameControlData(info, data, kRequest, kCamera3);
     }},
    {"_inputColorData_camId[3].bin", 100,
     [](SimulationInfo* info, void* data) {
       sim().SimulationForAWBinputColorData(info, data, 100, kRequest, kCamera3);
     },
     Input::kDirect},
    {"_CVPTransformData_camId[3].bin", 77,
     [](SimulationInfo* info, void* data) {
       sim().SimulationForCVPTransformData(info, data, 77, kRequest, kCamera3);
     },
     Input::kDirect},
};

const std::string kDumpPrefix = kCamera + "tmp/RequestID[12]_camId[3]/simulation_AWB";
const std::string kReadPrefix = kCamera + "simulation_AWB";

void runInput(const Input& input, std::uint32_t mode, void* data) {
  SimulationInfo info = infoFor(mode);
  input.run(&info, data);
}

std::string stagedCount(const Input& input, std::size_t count) {
  return "read fileName:" + kReadPrefix + input.file + " size(" + std::to_string(count) +
         ") is not equal to we need(" + std::to_string(input.size) + ")" +
         (input.kind == Input::kDirect ? "" : " or pData is NULL");
}

/// The record in the live data, with the two words that tuning mode compares.
std::string liveRecord(const Input& input, unsigned int seed) {
  std::string record = pattern(input.size, seed);
  if (input.kind == Input::kTuning) {
    record.replace(16, 2, "\x05\x00", 2).replace(24, 4, "\x01\x02\x03\x04", 4);
  }
  return record;
}

void PrintTo(const Input& input, std::ostream* out) { *out << input.file; }

struct AwbInputs : CameraDataTest, testing::WithParamInterface<Input> {
  static const Input& input() { return GetParam(); }
};
INSTANTIATE_TEST_SUITE_P(Binary, AwbInputs, testing::ValuesIn(kInputs), [](const auto& row) {
  const std::string name = row.param.file;
  return name.substr(1, name.find('_', 1) - 1);
});

TEST_P(AwbInputs, DumpWritesTheBytesOverALongerFileAndNoMore) {
  std::string record = pattern(input().size, 1);
  runInput(input(), 0, record.data());
  EXPECT_EQ(tree(kCamera + "tmp/RequestID[12]_camId[3]/"),
            std::vector<std::string>{"simulation_AWB" + std::string(input().file)});
  EXPECT_EQ(readFile(kDumpPrefix + input().file), record);

  writeFile(kDumpPrefix + input().file, std::string(input().size, '#') + "older tail");
  runInput(input(), 0, record.data());
  EXPECT_EQ(readFile(kDumpPrefix + input().file), record + "older tail");
  EXPECT_EQ(record, pattern(input().size, 1));
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_P(AwbInputs, DumpThatCannotOpenLogsTwoLinesAfterTheFolders) {
  const ReadOnlyCameraData readOnly;
  std::string record = pattern(input().size, 1);
  runInput(input(), 0, record.data());
  const LogLines log = takeLog();
  ASSERT_EQ(log.size(), 4U);
  EXPECT_EQ(log[2], (LogLine{6, "open file:" + kDumpPrefix + input().file +
                                    " failed; No such file or directory"}));
  EXPECT_EQ(log[3], (LogLine{6, "write size(-1) is not equal to we need(" +
                                    std::to_string(input().size) + ") ,may be somthing wrong"}));
}

TEST_P(AwbInputs, ReadbackReplacesTheRecordFromALongerFile) {
  const std::string saved = liveRecord(input(), 2);
  std::string live = liveRecord(input(), 3);
  const std::string head = live.substr(0, input().liveHead);
  writeFile(kReadPrefix + input().file, saved + "excess");
  runInput(input(), 1, live.data());
  EXPECT_EQ(live, head + saved.substr(head.size()));
  EXPECT_EQ(takeLog(), input().kind == Input::kTuning ? (LogLines{{6, stagedCount(input(), 60)}})
                                                      : LogLines{});
}

TEST_P(AwbInputs, ShortFile) {
  const std::string part = liveRecord(input(), 2).substr(0, input().size - 1);
  const std::string live = liveRecord(input(), 3);
  std::string expected = live;
  if (input().kind == Input::kDirect) expected.replace(0, part.size(), part);
  if (input().kind == Input::kTuning) expected = part + '\0';
  writeFile(kReadPrefix + input().file, part);
  std::string replayed = live;
  runInput(input(), 1, replayed.data());
  EXPECT_EQ(replayed, expected);
  EXPECT_EQ(takeLog(), (LogLines{{6, stagedCount(input(), part.size())}}));
}

TEST_P(AwbInputs, MissingFileLogsTheOpenLineOnlyAndLeavesTheRecord) {
  std::string live = pattern(input().size, 3);
  if (input().kind == Input::kTuning) live[16] = live[17] = '\0';  // the other word differs
  const std::string before = live;
  runInput(input(), 1, live.data());
  EXPECT_EQ(live, before);
  EXPECT_EQ(takeLog(), (LogLines{{6, "open file:" + kReadPrefix + input().file +
                                         " failed No such file or directory"}}));
  EXPECT_EQ(tree(), std::vector<std::string>{});
}

TEST_P(AwbInputs, OtherModesDoNothing) {
  writeFile(kReadPrefix + input().file, pattern(input().size, 2));
  for (const std::uint32_t mode : {2U, 0xFFFFFFFFU}) runInput(input(), mode, nullptr);
  EXPECT_EQ(tree(), std::vector<std::string>{"simulation_AWB" + std::string(input().file)});
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_P(AwbInputs, NullRecordIsLoggedByStagedReadsAndByDumps) {
  if (input().kind == Input::kTuning) return;  // compares the record: it must be there
  writeFile(kReadPrefix + input().file, pattern(input().size, 2));
  runInput(input(), 1, nullptr);
  runInput(input(), 0, nullptr);
  const LogLines log = takeLog();
  ASSERT_EQ(log.size(), 2U);
  if (input().kind == Input::kStaged) {
    EXPECT_EQ(log[0].text, stagedCount(input(), input().size));
  }
  EXPECT_EQ(log[1].text, "write size(-1) is not equal to we need(" + std::to_string(input().size) +
                             ") ,may be somthing wrong");
}

using AwbInput = CameraDataTest;

TEST_F(AwbInput, TuningModeIsReplayedOnlyOntoItsOwnSensorMode) {
  const Input& tuning = kInputs[2];
  const LogLine count = {6, stagedCount(tuning, 60)};
  const struct {
    std::size_t offset;
    char saved, live;
    LogLines log;
  } cases[] = {
      {16, 3, 5, {count, {6, "different sensor mode for tuning mode readback:3 now:5"}}},
      {17, 3, 0, {count, {6, "different sensor mode for tuning mode readback:773 now:5"}}},
      {17, -1, 0, {count, {6, "different sensor mode for tuning mode readback:65285 now:5"}}},
      {27, 1, 2, {count}},
  };
  for (const auto& row : cases) {
    std::string saved = liveRecord(tuning, 2);
    std::string live = liveRecord(tuning, 3);
    saved[row.offset] = row.saved;
    live[row.offset] = row.live;
    const std::string before = live;
    writeFile(kReadPrefix + tuning.file, saved);
    runInput(tuning, 1, live.data());
    EXPECT_EQ(live, before) << row.offset;
    EXPECT_EQ(takeLog(), row.log);
  }
}

TEST_F(AwbInput, MissingTuningModeIsAllZerosForALiveModeOfZeros) {
  std::string live = pattern(60, 3).replace(16, 2, 2, '\0').replace(24, 4, 4, '\0');
  runInput(kInputs[2], 1, live.data());
  EXPECT_EQ(live, std::string(60, '\0'));
}

TEST_F(AwbInput, ExtensionInfoCounts) {
  float value = 1.5F;
  const auto run = [&](std::uint32_t mode, int count) {
    SimulationInfo info = infoFor(mode);
    simulation.SimulationForAWBExtensionInfo(&info, &value, count, kRequest, kCamera3);
  };
  run(0, 0);
  EXPECT_EQ(readFile(kDumpPrefix + "_ExtensionInfo_camId[3].bin"), "");
  writeFile(kReadPrefix + "_ExtensionInfo_camId[3].bin", "file");
  run(1, 0);
  EXPECT_EQ(value, 1.5F);
  run(2, -1);
  EXPECT_EQ(takeLog(), LogLines{});
  EXPECT_EXIT(run(0, -1), KilledBySignal(SIGABRT), "");
  EXPECT_EXIT(run(1, -1), KilledBySignal(SIGABRT), "");
}

TEST_F(AwbInput, LongTextCutsTheNameOfTheFile) {
  SimulationInfo info = infoFor(0);
  std::string record(144, 'x');
  const std::string text(200, 't');
  simulation.SimulationForAWBISPStatsConfig(&info, record.data(), kRequest, kCamera3, text.c_str());
  EXPECT_EQ(readFile((kDumpPrefix + "_ISPAWBBGStatsConfig_" + text).substr(0, 127)), record);
}

struct ExtExposure : CameraDataTest {
  void run(std::uint32_t mode, unsigned int request = kRequest) {
    SimulationInfo info = infoFor(mode);
    simulation.SimulationForAWBExtExposure(&info, values, request, kCamera3);
  }
  float values[6] = {1.0F, 0.1F, 123456.789F, -2.5e-8F, 16777216.0F, 0.0F};
  const std::string dumped = kDumpPrefix + "_ExtExposure_camId[3].xml";
  const std::string replayed = kReadPrefix + "_ExtExposure_camId[3].xml";
};

TEST_F(ExtExposure, DocumentAsAWhole) {
  run(0);
  writeFile(dumped, std::string(1000, '#'));  // an older, longer file
  takeLog();
  run(0);
  EXPECT_EQ(readFile(dumped),
            "<ExtExposure>\n"
            "    <safeSensitivity>1</safeSensitivity>\n"
            "    <longSensitivity>0.1</longSensitivity>\n"
            "    <shortSensitivity>123456.79</shortSensitivity>\n"
            "    <frameLuma>-2.5e-08</frameLuma>\n"
            "    <ADRCGain>16777216</ADRCGain>\n"
            "    <brightnessValue>0</brightnessValue>\n"
            "</ExtExposure>\n");
  EXPECT_EQ(takeLog(), (LogLines{{2, "dump " + dumped + " success"}}));
}

TEST_F(ExtExposure, ReadsWhatIsThereUnderAnyRoot) {
  writeFile(
      replayed,
      "<?xml version=\"1.0\"?><!-- edited --><other><frameLuma>4.5x</frameLuma>"
      "<safeSensitivity>none</safeSensitivity><shortSensitivity/>"
      "<longSensitivity> &#55;</longSensitivity><longSensitivity>8</longSensitivity></other>");
  run(1);
  const float expected[6] = {1.0F, 7.0F, 123456.789F, 4.5F, 16777216.0F, 0.0F};
  EXPECT_TRUE(std::equal(values, values + 6, expected));
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(ExtExposure, FirstTenRequestsAreIgnored) {
  run(0, 9);
  run(1, 9);
  run(2);
  EXPECT_EQ(tree(), std::vector<std::string>{});
  EXPECT_EQ(takeLog(), LogLines{});
  run(0, 10);
  EXPECT_EQ(tree().size(), 3U);
  writeFile(replayed, "<a><frameLuma>2</frameLuma></a>");
  run(1, 10);
  EXPECT_EQ(values[3], 2.0F);
}

TEST_F(ExtExposure, FailuresAreLoggedAndLeaveTheValues) {
  run(1);
  writeFile(replayed, "<a><safeSensitivity>3</safeSensitivity></b>");
  run(1);
  EXPECT_EQ(takeLog(), (LogLines{{6, "dump " + replayed + " fail error:3"},
                                 {6, "dump " + replayed + " fail error:14"}}));
  EXPECT_EQ(values[0], 1.0F);

  char prefix[128];
  simulation.getFilesPath(0, FileType::AWB, prefix, kRequest, kCamera3);
  ASSERT_EQ(symlink("/dev/full", dumped.c_str()), 0);  // opens, but takes no byte
  run(0);
  EXPECT_EQ(takeLog(), (LogLines{{6, "dump " + dumped + " fail"}}));
  const ReadOnlyCameraData readOnly;
  remove(dumped.c_str());
  run(0, 11);
  EXPECT_EQ(takeLog().back().text.find("dump " + kCamera + "tmp/RequestID[11]_camId[3]/"), 0U);
}

}  // namespace
