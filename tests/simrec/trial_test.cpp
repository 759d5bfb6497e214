// Trials: what a readback of a file does is told as it is, whatever becomes of the child.
#include "simrec/trial.h"

#include <gtest/gtest.h>
#include <simulation/records.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <thread>

#include "simrec/diagnosis.h"
#include "tests/simrec/edited.h"
#include "tests/simrec/temp_folder.h"

namespace {

namespace fs = std::filesystem;
using namespace simrec;
using End = Trial::End;

/// A file in a folder of its own, whose path is longer than the library's own paths.
class OneFile {
 public:
  OneFile() {
    char name[] = "/tmp/simrec_trialXXXXXX";
    root_ = mkdtemp(name);
    const fs::path folder = root_ / std::string(100, 'a') / std::string(100, 'b');
    fs::create_directories(folder);
    path = folder / "record";
  }
  explicit OneFile(const std::string& text) : OneFile() { std::ofstream(path) << text; }
  ~OneFile() { fs::remove_all(root_); }

  std::string path;

 private:
  fs::path root_;
};

std::size_t replacedIn(const Trial& trial) {
  return static_cast<std::size_t>(std::count(trial.replaced.begin(), trial.replaced.end(), 1));
}

/// A record that is dumped and read back. `words` are put into floats of few digits.
struct WholeRecord {
  std::string_view kind;
  std::size_t replaced;  ///< bytes that a readback of a whole file tells
  std::size_t ownSize = 0;
  std::vector<std::pair<std::size_t, std::uint32_t>> words = {};
};

const WholeRecord kWhole[] = {
    {"AE_AECData", 4 * 4 + 3 * 16},
    {"AWB_AECData", 4 + 1 + 8 + 16, 0, {{4, 1}}},
    {"AWB_ParsedAWBStatsOutput", 600 * 56, 0, {{0, 0}, {4, 600}}},
    {"AWB_FaceROI", 1776},
    {"AWB_ISPAWBBGStatsConfig", 144},
    {"AWB_TuningMode", 60},
    {"AWB_ExtensionInfo", 360, 360},
    {"AWB_AWBFrameControlData", 888},
    {"AWB_inputColorData", 701, 701},
    {"AWB_CVPTransformData", 5 << 20, 5 << 20},
    {"AWB_ExtExposure", 24},
    {"OfflineAWB_ParsedAWBStatsOutput", 600 * (56 + 50), 0, {{0, 2}, {4, 600}}},
    {"OfflineAWB_ISPAWBBGStatsConfig", 144},
    {"AWB_QsegImageData", 308128 - 4 - 10 * 2},
    {"ZOAWB_FaceDectionInfo", 964},
    {"ZOAWB_FaceColorDectionInfo", 204},
    {"ZOAWB_WideAlwaysOnStatus", 4},
    {"ZOAWB_SyncInfo", 4},
    {"ZOAWB_PureColorRes", 12},
    {"ZOAWB_LightSrcClassify", 28},
    {"AWB_OTPData", 8},
    {"ZOAWB_SpectralSensorInfo", 132, 0, {{120, 0x3F800000}}},  // flicker: a whole number
    {"FACE_FDResult", 1000, 1000},
    {"FACE_FaceROI", 1776},
    {"LSC", 3536},
    {"ACB_acb", 40001, 40001},
    {"ACB_acb_orientation", 4},
};
static_assert(std::size(kWhole) == kCodecCount);

std::string memoryFor(const WholeRecord& record, const Codec& codec) {
  std::string memory(codec.size != 0 ? codec.size : record.ownSize, '\1');
  for (std::size_t at = 0; at + 4 <= memory.size(); at += 4) {
    const std::uint32_t word = 0x3F800000 + static_cast<std::uint32_t>(at / 4 % 8 << 20);
    std::memcpy(&memory[at], &word, 4);
  }
  for (const auto& [at, word] : record.words) std::memcpy(&memory[at], &word, 4);
  return memory;
}

TEST(Trials, AWholeFileOfEachKindTellsItsMembers) {
  TrialRunner runner;
  for (const WholeRecord& record : kWhole) {
    SCOPED_TRACE(record.kind);
    const Codec& codec = *codecOf(record.kind);
    std::string dumped = memoryFor(record, codec);
    const OneFile file;
    codec.dump(file.path.c_str(), dumped.data(), dumped.size());
    const Trial trial = runner.tryReadback(codec, file.path);
    EXPECT_EQ(trial.end, End::kReturned);
    const std::string_view live = runner.liveRecord();
    ASSERT_EQ(live.size(), dumped.size() > (4U << 20) ? 0 : dumped.size());
    EXPECT_EQ(replacedIn(trial), record.replaced);
    if (codec.size == sizeof(BayerGridOutput)) continue;  // gaps and pairs: not as dumped
    for (std::size_t i = 0; i < live.size(); ++i) {
      ASSERT_TRUE(trial.replaced[i] == 0 || live[i] == dumped[i]) << "byte " << i;
    }
  }
}

std::string repeated(std::size_t count, const std::string& text) {
  std::string all;
  while (count-- > 0) all += text;
  return all;
}

std::string gains(const std::string& inside) {
  return "<SimulationData><LensShadingInfo>" + inside + "</LensShadingInfo></SimulationData>";
}

/// A file that is not as the library writes it.
struct OddFile {
  std::string_view kind;
  std::string text;
  End end;
  std::size_t replaced = 0;
  const char* exception = "";
  const char* logged = "";  ///< the end of the last line
};

const OddFile kOdd[] = {
    {"AE_AECData", "", End::kReturned, 0, "", "read xml root failed"},
    {"AE_AECData", "<S><LuxIndex>1</LuxIndex><DigitalGain>2</DigitalGain></S>", End::kReturned, 8,
     "", "read ExposureIndexShort element failed"},
    {"AWB_ParsedAWBStatsOutput", "<S><AWBBGStats><RSum>1 </RSum></AWBBGStats></S>", End::kReturned,
     0, "", "read BSum element failed"},
    {"AWB_FaceROI", "short", End::kReturned, 0, "",
     "size(5) is not equal to we need(1784) or pData is NULL"},
    {"AWB_FaceROI", std::string(2000, 'x'), End::kReturned, 1776},
    {"AWB_TuningMode", std::string(17, 'm'), End::kReturned, 60, "",
     "size(17) is not equal to we need(60) or pData is NULL"},
    {"AWB_TuningMode", "", End::kReturned, 60, "",
     "size(0) is not equal to we need(60) or pData is NULL"},
    {"AWB_ExtensionInfo", std::string(6, 'x'), End::kReturned, 4},
    {"FACE_FDResult", "", End::kReturned},
    {"ACB_acb", "ab", End::kReturned, 2},
    {"AWB_ExtExposure", "<E><frameLuma>dark</frameLuma><ADRCGain>2</ADRCGain></E>", End::kReturned,
     4},
    {"ZOAWB_PureColorRes", "<P><enabled>1</enabled></P>", End::kReturned, 4},
    {"ZOAWB_PureColorRes", "<P><enabled>1</enabled><singlePureColorConfid/></P>", End::kThrew, 4,
     "invalid_argument"},
    {"ZOAWB_SyncInfo", "<S><syncinfo>4294967296</syncinfo></S>", End::kThrew, 0, "out_of_range"},
    {"AWB_QsegImageData", "<Q><requestId>9</requestId><ID>1</ID>", End::kReturned, 0, "", "failed"},
    {"ZOAWB_SpectralSensorInfo", "<S><channelDatas>" + repeated(21, "1 ") + "</channelDatas></S>",
     End::kAborted},
    {"ZOAWB_SpectralSensorInfo", repeated(1000, "<S>"), End::kReturned, 0, "", "fail "},
    {"LSC", gains("<rGain>" + repeated(222, "1 ") + "</rGain>"), End::kOverflowed},
    {"LSC", gains("<rGain/>" + repeated(900, "<g/>") + "<g>1 </g>"), End::kOverflowed},
    {"LSC", gains("<rGain/>" + repeated(100'000, "<g/>") + "<g>1 </g>"), End::kOverflowed},
    {"LSC", gains("<rGain>1 </rGain><g>x </g>"), End::kThrew, 4, "invalid_argument"},
};

bool endsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

TEST(Trials, AnOddFileDoesWhatTheReadbackMakesOfIt) {
  TrialRunner runner;
  for (const OddFile& odd : kOdd) {
    SCOPED_TRACE(std::string(odd.kind) + ' ' + odd.text.substr(0, 80));
    const OneFile file(odd.text);
    const Trial trial = runner.tryReadback(*codecOf(odd.kind), file.path);
    EXPECT_EQ(trial.end, odd.end);
    EXPECT_EQ(trial.exception, odd.exception);
    EXPECT_EQ(replacedIn(trial), odd.replaced);
    EXPECT_EQ(trial.log.empty(), *odd.logged == '\0');
    EXPECT_TRUE(trial.log.empty() || endsWith(trial.log.back().text, odd.logged));
  }
}

TEST(Trials, WhatIsWrittenBeforeTheEndIsKept) {
  const OneFile file(gains("<rGain>2 </rGain>" + repeated(900, "<g/>") + "<g>1 </g>"));
  TrialRunner runner;
  const Trial trial = runner.tryReadback(*codecOf("LSC"), file.path);
  const float two = 2;
  EXPECT_EQ(std::memcmp(runner.liveRecord().data(), &two, sizeof two), 0);
  EXPECT_TRUE(trial.replaced.empty());
}

/// Readbacks that no record has.
void waitForever(const char*, void*, std::size_t) {
  for (;;) pause();
}
void crash(const char*, void*, std::size_t) { std::raise(SIGSEGV); }
void killItself(const char*, void*, std::size_t) { std::raise(SIGKILL); }
void writeBefore(const char*, void* live, std::size_t) {
  std::memset(static_cast<char*>(live) + 8 - kLargestLiveRecord - 8192, 1, 8192);
}
std::vector<std::unique_ptr<char[]>> kept;  // in the child
void takeAll(const char*, void*, std::size_t) { kept.emplace_back(new char[100 << 20]); }
void leak(const char*, void*, std::size_t) { kept.emplace_back(new char[20 << 20]); }

constexpr Codec codecThat(void (*read)(const char*, void*, std::size_t)) {
  return {"none", 8, 1, read};
}

std::size_t openDescriptors() {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
}

TEST(Trials, NoEndOfTheChildIsAnEnd) {
  struct Fate {
    Codec codec;
    End end;
  };
  static const Fate kFates[] = {
      {codecThat(waitForever), End::kTimedOut},
      {codecThat(crash), End::kCrashed},
      {codecThat(killItself), End::kCrashed},
      {codecThat(writeBefore), End::kOverflowed},
      {codecThat(takeAll), SIMREC_MEMORY_LIMIT ? End::kOutOfMemory : End::kReturned},
      {codecThat(leak), End::kReturned},
  };
  const Codec& sync = *codecOf("ZOAWB_SyncInfo");
  const OneFile sound("<AWBsyncInfo><syncinfo>3</syncinfo></AWBsyncInfo>");
  const std::size_t descriptors = openDescriptors();
  {
    int waited = 0;
    TrialRunner runner(
        {std::size_t{80} << 20, std::chrono::milliseconds(SIMREC_MEMORY_LIMIT ? 200 : 2000)},
        [&] { ++waited; });
    for (int round = 0; round < 6; ++round) {
      for (const Fate& fate : kFates) {
        if (round > 0 && fate.end == End::kTimedOut) continue;
        SCOPED_TRACE(&fate - kFates);
        EXPECT_EQ(runner.tryReadback(fate.codec, "unused").end, fate.end);
        EXPECT_EQ(replacedIn(runner.tryReadback(sync, sound.path)), 4);
      }
    }
    const OneFile pipe;
    ASSERT_EQ(mkfifo(pipe.path.c_str(), 0600), 0);
    EXPECT_EQ(runner.tryReadback(sync, pipe.path).end, End::kTimedOut);
    EXPECT_GT(waited, 0);
    EXPECT_EQ(replacedIn(runner.tryReadback(sync, "/no/such/file")), 0);
  }
  EXPECT_EQ(openDescriptors(), descriptors);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

TEST(Trials, EachThreadMayHaveItsOwn) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer's heap may be locked by another thread in a child";
#endif
  const OneFile aborting("<S><channelDatas>" + repeated(21, "1 ") + "</channelDatas></S>");
  const OneFile sound("<S><lux>4</lux></S>");
  const Codec& codec = *codecOf("ZOAWB_SpectralSensorInfo");
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      TrialRunner runner;
      for (int round = 0; round < 10; ++round) {
        EXPECT_EQ(runner.tryReadback(codec, aborting.path).end, End::kAborted);
        EXPECT_EQ(replacedIn(runner.tryReadback(codec, sound.path)), 4);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

/// Of files that look sound, what doctor says of the one and only odd thing in them.
TEST(SimrecDoctor, NamesWhatStaysLive) {
  const struct {
    const char *file, *from, *to, *by, *due;
  } kRows[] = {
      {"simulation_AE_AECData_camId[0]_ev[0].xml", "<LuxIndex>", "0", "<LuxIndex><!-- -->0",
       "a readback replaces only a part, not LuxIndex"},
      {"simulation_LSC[x]_index[0]_ev[0].xml", "<rGain>", "0 ", "<rGain>0\t",
       "a readback replaces only a part, not rGain[220]"},
      {"simulation_LSC[x]_index[1]_ev[0].xml", "0.000000 \n</grGain", ">",
       " \n  0.000000  \n </grGain>",
       "a readback throws invalid_argument before it replaces grGain"},
  };
  const TempFolder folder;
  std::string due, told;
  for (const auto& row : kRows) {
    const std::string path = folder.write(row.file, "");
    const Codec& codec = *codecOf(catalogue::parseFileName(row.file)->kind->name);
    std::string live(codec.size, '\0');
    codec.dump(path.c_str(), live.data(), live.size());
    const std::string sound = (std::ostringstream() << std::ifstream(path).rdbuf()).str();
    folder.write(row.file, edited(sound, row.from, row.to, row.by));
    due += std::string(row.file) + ": " + row.due + '\n';
  }
  int examined = 0;
  for (const Finding& finding : Doctor({}).examine({"IMG", folder.path()}, [&] { ++examined; })) {
    told += finding.file + ": " + finding.what + '\n';
  }
  EXPECT_EQ(told, due);
  EXPECT_EQ(examined, 3);
}

}  // namespace
