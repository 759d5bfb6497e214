// What doctor says that a readback of a file would do is what the library's operation does with
// it, and what the golden files say that it does.
#include <sys/mman.h>

#include <csignal>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <sstream>

#include "simrec/diagnosis.h"
#include "tests/simrec/edited.h"
#include "tests/support/all_records.h"

namespace {

namespace fs = std::filesystem;
using namespace simrec;

/// Memory that ends where nobody may write, nor far behind it.
char* guarded(std::size_t size) {
  constexpr std::size_t kRoom = std::size_t{1} << 20, kHole = std::size_t{1} << 28;
  static char* const room = [] {
    void* const all =
        mmap(nullptr, kRoom + kHole, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    EXPECT_EQ(mprotect(all, kRoom, PROT_READ | PROT_WRITE), 0);
    return static_cast<char*>(all);
  }();
  EXPECT_LE(size, kRoom);
  return room + kRoom - size;
}

/// Inputs whose bytes all differ but for those that a readback wants to find.
std::string inputs(const RecordOperation& record, const std::string& file, bool other) {
  std::string live = record.memory(9);
  for (char& byte : live) byte = static_cast<char>(other ? ~byte : byte);
  const std::string name = record.name;
  if (name == "AWBTuningMode") {
    std::string mode = file;
    mode.resize(live.size());
    live.replace(16, 2, mode, 16, 2).replace(24, 4, mode, 24, 4);
  }
  if (name == "OTPCalibrationFactor") live.replace(0, 4, std::string("\1\0\0\0", 4));
  return live;
}

struct Verdicts : testing::Test {
  Verdicts() { clearCameraData(); }

  static const catalogue::Kind& kindOf(const std::string& file) {
    return *catalogue::parseFileName(file)->kind;
  }

  static const RecordOperation& operationOf(const catalogue::Kind& kind) {
    const std::string name = kind.operation;
    return recordNamed(name.substr(name.find("For") + 3));
  }

  std::vector<Finding> findingsIn(const std::string& file, const std::string& bytes) {
    fs::remove_all(kCamera + "IMG");
    fs::create_directory(kCamera + "IMG");
    writeFile(kCamera + "IMG/" + file, bytes);
    return doctor.examine({"IMG", kCamera + "IMG"});
  }

  std::string verdictOf(const std::string& file, const std::string& bytes) {
    for (const Finding& finding : findingsIn(file, bytes)) {
      if (finding.file == file) return nameOf(finding.readback);
    }
    return "whole";
  }

  /// Reads it back over `live`; the end of the process is that of the readback.
  static void readBack(const RecordOperation& record, std::string& live) {
    std::signal(SIGSEGV, SIG_DFL);
    char* const data = guarded(live.size());
    std::memcpy(data, live.data(), live.size());
    Simulation::m_LscIndex.clear();
    record.run(1, data);
    live.assign(data, live.size());
  }

  /// One for each byte of the inputs that the file replaces; throws what the operation does.
  static std::string toldBy(const RecordOperation& record, const std::string& file,
                            const std::string& bytes) {
    writeFile(kCamera + file, bytes);
    const std::string before = inputs(record, bytes, false), others = inputs(record, bytes, true);
    std::string one = before, other = others, told(before.size(), '\0');
    readBack(record, one);
    readBack(record, other);
    for (std::size_t i = 0; i < told.size(); ++i) {
      told[i] = before[i] != others[i] && one[i] == other[i] ? 1 : 0;
    }
    return told;
  }

  static std::string soundFile(const RecordOperation& record, const std::string& file) {
    std::string data = record.memory(9);
    clearCameraData();
    Simulation::m_LscIndex.clear();
    record.run(0, data.data());
    for (const std::string& name : tree()) {
      if (fs::path(name).filename() == file) return readFile(kCamera + name);
    }
    return "";
  }

  /// What it replaces of a sound file of that name.
  const std::string& soundlyToldBy(const RecordOperation& record, const std::string& file) {
    std::string& told = sound[file];
    if (told.empty()) told = toldBy(record, file, soundFile(record, file));
    return told;
  }

  void expectWhatTheOperationDoes(const std::string& file, const std::string& bytes) {
    const catalogue::Kind& kind = kindOf(file);
    const RecordOperation& record = operationOf(kind);
    const std::string whole = soundlyToldBy(record, file), verdict = verdictOf(file, bytes);
    ++seen[verdict];
    if (verdict == "aborts" || verdict == "overflows") {
      writeFile(kCamera + file, bytes);
      std::string live = inputs(record, bytes, false);
      EXPECT_EXIT(readBack(record, live),
                  testing::KilledBySignal(verdict == "aborts" ? SIGABRT : SIGSEGV), "");
      return;
    }
    std::string told;
    try {
      told = toldBy(record, file, bytes);
    } catch (const std::logic_error&) {
      EXPECT_EQ(verdict, "throws");
      return;
    }
    bool any = false, all = true;
    for (std::size_t i = 0; i < told.size(); ++i) {
      any = any || told[i] != 0;
      all = all && told[i] >= whole[i];
    }
    // Of regions the file tells how many there are, and there may be none.
    const bool regions = kind.missing == catalogue::Missing::kForbids;
    const std::string due = all ? "whole" : any ? "partly" : "none";
    EXPECT_TRUE(verdict == due || (regions && verdict == "whole" && due != "none") ||
                (regions && !any && verdict == "whole"))
        << verdict << " instead of " << due;
  }

  Doctor doctor{{}};
  std::map<std::string, std::string> sound;
  std::map<std::string, int> seen;
};

/// What a case of tests/golden says of the verdict; empty: either.
bool allows(const std::string& outcome, const std::string& verdict) {
  bool throws = false, changes = false, fails = false;
  std::istringstream lines(outcome);
  for (std::string line; std::getline(lines, line);) {
    const bool thrown = line == "= invalid_argument" || line == "= out_of_range";
    const bool logged =
        line.size() > 3 && line.rfind("= ", 0) == 0 && line[3] == ' ' && line[2] > '0';
    throws = throws || thrown;
    fails = fails || (logged && line.find("success") == line.npos);
    changes = changes || (!thrown && !logged);
  }
  if (outcome == "= aborts\n") return verdict == "aborts";
  if (throws || verdict == "throws") return throws && verdict == "throws";
  if (changes) return verdict == "partly" || (!fails && verdict == "whole");
  return !fails || verdict != "whole";
}

TEST_F(Verdicts, OnOddDocumentsAreTheLibrarys) {
  for (const auto& entry : fs::directory_iterator(SIMULATION_GOLDEN_FOLDER)) {
    if (entry.path().extension() != ".cases") continue;
    const std::string name = entry.path().stem();
    const std::string file = std::string("simulation_") + recordNamed(name).file;
    std::istringstream cases(golden(name + ".cases"));
    std::string text, outcome;
    for (std::string line; std::getline(cases, line);) {
      if (!line.empty()) {
        (line[0] == '=' ? outcome : text) += line + '\n';
        continue;
      }
      SCOPED_TRACE(file + ": " + text.substr(0, 2000) + outcome);
      expectWhatTheOperationDoes(file, text);
      const std::string verdict = verdictOf(file, text);
      EXPECT_TRUE(allows(outcome, verdict)) << verdict;
      text = outcome = "";
    }
  }
  for (const char* verdict : {"whole", "partly", "none", "throws", "aborts"}) {
    EXPECT_GT(seen[verdict], 3) << verdict;
  }
}

/// Every input that fuzzing kept, as a record of every kind whose size is the library's to know.
TEST_F(Verdicts, OnKeptInputsAreTheLibrarys) {
  std::vector<std::string> inputs;
  for (const auto& entry : fs::recursive_directory_iterator(SIMULATION_FUZZ_FOLDER)) {
    const std::string path = entry.path();
    const bool kept = path.find("/corpus/") != path.npos || path.find("/found/") != path.npos;
    if (kept && entry.is_regular_file()) inputs.push_back(readFile(path));
  }
  EXPECT_GT(inputs.size(), 200U);
  for (const catalogue::Kind& kind : catalogue::kinds()) {
    if (kind.format == catalogue::Format::kBinary && kind.bytes == 0) continue;
    std::string file = std::string("simulation_") + operationOf(kind).file;
    if (&kindOf(file) != &kind) file = catalogue::makeFileName({&kind, kCamId});  // the second one
    for (std::size_t i = 0; i < inputs.size(); i += SIMULATION_SLOW_TESTS ? 7 : 1) {
      const std::string& bytes = inputs[i];
      SCOPED_TRACE(file + ": " + bytes.substr(0, 2000));
      expectWhatTheOperationDoes(file, bytes);
    }
  }
  for (const auto& [verdict, count] : seen)
    std::cout << "seen: " << verdict << ' ' << count << '\n';
}

/// What a user reads of files that the library itself has dumped, as they are and with one change.
TEST_F(Verdicts, AreToldInWords) {
  const std::string longer(999, 'x');
  for (const RecordOperation& record : kAllRecords) {
    const std::string file = std::string("simulation_") + record.file;
    EXPECT_TRUE(findingsIn(file, soundFile(record, file)).empty()) << file;
  }
  const struct {
    const char *record, *from, *to, *by, *due;
  } kRows[] = {
      {"ZOAWBPureColorRes", "Confid>", "<", "Confid>1e-45<",
       "error: singlePureColorConfid is denormal: no conversion takes it (throws)"},
      {"QsegImageData", "<requestId>", "<", "<requestId>9223372036854775808<",
       "error: requestId is 2^63 or more: no conversion takes it (throws)"},
      {"QsegImageData", "<requestId>", "<", "<requestId>9223372036854775807<", ""},
      {"ZOAWBSyncInfo", "<syncinfo>", "<", "<syncinfo>x<",
       "error: syncinfo: \"x\" is no number (throws)"},
      {"AECData", "</DrcGain>", "<", "<",
       "error: an element is not closed, or by another's name (line 7) (none)"},
      {"AECData", "<DrcGain>", "</DrcGain>", "", "warning: DrcGain is missing (partly)"},
      {"AWBTuningMode", "", "59", "", "warning: 59 bytes instead of 60: zeros fill it up (whole)"},
      {"AWBFaceROI", "", "59", "", "error: 59 bytes instead of 1784 (none)"},
      {"AWBFrameControlData", "", "", longer.c_str(),
       "warning: 999 bytes instead of 888: what follows the record is ignored (whole)"},
      {"CVPTransformData", "", "", "", "error: empty (none)"},
  };
  for (const auto& [name, from, to, by, due] : kRows) {
    SCOPED_TRACE(name + std::string(from));
    const std::string file = std::string("simulation_") + recordNamed(name).file;
    const std::string bytes = edited(soundFile(recordNamed(name), file), from, to, by);
    std::string told;
    for (const Finding& finding : findingsIn(file, bytes)) {
      told += std::string(nameOf(finding.severity)) + ": " + finding.what + " (" +
              nameOf(finding.readback) + ")";
    }
    EXPECT_EQ(told, due);
  }
}

}  // namespace
