// What the XML records share: their documents as a whole (tests/golden), there
// and back, and what a failure logs and leaves live.
#include <simulation/records.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "core/bytes.h"
#include "tests/support/all_records.h"
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
  const char* name;      ///< also of its files in tests/golden
  int level;             ///< of the line that tells a dump's success
  const char* notReads;  ///< format of the line about a file that can't be loaded
  const char* notDumps = kNotDumped;
  const char* notCreates = "";  ///< format of the line without memory; null: needs none
  bool tellsReadback = false;
};

const Record kRecords[] = {
    {"ZOAWBWideAlwaysOnStatus", 2, kReadFailed},
    {"ZOAWBSyncInfo", 2, kReadFailed},
    {"ZOAWBPureColorRes", 2, kReadFailed},
    {"ZOAWBLightSrcClassify", 2, kReadFailed},
    {"OTPCalibrationFactor", 2, kDumpFailed},
    {"ZoAWBSpectralSensorInfo", 2, "read %s fail ", "dump %s failed"},
    {"QsegImageData", 3, kLoadFailed, kNotDumped, kNotCreated, true},
    {"AWBExtExposure", 2, kDumpFailed, "dump %s fail", nullptr},
    {"AWBAECData", 2, kLoadFailed},
    {"AECData", 6, "[%s] read xml root failed", kNotDumped, kNotCreated, true},
    {"AWBParsedStatsOutput", 3, kLoadFailed, kNotDumped, "create XMLDocument failed", true},
    {"LscMeta", 6, kLoadFailed, kNotDumped, nullptr},
    {"ACBdeviceOri", 2, kDumpFailed, "dump %s fail", nullptr},
};

void PrintTo(const Record& record, std::ostream* out) { *out << record.name; }

LogLine logged(const char* format, const std::string& path, int error = 0) {
  char text[256];
  std::snprintf(text, sizeof text, format, path.c_str(), error);
  return {6, text};
}

const std::string kLabels = pattern(QSegImageInfo::kStatsSize, 3);

/// The golden document; the label map stands in it as one word.
std::string documentOf(const std::string& name) {
  std::string text = golden(name + ".xml"), labels;
  if (text.find("LABELS") == std::string::npos) return text;
  for (const char label : kLabels) {
    labels += std::to_string(static_cast<unsigned char>(label)) + ' ';
  }
  return replaced(text, "LABELS", labels);
}

struct XmlRecords : CameraDataTest, testing::WithParamInterface<Record> {
  ~XmlRecords() override { takeUnreleasedBlocks(); }  // statistics keep one on purpose

  LogLines run(std::uint32_t mode, std::string& data) const {
    Simulation::m_LscIndex.clear();
    operation.run(mode, data.data());
    return takeLog();
  }

  /// The live record with the values of a .values file: lines of offset, type (f: a
  /// float, digit: the bytes of an integer, L: the labels), value and, where another
  /// one comes back ("-": none), that one.
  std::string filled(bool readBack) const {
    std::string record = live;
    std::istringstream lines(golden(row.name + std::string(".values")));
    std::size_t offset;
    char type;
    for (std::string line, value, other; std::getline(lines, line); other.clear()) {
      std::istringstream(line) >> offset >> type >> value >> other;
      std::istringstream text(readBack && !other.empty() ? other : value);
      text.imbue(std::locale::classic());
      if (text.str() == "-") continue;
      float number;
      std::uint64_t whole;
      if (type == 'f' && text >> number) store(record.data(), offset, number);
      if (type < 'A' && text >> whole) {
        std::memcpy(&record[offset], &whole, static_cast<std::size_t>(type - '0'));
      }
      if (type == 'L') record.replace(offset, kLabels.size(), kLabels);
    }
    return record;
  }

  std::string outcomeOf(const std::string& edited) const;

  const Record& row = GetParam();
  const RecordOperation& operation = recordNamed(row.name);
  const std::string dumped = operation.dumped(), replayed = operation.replayed();
  const std::string live = operation.memory(9);
  const std::string document = documentOf(row.name);
};
INSTANTIATE_TEST_SUITE_P(All, XmlRecords, testing::ValuesIn(kRecords),
                         [](const auto& row) { return row.param.name; });

