// What the XML records share: their documents as a whole (tests/golden), there
// and back, and what a failure logs and leaves live.
#include <simulation/records.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "core/bytes.h"
#include "tests/support/camera_data.h"
#include "tests/support/camx_memory.h"
#include "tests/support/comma_locale.h"

namespace {

using simulation::load;
using simulation::store;

constexpr char kReadFailed[] = "read %s fail error:%d";
constexpr char kDumpFailed[] = "dump %s fail error:%d";
constexpr char kLoadFailed[] = "load %s failed";
constexpr char kNotCreated[] = "create XMLDocument %s failed";
constexpr char kNotDumped[] = "dump %s failed, Error: XML_ERROR_FILE_READ_ERROR";

/// One record and the ways in which it differs from the others.
struct Record {
  const char* golden;  ///< its files in tests/golden
  std::string file;    ///< name after "simulation_"
  std::size_t size;
  int level;  ///< of the line that tells a dump's success
  Operation run;
  const char* notReads;  ///< format of the line about a file that can't be loaded
  const char* notDumps = kNotDumped;
  const char* notCreates = "";  ///< format of the line without memory; null: needs none
  bool tellsReadback = false;
};

const Record kRecords[] = {
    {"WideAlwaysOnStatus", "ZOAWB_WideAlwaysOnStatus_camId[3].xml", sizeof(ZOAWBWideAlwaysOnStatus),
     2, call<&Simulation::SimulationForZOAWBWideAlwaysOnStatus>, kReadFailed},
    {"SyncInfo", "ZOAWB_SyncInfo_camId[3].xml", sizeof(ZOAWBSyncInfo), 2,
     call<&Simulation::SimulationForZOAWBSyncInfo>, kReadFailed},
    {"PureColorRes", "ZOAWB_PureColorRes_camId[3].xml", sizeof(ZOAWBPureColorRes), 2,
     call<&Simulation::SimulationForZOAWBPureColorRes>, kReadFailed},
    {"LightSrcClassify", "ZOAWB_LightSrcClassify_camId[3].xml", sizeof(ZOAWBLightSrcClassify), 2,
     call<&Simulation::SimulationForZOAWBLightSrcClassify>, kReadFailed},
    {"OTPData", "AWB_OTPData_camId[3].xml", 4 + sizeof(WBOTPCalibrationEntry), 2,
     [](SimulationInfo* info, void* data) {
       const auto live = load<std::uint32_t>(data);
       store(data, 0, 1U);  // one entry
       call<&Simulation::SimulationForOTPCalibrationFactor>(info, data);
       store(data, 0, live);
     },
     kDumpFailed},
    {"SpectralSensorInfo", "ZOAWB_SpectralSensorInfo.xml", sizeof(SpectralSensorInfo), 2,
     call<&Simulation::SimulationForZoAWBSpectralSensorInfo>, "read %s fail ", "dump %s failed"},
    {"QsegImageData", "AWB_QsegImageData_camId[3].xml", sizeof(QSegImageInfo), 3,
     call<&Simulation::SimulationForQsegImageData>, kLoadFailed, kNotDumped, kNotCreated, true},
    {"ExtExposure", "AWB_ExtExposure_camId[3].xml", 24, 2,
     call<&Simulation::SimulationForAWBExtExposure>, kDumpFailed, "dump %s fail", nullptr},
    {"AWBAECData", "AWB_AECData_camId[3].xml", sizeof(AWBExposureInfo), 2,
     call<&Simulation::SimulationForAWBAECData>, kLoadFailed},
    {"AECData", "AE_AECData_camId[3]_ev[-1].xml", 2048, 6,
     [](SimulationInfo* info, void* data) {
       std::uint32_t step = 4294967295U;
       sim().SimulationForAECData(info, data, kRequest, kCamId, &step);
     },
     "[%s] read xml root failed", kNotDumped, kNotCreated, true},
    {"ParsedAWBStatsOutput", "AWB_ParsedAWBStatsOutput_preview_camId[3].xml",
     sizeof(BayerGridOutput), 3,
     [](SimulationInfo* info, void* data) {
       sim().SimulationForAWBParsedStatsOutput(info, data, kRequest, kCamId, "preview");
     },
     kLoadFailed, kNotDumped, "create XMLDocument failed", true},
    {"LSC", "LSC[cam]_index[0]_ev[-2].xml", sizeof(LscTable), 6,
     [](SimulationInfo* info, void* data) {
       Simulation::m_LscIndex.clear();
       sim().simulationForLscMeta(info, data, static_cast<float*>(data), 9, "cam", -2);
     },
     kLoadFailed, kNotDumped, nullptr},
    {"Orientation", "ACB_acb_orientation_camId[3].xml", sizeof(AcbDeviceOrientation), 2,
     call<&Simulation::SimulationForACBdeviceOri>, kDumpFailed, "dump %s fail", nullptr},
};

void PrintTo(const Record& record, std::ostream* out) { *out << record.golden; }

LogLine logged(const char* format, const std::string& path, int error = 0) {
  char text[256];
  std::snprintf(text, sizeof text, format, path.c_str(), error);
  return {6, text};
}

const std::string kLabels = pattern(QSegImageInfo::kStatsSize, 3);

/// The golden document; the label map stands in it as one word.
std::string documentOf(const Record& row) {
  std::string text = golden(row.golden + std::string(".xml"));
  const std::size_t at = text.find("LABELS");
  if (at == std::string::npos) return text;
  std::string labels;
  for (const char label : kLabels) {
    labels += std::to_string(static_cast<unsigned char>(label)) + ' ';
  }
  return text.replace(at, 6, labels);
}

template <typename Value>
void storeText(std::string& record, std::size_t offset, std::istringstream& text) {
  Value value{};
  text >> value;
  store(record.data(), offset, value);
}

std::string liveOf(const Record& row) { return std::string(row.size, 'U'); }

/// The live record with the values of a .values file: lines of offset, type,
/// value and, where another one comes back ("-": none), that one.
std::string filled(const Record& row, bool readBack) {
  std::string record = liveOf(row);
  std::istringstream lines(golden(row.golden + std::string(".values")));
  std::size_t offset;
  char type;
  for (std::string line, value, other; std::getline(lines, line); other.clear()) {
    std::istringstream(line) >> offset >> type >> value >> other;
    std::istringstream text(readBack && !other.empty() ? other : value);
    text.imbue(std::locale::classic());
    if (text.str() == "-") continue;
    if (type == 'f') storeText<float>(record, offset, text);
    if (type == 'i') storeText<std::int32_t>(record, offset, text);
    if (type == 'I') storeText<std::uint32_t>(record, offset, text);
    if (type == 'H') storeText<std::uint16_t>(record, offset, text);
    if (type == 'Q') storeText<std::uint64_t>(record, offset, text);
    if (type == 'L') record.replace(offset, kLabels.size(), kLabels);
  }
  return record;
}

struct XmlRecords : CameraDataTest, testing::WithParamInterface<Record> {
  ~XmlRecords() override { takeUnreleasedBlocks(); }  // statistics keep one on purpose

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
    const std::string before = filled(row, false);
    std::string record = before;
    EXPECT_EQ(run(row, 0, record), (LogLines{{row.level, "dump " + dumped + " success"}}));
    EXPECT_TRUE(readFile(dumped) == document) << readFile(dumped).substr(0, 10000);
    EXPECT_TRUE(record == before);
    writeFile(replayed, document);
    record = liveOf(row);
    EXPECT_EQ(run(row, 1, record),
              row.tellsReadback ? LogLines{logged("readback %s success", replayed)} : LogLines{});
    EXPECT_TRUE(record == filled(row, true));
  }
};
INSTANTIATE_TEST_SUITE_P(All, XmlRecords, testing::ValuesIn(kRecords),
                         [](const auto& row) { return row.param.golden; });

