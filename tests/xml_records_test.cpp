// What the XML records share: their documents as a whole (tests/golden), there
// and back, and what a failure logs and leaves live.
#include <simulation/records.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>
#include <regex>
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
  const char* notCreates = "";  ///< format of a readback's line without memory; null: needs none
  bool tellsReadback = false;
  const char* needs = "";  ///< the elements without which a readback ends
  bool throws = false;     ///< what the standard conversions throw
};

const Record kRecords[] = {
    {"ZOAWBWideAlwaysOnStatus", 2, kReadFailed, kNotDumped, "", false, "", true},
    {"ZOAWBSyncInfo", 2, kReadFailed, kNotDumped, "", false, "", true},
    {"ZOAWBPureColorRes", 2, kReadFailed, kNotDumped, "", false, "", true},
    {"ZOAWBLightSrcClassify", 2, kReadFailed, kNotDumped, "", false, "", true},
    {"OTPCalibrationFactor", 2, kDumpFailed},
    {"ZoAWBSpectralSensorInfo", 2, "read %s fail ", "dump %s failed", "", false, "", true},
    {"QsegImageData", 3, kLoadFailed, kNotDumped, kNotCreated, true, "", true},
    {"AWBExtExposure", 2, kDumpFailed, "dump %s fail", nullptr},
    {"AWBAECData", 2, kLoadFailed},
    {"AECData", 6, "[%s] read xml root failed", kNotDumped, kNotCreated, true,
     "LuxIndex DigitalGain ExposureIndexShort ExposureIndexLong ExposureIndexSafe DrcGain "
     "DrcGainDark"},
    {"AWBParsedStatsOutput", 3, kLoadFailed, kNotDumped, "create XMLDocument failed", true,
     "RSum BSum GRorGSum GBSum YSum RCount BCount GRorGCount GBCount YCount"},
    {"LscMeta", 6, kLoadFailed, kNotDumped, nullptr, false, "", true},
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
    for (std::string line, value, other; std::getline(lines, line); other.clear()) {
      std::size_t offset;
      char type;
      std::istringstream(line) >> offset >> type >> value >> other;
      if (readBack && !other.empty()) value = other;
      if (value == "-") continue;
      if (type == 'f') store(record.data(), offset, std::stof(value));
      if (type == 'L') record.replace(offset, kLabels.size(), kLabels);
      if (type > '9') continue;
      const std::uint64_t whole = std::stoull(value);
      std::memcpy(&record[offset], &whole, static_cast<std::size_t>(type - '0'));
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
  const std::string before = filled(false), after = filled(true);
  for (const bool commas : {false, true}) {
    std::optional<CommaLocale> locale;
    if (commas) locale.emplace(), writeFile(dumped, document + "tail of an older, longer one");
    std::string record = before;
    EXPECT_EQ(run(0, record), (LogLines{{row.level, "dump " + dumped + " success"}}));
    EXPECT_TRUE(readFile(dumped) == document) << readFile(dumped).substr(0, 10000);
    EXPECT_EQ(std::filesystem::status(dumped).permissions(), std::filesystem::perms(0666));
    EXPECT_TRUE(record == before);
    writeFile(replayed, document);
    record = live;
    EXPECT_EQ(run(1, record),
              row.tellsReadback ? LogLines{logged("readback %s success", replayed)} : LogLines{});
    EXPECT_TRUE(record == after);
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
  EXPECT_EQ(tree().size(), 1U) << "a readback makes no folder";
  if (row.notCreates != nullptr) {
    const NoMemory noMemory(NoMemory::kObjects);
    const bool told = row.notCreates[0] != '\0';
    EXPECT_EQ(run(1, record), LogLines(told, logged(row.notCreates, replayed)));
    EXPECT_EQ(run(0, record), LogLines(told, logged(kNotCreated, dumped)));
    EXPECT_EQ(tree().size(), 3U) << "only the folders of a dump are made";
  }
  EXPECT_TRUE(record == live);

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

/// A .cases file has documents, each followed by its outcome and an empty line. Where a
/// record needs elements, the first one is read without each of them, too: exposure is then
/// replayed up to that, statistics not at all.
TEST_P(XmlRecords, OddDocuments) {
  std::istringstream file(golden(row.name + std::string(".cases"))), needed(row.needs);
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
    std::istringstream told(expected.substr(expected.find('\n') + 1));
    for (std::string name, changes; needed >> name && std::getline(told, line);) {
      const std::string lacking = std::regex_replace(edited, std::regex("\\b" + name + "\\b"), "x");
      EXPECT_EQ(outcomeOf(lacking), "= 6 read " + name + " element failed\n" + changes);
      if (row.name == std::string("AECData")) changes += line + '\n';
    }
    edited = expected = "";
  }
  EXPECT_EQ(edited + expected, "") << "the last case has no end";
}

TEST_P(XmlRecords, TextsThatAreNoNumbersOrTooLarge) {
  const std::string text = golden(row.name + std::string(".xml"));
  const std::regex isInt(
      "status|syncinfo|enabled|lightClass|sensorType|isQSegInfoValid|qsegStats.*");
  for (std::size_t end = 0; (end = text.find("</", end + 1)) != text.npos;) {
    const std::size_t begin = text.rfind('>', end) + 1;
    const std::string name = text.substr(end + 2, text.find('>', end) - end - 2);
    if (text.find_first_not_of(" \n", begin) == end) continue;  // the end of a parent
    for (const char* odd : {"x ", "4294967301 "}) {
      const bool bad = odd[0] == 'x' ? name != "channelDatas" : std::regex_match(name, isInt);
      writeFile(replayed, std::string(text).replace(begin, end - begin, odd));
      std::string record = live;
      if (row.throws && bad) {
        EXPECT_THROW(run(1, record), std::logic_error) << name;
      } else {
        EXPECT_NO_THROW(run(1, record)) << name;
      }
    }
  }
}

}  // namespace
