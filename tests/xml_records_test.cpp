// What the XML records share: their documents as a whole (tests/golden), there
// and back, and what a failure logs and leaves live.
#include <simulation/records.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "core/bytes.h"
#include "tests/support/camera_data.h"
#include "tests/support/camx_memory.h"
#include "tests/support/comma_locale.h"

namespace {

using simulation::store;

constexpr char kReadFailed[] = "read %s fail error:%d";
constexpr char kDumpFailed[] = "dump %s fail error:%d";
constexpr char kLoadFailed[] = "load %s failed";
constexpr char kNotCreated[] = "create XMLDocument %s failed";
constexpr char kNotDumped[] = "dump %s failed, Error: XML_ERROR_FILE_READ_ERROR";

/// One record and the ways in which it differs from the others.
struct Record {
  const char* golden;
  Operation run;
  std::string file;      ///< name after "simulation_"
  std::string live;      ///< a record before a readback
  void (*fill)(char*);   ///< the values of the document
  int level;             ///< of the line that tells a dump's success
  const char* notReads;  ///< format of the line about a file that can't be loaded
  const char* notDumps = kNotDumped;
  void (*replay)(char*) = nullptr;  ///< the values that come back when not all do
  const char* notCreates = "";      ///< format of the line without memory; null: needs none
  bool tellsReadback = false;
};

/// A record that a readback has not touched.
template <typename Type>
std::string liveOf() {
  return std::string(sizeof(Type), 'U');
}

void fillAec(char* record) {
  using Layout = AECOutputLayout;
  store(record, Layout::luxIndex, 250.5F);
  store(record, Layout::digitalGain, 1.0000001F);
  const AECExposure exposures[] = {
      {~0ULL, 1.5F, 123456.789F, {}}, {33000000, 2.5F, 4294967296.0F, {}}, {0, -3.5F, 0.0F, {}}};
  for (std::size_t i = 0; i < 3; ++i) {
    std::memcpy(record + Layout::exposures + 32 * i, &exposures[i], 16);
  }
  store(record, Layout::drcGain, 0.1F);
  store(record, Layout::drcGainDark, 2.5e-8F);
}

const SpectralSensorInfo kSpectral = {
    1,  5012.5F, 123456.789F, 0.1F,        0.2F,  0.3F, {0, 1.5F, 1.0F / 3, 1234567.0F},
    20, 0.3127F, 0.329F,         4294967295U, 50.5F, -100, -2147483647 - 1,
    7};

/// What does not come back: the channels' digits past six, channelNum, 50.5.
void replaySpectral(char* record) {
  SpectralSensorInfo replayed = kSpectral;
  replayed.channelDatas[2] = 0.333333F;
  replayed.channelDatas[3] = 1.23457e+06F;
  replayed.channelNum = 0x55555555;
  replayed.flickerFrequency = 50;
  store(record, 0, replayed);
}

constexpr auto kInstances = offsetof(QSegImageInfo, qsegInstInfos);

/// All bytes that are recorded; request ids are below 2^63.
void fillQSeg(char* record) {
  const std::string bytes = pattern(sizeof(QSegImageInfo), 3);
  const auto copy = [&](std::size_t begin, std::size_t end) {
    std::copy(&bytes[begin], &bytes[end], record + begin);
  };
  copy(0, offsetof(QSegImageInfo, notRecorded));
  record[7] &= '\x7F';
  copy(offsetof(QSegImageInfo, isQSegInfoValid), kInstances);
  for (std::size_t at = kInstances; at < offsetof(QSegImageInfo, qsegInstCount); at += 88) {
    copy(at, at + 86);
    record[at + 7] &= '\x7F';
  }
  copy(offsetof(QSegImageInfo, qsegInstCount), sizeof(QSegImageInfo));
  store(record, offsetof(QSegImageInfo, qsegSceneClassConf), 0.1F);
}

void fillRegions(char* record) {
  const BGRegionStats regions[] = {{~0ULL, 0, 0, 0, 0, 0, 0, 0, 0, 0},
                                   {~0ULL - 1, 2, 3, 4, 1ULL << 40, 7919, 7, 8, 9, 10}};
  std::fill_n(record + 40, sizeof regions, '\0');
  for (std::size_t i = 0; i < 2; ++i) std::memcpy(record + 40 + 56 * i, &regions[i], 50);
}
void fillStats(char* record) {
  const struct {
    std::uint32_t words[8];
    float stretch;
  } header = {{0xFFFFFFFD, 2, 72, 54, 10, 20, 30, 4294967295U}, 1.1F};
  store(record, 0, header);
  fillRegions(record);
}

void fillGains(char* record) {
  for (std::size_t i = 0; i < 884; ++i) store(record, 4 * i, static_cast<float>(i) / 64 - 1);
}

const Record kRecords[] = {
    {"WideAlwaysOnStatus", call<&Simulation::SimulationForZOAWBWideAlwaysOnStatus>,
     "ZOAWB_WideAlwaysOnStatus_camId[3].xml", liveOf<ZOAWBWideAlwaysOnStatus>(),
     [](char* record) { store(record, 0, -2147483647 - 1); }, 2, kReadFailed},
    {"SyncInfo", call<&Simulation::SimulationForZOAWBSyncInfo>, "ZOAWB_SyncInfo_camId[3].xml",
     liveOf<ZOAWBSyncInfo>(), [](char* record) { store(record, 0, 3); }, 2, kReadFailed},
    {"PureColorRes", call<&Simulation::SimulationForZOAWBPureColorRes>,
     "ZOAWB_PureColorRes_camId[3].xml", liveOf<ZOAWBPureColorRes>(),
     [](char* record) {
       store(record, 0, ZOAWBPureColorRes{1, 0.1F, -2.5e-8F});
     },
     2, kReadFailed},
    {"LightSrcClassify", call<&Simulation::SimulationForZOAWBLightSrcClassify>,
     "ZOAWB_LightSrcClassify_camId[3].xml", liveOf<ZOAWBLightSrcClassify>(),
     [](char* record) {
       store(record, 0, ZOAWBLightSrcClassify{-1, 0.5F, 0.25F, 5012.5F, 123456.789F, 1, 7});
     },
     2, kReadFailed},
    {"OTPData", call<&Simulation::SimulationForOTPCalibrationFactor>, "AWB_OTPData_camId[3].xml",
     std::string("\1\0\0\0", 4) + liveOf<WBOTPCalibrationEntry>(),
     [](char* record) { (store(record, 12, 0.5F), store(record, 16, 0.75F)); }, 2, kDumpFailed},
    {"SpectralSensorInfo", call<&Simulation::SimulationForZoAWBSpectralSensorInfo>,
     "ZOAWB_SpectralSensorInfo.xml", liveOf<SpectralSensorInfo>(),
     [](char* record) { store(record, 0, kSpectral); }, 2, "read %s fail ", "dump %s failed",
     replaySpectral},
    {"QsegImageData", call<&Simulation::SimulationForQsegImageData>,
     "AWB_QsegImageData_camId[3].xml", liveOf<QSegImageInfo>(), fillQSeg, 3, kLoadFailed,
     kNotDumped, nullptr, kNotCreated, true},
    {"ExtExposure", call<&Simulation::SimulationForAWBExtExposure>, "AWB_ExtExposure_camId[3].xml",
     liveOf<float[6]>(),
     [](char* record) {
       const float values[] = {1.0F, 0.1F, 123456.789F, -2.5e-8F, 16777216.0F, 0.0F};
       std::memcpy(record, values, sizeof values);
     },
     2, kDumpFailed, "dump %s fail", nullptr, nullptr},
    {"AWBAECData", call<&Simulation::SimulationForAWBAECData>, "AWB_AECData_camId[3].xml",
     liveOf<AWBExposureInfo>(),
     [](char* record) {
       store(record, 0, AWBExposureInfo{250.5F, -1, 33333333, {1, 1.0F / 3, 1e-5F, -2.5e6F}});
     },
     2, kLoadFailed, kNotDumped,
     [](char* record) {  // one byte of AECSettled
       store(record, 0,
             AWBExposureInfo{250.5F, 0x55555501, 33333333, {1, 0.333333F, 1e-5F, -2.5e6F}});
     }},
    {"AECData",
     [](SimulationInfo* info, void* data) {
       std::uint32_t step = 4294967295U;
       sim().SimulationForAECData(info, data, kRequest, kCamId, &step);
     },
     "AE_AECData_camId[3]_ev[-1].xml", std::string(2048, 'U'), fillAec, 6,
     "[%s] read xml root failed", kNotDumped, nullptr, kNotCreated, true},
    {"ParsedAWBStatsOutput",
     [](SimulationInfo* info, void* data) {
       sim().SimulationForAWBParsedStatsOutput(info, data, kRequest, kCamId, "preview");
     },
     "AWB_ParsedAWBStatsOutput_preview_camId[3].xml", liveOf<BayerGridOutput>(), fillStats, 3,
     kLoadFailed, kNotDumped, fillRegions, "create XMLDocument failed", true},
    {"LSC",
     [](SimulationInfo* info, void* data) {
       Simulation::m_LscIndex.clear();
       sim().simulationForLscMeta(info, data, static_cast<float*>(data), 9, "cam", -2);
     },
     "LSC[cam]_index[0]_ev[-2].xml", liveOf<LscTable>(), fillGains, 6, kLoadFailed, kNotDumped,
     nullptr, nullptr},
    {"Orientation", call<&Simulation::SimulationForACBdeviceOri>,
     "ACB_acb_orientation_camId[3].xml", liveOf<AcbDeviceOrientation>(),
     [](char* record) { store(record, 4, -90); }, 2, kDumpFailed, "dump %s fail", nullptr, nullptr},
};

void PrintTo(const Record& record, std::ostream* out) { *out << record.golden; }

LogLine logged(const char* format, const std::string& path, int error = 0) {
  char text[256];
  std::snprintf(text, sizeof text, format, path.c_str(), error);
  return {6, text};
}

/// The golden document; the label map stands in it as one word.
std::string documentOf(const Record& row) {
  std::string text = golden(row.golden);
  const std::size_t at = text.find("LABELS");
  if (at == std::string::npos) return text;
  std::string labels;
  for (const char label : pattern(sizeof(QSegImageInfo), 3).substr(24, QSegImageInfo::kStatsSize)) {
    labels += std::to_string(static_cast<unsigned char>(label)) + ' ';
  }
  return text.replace(at, 6, labels);
}

std::string filled(std::string record, void (*fill)(char*)) {
  fill(record.data());
  return record;
}

struct XmlRecords : CameraDataTest, testing::WithParamInterface<Record> {
  static LogLines run(const Record& record, std::uint32_t mode, std::string& data) {
    SimulationInfo info = infoFor(mode);
    record.run(&info, data.data());
    return takeLog();
  }
  static std::string dumpedFile(const Record& record) {
    const bool named = record.file[0] == 'L' || record.file.find("ACB") == 0;
    return kCamera + (named ? kImageFolder : kTmpFolder) + "simulation_" + record.file;
  }
  static void expectThereAndBack(const Record& row) {
    const std::string dumped = dumpedFile(row);
    const std::string replayed = kCamera + "simulation_" + row.file;
    const std::string document = documentOf(row);
    const std::string before = filled(row.live, row.fill);
    std::string record = before;
    EXPECT_EQ(run(row, 0, record), (LogLines{{row.level, "dump " + dumped + " success"}}));
    EXPECT_TRUE(readFile(dumped) == document) << readFile(dumped).substr(0, 10000);
    EXPECT_TRUE(record == before);
    writeFile(replayed, document);
    record = row.live;
    EXPECT_EQ(run(row, 1, record),
              row.tellsReadback ? LogLines{logged("readback %s success", replayed)} : LogLines{});
    EXPECT_TRUE(record == filled(row.live, row.replay != nullptr ? row.replay : row.fill));
  }
};
INSTANTIATE_TEST_SUITE_P(All, XmlRecords, testing::ValuesIn(kRecords),
                         [](const auto& row) { return row.param.golden; });

TEST_P(XmlRecords, DocumentAsAWholeThereAndBack) { expectThereAndBack(GetParam()); }

TEST_P(XmlRecords, FailuresAreLoggedAndLeaveTheRecord) {
  const Record& row = GetParam();
  const std::string dumped = dumpedFile(row);
  const std::string replayed = kCamera + "simulation_" + row.file;
  const std::string document = documentOf(row);
  std::string record = row.live;
  EXPECT_EQ(run(row, 1, record), LogLines{logged(row.notReads, replayed, 3)});
  EXPECT_EQ(tree(), Names{});  // a readback makes no folder
  writeFile(replayed, document.substr(0, document.rfind('<')));
  EXPECT_EQ(run(row, 1, record), LogLines{logged(row.notReads, replayed, 15)});
  writeFile(replayed, document);
  EXPECT_EQ(run(row, 2, record), LogLines{});
  EXPECT_EQ(tree(), Names{"simulation_" + row.file});
  if (row.notCreates != nullptr) {
    const NoMemory noMemory(NoMemory::kObjects);
    const LogLine line = logged(row.notCreates, replayed);
    EXPECT_EQ(run(row, 1, record), line.text.empty() ? LogLines{} : LogLines{line});
  }
  EXPECT_TRUE(record == row.live);

  run(row, 0, record = filled(row.live, row.fill));
  remove(dumped.c_str());
  ASSERT_EQ(symlink("/dev/full", dumped.c_str()), 0);  // opens, but takes no byte
  EXPECT_EQ(run(row, 0, record), LogLines{logged(row.notDumps, dumped)});
}

using AllXmlRecords = CameraDataTest;
TEST_F(AllXmlRecords, CommaOfTheProcessDoesNotMatter) {
  const CommaLocale comma;
  for (const Record& row : kRecords) XmlRecords::expectThereAndBack(row);
}

}  // namespace