TEST_P(XmlRecords, DocumentAsAWholeThereAndBack) {
  expectThereAndBack(GetParam());
  // Another reader of XML takes it, too, where the machine has one.
  const std::string check = "! command -v xmllint >/dev/null || xmllint --noout '";
  EXPECT_EQ(std::system((check + dumpedFile(GetParam()) + "'").c_str()), 0);
}

TEST_P(XmlRecords, FailuresAreLoggedAndLeaveTheRecord) {
  const Record& row = GetParam();
  const std::string dumped = dumpedFile(row);
  const std::string replayed = kCamera + "simulation_" + row.file;
  const std::string document = documentOf(row);
  std::string record = liveOf(row);
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
  EXPECT_TRUE(record == liveOf(row));

  run(row, 0, record = filled(row, false));
  remove(dumped.c_str());
  ASSERT_EQ(symlink("/dev/full", dumped.c_str()), 0);  // opens, but takes no byte
  EXPECT_EQ(run(row, 0, record), LogLines{logged(row.notDumps, dumped)});
}

/// What a readback of `document` over the golden record throws, logs and changes
/// in the next dump, a line each.
std::string outcomeOf(const Record& row, const std::string& document) {
  std::ostringstream outcome;
  const std::string path = kCamera + "simulation_" + row.file;
  std::string record = filled(row, false);
  writeFile(path, document);
  LogLines log;
  try {
    log = XmlRecords::run(row, 1, record);
  } catch (const std::invalid_argument&) {
    outcome << "= invalid_argument\n";
  } catch (const std::out_of_range&) {
    outcome << "= out_of_range\n";
  }
  for (LogLine line : log) {
    const std::size_t at = line.text.find(path);
    outcome << "= "
            << (at == std::string::npos ? line.text : line.text.replace(at, path.size(), "FILE"))
            << '\n';
  }
  XmlRecords::run(row, 0, record);
  std::istringstream before(documentOf(row)), after(readFile(XmlRecords::dumpedFile(row)));
  for (std::string was, is; std::getline(before, was) && std::getline(after, is);) {
    if (was != is) outcome << "= " << is.substr(0, 90) << '\n';
  }
  return outcome.str();
}

/// A .cases file has documents, each followed by its outcome and an empty line.
TEST_P(XmlRecords, OddDocuments) {
  const Record& row = GetParam();
  std::istringstream file(golden(row.golden + std::string(".cases")));
  std::string document, expected;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty()) {
      (line[0] == '=' ? expected : document) += line + '\n';
      continue;
    }
    if (expected == "= aborts\n") {
      EXPECT_EXIT(outcomeOf(row, document), testing::KilledBySignal(SIGABRT), "") << document;
    } else {
      EXPECT_EQ(outcomeOf(row, document), expected) << document;
    }
    document = expected = "";
  }
  EXPECT_EQ(document, "") << "the last case has no end";
}

using AllXmlRecords = CameraDataTest;
TEST_F(AllXmlRecords, CommaOfTheProcessDoesNotMatter) {
  const CommaLocale comma;
  for (const Record& row : kRecords) XmlRecords::expectThereAndBack(row);
}

}  // namespace
