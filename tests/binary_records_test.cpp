// What the byte-for-byte records share: names, bytes, and what a readback may change.
#include <simulation/records.h>

#include <optional>

#include "tests/support/camera_data.h"

namespace {

enum Kind { kStaged, kDirect, kTuning, kOffline };

/// One record and the ways in which it differs from the others.
struct Record {
  const char* file;  ///< name after "simulation_"
  Operation run;
  std::size_t size;
  Kind kind = kStaged;
  std::size_t liveHead = 0;
  bool firstDumpWins = false;
};

const Record kRecords[] = {
    {"AWB_FaceROI_camId[3].bin", call<&Simulation::SimulationForAWBFaceROI>, 1784, kStaged, 8},
    {"AWB_ISPAWBBGStatsConfig_preview_camId[3].bin",
     [](SimulationInfo* info, void* data) {
       sim().SimulationForAWBISPStatsConfig(info, data, kRequest, kCamId, "preview");
     },
     144},
    {"AWB_TuningMode_camId[3].bin", call<&Simulation::SimulationForAWBTuningMode>, 60, kTuning},
    {"AWB_ExtensionInfo_camId[3].bin",
     [](SimulationInfo* info, void* data) {
       sim().SimulationForAWBExtensionInfo(info, static_cast<float*>(data), 7, kRequest, kCamId);
     },
     28},
    {"AWB_AWBFrameControlData_camId[3].bin", call<&Simulation::SimulationForAWBFrameControlData>,
     888},
    {"AWB_inputColorData_camId[3].bin",
     [](SimulationInfo* info, void* data) {
       sim().SimulationForAWBinputColorData(info, data, 100, kRequest, kCamId);
     },
     100, kDirect},
    {"AWB_CVPTransformData_camId[3].bin",
     [](SimulationInfo* info, void* data) {
       sim().SimulationForCVPTransformData(info, data, 77, kRequest, kCamId);
     },
     77, kDirect},
    {"ZOAWB_FaceDectionInfo_camId[3].bin", call<&Simulation::SimulationForZOAWBFaceDectionInfo>,
     964},
    {"ZOAWB_FaceColorDectionInfo_camId[3].bin",
     call<&Simulation::SimulationForZOAWBFaceColorDectionInfo>, 204},
    {"FACE_FaceROI_camId[3].bin", call<&Simulation::SimulationForFDROIData>, kFdRoiSize, kStaged, 8,
     true},
    {"OfflineAWB_ISPAWBBGStatsConfig_camId[3].bin",
     [](SimulationInfo* info, void* data) {
       sim().SimulationForOfflineAWBBGStats(info, nullptr, data, kRequest, kCamId);
     },
     144, kOffline, 0, true},
};

void PrintTo(const Record& record, std::ostream* out) { *out << record.file; }

struct BinaryRecords : CameraDataTest, testing::WithParamInterface<Record> {
  LogLines run(std::uint32_t mode, void* data) {
    SimulationInfo info = infoFor(mode);
    row.run(&info, data);
    LogLines log = takeLog();
    // The first line is about the statistics.
    if (row.kind == kOffline && mode < 2) log.erase(log.begin());
    return log;
  }
  LogLine counted(std::size_t count) const {
    return {6, "read fileName:" + replayed + " size(" + std::to_string(count) +
                   ") is not equal to we need(" + std::to_string(row.size) + ")" +
                   (row.kind == kDirect ? "" : " or pData is NULL")};
  }
  /// A record with the two words that tuning mode compares.
  std::string bytes(unsigned int seed) const {
    std::string record = pattern(row.size, seed);
    if (row.kind == kTuning) record.replace(16, 2, "\x05\x00", 2).replace(24, 4, "mode");
    return record;
  }

  const Record& row = GetParam();
  const std::string name = std::string("simulation_") + row.file;
  const std::string folder = kCamera + (row.kind == kOffline ? kImageFolder : kTmpFolder);
  const std::string dumped = folder + name;
  const std::string replayed = kCamera + name;
  const LogLine notWritten = {6, "write size(-1) is not equal to we need(" +
                                     std::to_string(row.size) + ") ,may be somthing wrong"};
};
INSTANTIATE_TEST_SUITE_P(All, BinaryRecords, testing::ValuesIn(kRecords), [](const auto& row) {
  const std::string name = row.param.file;
  const std::size_t family = name.find('_');
  return name.substr(0, family) + name.substr(family + 1, name.find('_', family + 1) - family - 1);
});

TEST_P(BinaryRecords, DumpWritesTheBytesAndKeepsTheTailOrTheFirstDump) {
  std::string record = bytes(1);
  EXPECT_EQ(run(0, record.data()), LogLines{});
  EXPECT_EQ(tree(folder), Names{name});
  EXPECT_EQ(readFile(dumped), record);
  writeFile(dumped, std::string(row.size, '#') + "older tail");
  EXPECT_EQ(run(0, record.data()), LogLines{});
  EXPECT_EQ(readFile(dumped),
            (row.firstDumpWins ? std::string(row.size, '#') : record) + "older tail");
  EXPECT_EQ(record, bytes(1));
}

TEST_P(BinaryRecords, DumpThatCannotOpenLogsTwoLinesAfterTheFolders) {
  const ReadOnlyCameraData readOnly;
  const LogLines log = run(0, bytes(1).data());
  const LogLine open = {6, "open file:" + dumped + " failed; No such file or directory"};
  EXPECT_EQ(LogLines(log.end() - 2, log.end()), (LogLines{open, notWritten}));
}

TEST_P(BinaryRecords, ReadbackTakesAWholeFileAndWhatItsKindTakesOfAShortOne) {
  const std::string live = bytes(3);
  const std::string whole = live.substr(0, row.liveHead) + bytes(2).substr(row.liveHead);
  const std::string part = bytes(2).substr(0, row.size - 1);
  const bool tuning = row.kind == kTuning;
  LogLines missing = {{6, "open file:" + replayed + " failed No such file or directory"}};
  if (tuning) missing.push_back({6, "different sensor mode for tuning mode readback:0 now:5"});
  const struct {
    std::optional<std::string> file;
    std::string record;
    LogLines log;
  } cases[] = {
      {std::nullopt, live, missing},
      {bytes(2) + "excess", whole, tuning ? LogLines{counted(row.size)} : LogLines{}},
      {part,
       row.kind == kDirect ? part + live.back()
       : tuning            ? part + '\0'
                           : live,
       {counted(row.size - 1)}},
  };
  for (const auto& [file, expected, log] : cases) {
    if (file) writeFile(replayed, *file);
    std::string record = live;
    EXPECT_EQ(run(1, record.data()), log);
    EXPECT_EQ(record, expected);
    EXPECT_EQ(tree(), file ? Names{name} : Names{});
  }
}

TEST_P(BinaryRecords, OtherModesDoNothing) {
  writeFile(replayed, bytes(2));
  for (const std::uint32_t mode : {2U, 0xFFFFFFFFU}) EXPECT_EQ(run(mode, nullptr), LogLines{});
  EXPECT_EQ(tree(), Names{name});
}

TEST_P(BinaryRecords, NullRecordIsLoggedByStagedReadsAndByDumps) {
  if (row.kind == kTuning) return;  // compares the record: it must be there
  writeFile(replayed, bytes(2));
  const LogLines read = run(1, nullptr);
  if (row.kind != kDirect) {
    EXPECT_EQ(read, LogLines{counted(row.size)});
  }
  EXPECT_EQ(run(0, nullptr), LogLines{notWritten});
}

}  // namespace