// Whatever the language of the process.
TEST_P(XmlRecords, DocumentAsAWholeThereAndBack) {
  const std::string before = filled(false);
  for (const bool commas : {false, true}) {
    std::optional<CommaLocale> locale;
    if (commas) locale.emplace();
    std::string record = before;
    EXPECT_EQ(run(0, record), (LogLines{{row.level, "dump " + dumped + " success"}}));
    EXPECT_TRUE(readFile(dumped) == document) << readFile(dumped).substr(0, 10000);
    EXPECT_TRUE(record == before);
    writeFile(replayed, document);
    record = live;
    EXPECT_EQ(run(1, record),
              row.tellsReadback ? LogLines{logged("readback %s success", replayed)} : LogLines{});
    EXPECT_TRUE(record == filled(true));
  }
  // Another reader of XML takes it, too, where the machine has one.
  const std::string check = "! command -v xmllint >/dev/null || xmllint --noout '";
  EXPECT_EQ(std::system((check + dumped + "'").c_str()), 0);
}

TEST_P(XmlRecords, FailuresAreLoggedAndLeaveTheRecord) {
  std::string record = live;
  EXPECT_EQ(run(1, record), LogLines{logged(row.notReads, replayed, 3)});
  writeFile(replayed, document.substr(0, document.rfind('<')));
  EXPECT_EQ(run(1, record), LogLines{logged(row.notReads, replayed, 15)});
  writeFile(replayed, document);
  EXPECT_EQ(run(2, record), LogLines{});
  if (row.notCreates != nullptr) {
    const NoMemory noMemory(NoMemory::kObjects);
    const LogLine line = logged(row.notCreates, replayed);
    EXPECT_EQ(run(1, record), line.text.empty() ? LogLines{} : LogLines{line});
  }
  EXPECT_TRUE(record == live);
  EXPECT_EQ(tree().size(), 1U) << "a readback makes no folder";

  run(0, record = filled(false));
  remove(dumped.c_str());
  ASSERT_EQ(symlink("/dev/full", dumped.c_str()), 0);  // opens, but takes no byte
  EXPECT_EQ(run(0, record), LogLines{logged(row.notDumps, dumped)});
}

/// What a readback of `edited` over the golden record throws, logs and changes in
/// the next dump, a line each.
std::string XmlRecords::outcomeOf(const std::string& edited) const {
  std::ostringstream outcome;
  std::string record = filled(false);
  writeFile(replayed, edited);
  Simulation::m_LscIndex.clear();
  try {
    operation.run(1, record.data());
  } catch (const std::invalid_argument&) {
    outcome << "= invalid_argument\n";
  } catch (const std::out_of_range&) {
    outcome << "= out_of_range\n";
  }
  for (const LogLine& line : takeLog()) {
    outcome << "= " << line.level << ' ' << replaced(line.text, replayed, "FILE") << '\n';
  }
  run(0, record);
  std::istringstream before(document), after(readFile(dumped));
  for (std::string was, is; std::getline(before, was) && std::getline(after, is);) {
    if (was != is) outcome << "= " << is.substr(0, 90) << '\n';
  }
  return outcome.str();
}

/// A .cases file has documents, each followed by its outcome and an empty line.
TEST_P(XmlRecords, OddDocuments) {
  std::istringstream file(golden(row.name + std::string(".cases")));
  std::string edited, expected;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty()) {
      (line[0] == '=' ? expected : edited) += line + '\n';
      continue;
    }
    if (expected == "= aborts\n") {
      EXPECT_EXIT(outcomeOf(edited), testing::KilledBySignal(SIGABRT), "") << edited;
    } else {
      EXPECT_EQ(outcomeOf(edited), expected) << edited;
    }
    edited = expected = "";
  }
  EXPECT_EQ(edited + expected, "") << "the last case has no end";
}

}  // namespace
