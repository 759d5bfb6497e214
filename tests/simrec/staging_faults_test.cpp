// What staging, unstaging, pruning and setting leave when the file system lets them down, when the
// capture vanishes and when they are killed: at each of their calls in turn, and at any time.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdarg>
#include <filesystem>
#include <iostream>
#include <random>
#include <set>

#include "tests/simrec/sandbox.h"

namespace {

namespace fs = std::filesystem;

enum class Kind { kFails, kFailsForGood, kMovesOneByte, kVanishes, kGrows, kKills };
struct Fault {
  Kind kind;
  int error = 0;
};
constexpr Fault kFaults[] = {{Kind::kFails, EIO},   {Kind::kFailsForGood, EACCES},
                             {Kind::kMovesOneByte}, {Kind::kVanishes},
                             {Kind::kGrows},        {Kind::kKills}};

/// Each call where they are fast, else one in a few.
constexpr int kStep = SIMULATION_SLOW_TESTS ? 7 : 1;

Fault fault;
int failing = 0;  ///< the number of the call; 0: none

/// Seen by the processes that run simrec and by the one that looks at them.
int& calls = *static_cast<int*>(
    mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));

int& grown = (&calls)[1];  ///< whether the camera has put a file into the capture meanwhile

const std::string kCapture = kData + "IMG_A", kHidden = kData + "hidden";
const std::string kNewFile = kCapture + "/simulation_new";

/// Whether the fault hits the call that is under way.
bool strikes(bool transfers) {
  const bool late = fault.kind == Kind::kFailsForGood;
  if (failing == 0 || ++calls < failing || (calls > failing && !late)) return false;
  errno = fault.error;
  if (fault.kind == Kind::kKills) kill(getpid(), SIGKILL);
  if (fault.kind == Kind::kVanishes) return rename(kCapture.c_str(), kHidden.c_str()) > 0;
  if (fault.kind == Kind::kGrows) grown = mknod(kNewFile.c_str(), S_IFREG | 0644, 0) == 0;
  return fault.kind != Kind::kGrows && (fault.kind != Kind::kMovesOneByte || transfers);
}

bool fails() { return strikes(false); }

}  // namespace

// The calls that simrec makes on its way through the data folder.
#define NEXT(name) reinterpret_cast<decltype(&name)>(dlsym(RTLD_NEXT, #name))
#define FAULTY extern "C" __attribute__((visibility("default")))

FAULTY int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const unsigned int mode = (flags & O_CREAT) != 0 ? va_arg(arguments, unsigned int) : 0;
  va_end(arguments);
  return fails() ? -1 : NEXT(open)(path, flags, mode);
}
FAULTY int openat(int folder, const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const unsigned int mode = (flags & O_CREAT) != 0 ? va_arg(arguments, unsigned int) : 0;
  va_end(arguments);
  return fails() ? -1 : NEXT(openat)(folder, path, flags, mode);
}
FAULTY ssize_t read(int file, void* data, size_t size) {
  const bool hit = strikes(true);
  return hit && fault.error != 0 ? -1 : NEXT(read)(file, data, hit ? 1 : size);
}
FAULTY ssize_t write(int file, const void* data, size_t size) {
  const bool hit = strikes(true);
  return hit && fault.error != 0 ? -1 : NEXT(write)(file, data, hit ? 1 : size);
}
FAULTY int close(int file) {
  const bool failed = fails();
  const int result = NEXT(close)(file);
  return failed ? -1 : result;
}
#define FAIL_AS(result, type, name, parameters, arguments, exception) \
  FAULTY type name parameters exception { return fails() ? result : NEXT(name) arguments; }
FAIL_AS(-1, int, fstat, (int f, struct stat* status), (f, status), noexcept)
FAIL_AS(-1, int, stat, (const char* path, struct stat* status), (path, status), noexcept)
FAIL_AS(-1, int, lstat, (const char* path, struct stat* status), (path, status), noexcept)
FAIL_AS(-1, int, fstatat, (int f, const char* n, struct stat* s, int how), (f, n, s, how), noexcept)
FAIL_AS(-1, int, statx, (int f, const char* n, int how, unsigned int what, struct statx* x),
        (f, n, how, what, x), noexcept)
FAIL_AS(-1, int, mkdirat, (int f, const char* name, mode_t mode), (f, name, mode), noexcept)
FAIL_AS(-1, int, unlinkat, (int f, const char* name, int how), (f, name, how), noexcept)
FAIL_AS(-1, int, renameat, (int f, const char* n, int t, const char* m), (f, n, t, m), noexcept)
FAIL_AS(-1, int, renameat2, (int f, const char* n, int t, const char* m, unsigned int how),
        (f, n, t, m, how), noexcept)
FAIL_AS(-1, int, fchmod, (int f, mode_t mode), (f, mode), noexcept)
FAIL_AS(-1, ssize_t, sendfile, (int t, int f, off_t* at, size_t n), (t, f, at, n), noexcept)
FAIL_AS(-1, int, fsync, (int f), (f), )
FAIL_AS(-1, int, syncfs, (int f), (f), noexcept)
FAIL_AS(-1, int, flock, (int f, int how), (f, how), noexcept)
FAIL_AS(-1, int, ftruncate, (int f, off_t size), (f, size), noexcept)
FAIL_AS(-1, ssize_t, pwrite, (int f, const void* d, size_t n, off_t at), (f, d, n, at), )
FAIL_AS(nullptr, DIR*, opendir, (const char* path), (path), )
FAIL_AS(nullptr, DIR*, fdopendir, (int f), (f), )
FAIL_AS(nullptr, dirent*, readdir, (DIR * folder), (folder), )

namespace {

using Command = std::vector<std::string>;

const Command kStageA = {"stage", "IMG_A", "--lsc-repeat", "4"}, kStageB = {"stage", "IMG_B"},
              kUnstage = {"unstage"},
              kPrune = {"prune", "--keep", "1", "--leftovers", "--older", "1h", "--yes"},
              kSet = {"set", "IMG_A", "IMG_set", "ZOAWB_SyncInfo.syncinfo=7"};

struct Case {
  const char* name;
  std::vector<Command> before;
  Command command;
  bool edits = false;   ///< a staged file, before the command
  bool prunes = false;  ///< IMG_A and the request
};

const Case kCases[] = {
    {"Stage", {}, kStageA},
    {"StageAgain", {kStageB}, kStageA, true},
    {"Unstage", {kStageA}, kUnstage, true},
    {"Prune", {}, kPrune, false, true},
    {"Set", {kStageB}, kSet, true},
};

constexpr char kSync[] = "simulation_ZOAWB_SyncInfo_camId[0].xml";

/// What prune takes may be gone; everything else, and every one of its captures that is
/// still there, is as it was.
void forgetPruned(Picture& found, Picture& expected) {
  for (const std::string capture : {"IMG_A", "tmp/RequestID[57]_camId[0]"}) {
    if (found.count(capture) != 0) continue;
    const auto first = expected.lower_bound(capture);
    expected.erase(first, expected.lower_bound(capture + '0'));  // '0' follows '/'
  }
}

/// What kSet makes of IMG_A, but for its own file, which tells the time.
Picture newCapture() {
  Picture made;
  for (const auto& [name, content] : contents()) {
    if (name.rfind("IMG_A/", 0) == 0) made[name.substr(6)] = content;
  }
  made[kSync] = "<AWBsyncInfo>\n    <syncinfo>7</syncinfo>\n</AWBsyncInfo>\n";
  return made;
}

/// What kSet made is there as a whole or not at all; then it goes. Whether it was there.
bool takeNewCapture(const Picture& whole) {
  if (!fs::exists(kData + "IMG_set")) return false;
  Picture found;
  for (const auto& [name, content] : contents()) {
    if (name.rfind("IMG_set/", 0) == 0) found[name.substr(8)] = content;
  }
  EXPECT_NE(found[".simrec.json"].find(".syncinfo=7\"],\"made\":\""), std::string::npos);
  found.erase(".simrec.json");
  EXPECT_EQ(found.size(), whole.size());
  for (const auto& [name, content] : found) {
    EXPECT_TRUE(whole.count(name) == 1 && whole.at(name) == content) << name;
  }
  fs::remove_all(kData + "IMG_set");
  return true;
}

/// What kPrune takes is old enough for it, and kSet finds something to change.
Picture fillOld() {
  fill();
  put(kData + "IMG_A/" + kSync, "<AWBsyncInfo><syncinfo>3</syncinfo></AWBsyncInfo>");
  for (const char* capture : {"IMG_A/", "tmp/RequestID[57]_camId[0]/"}) {
    for (const auto& file : fs::directory_iterator(kData + capture)) age(file.path(), 9000);
  }
  return picture();
}

struct StagingFaults : testing::TestWithParam<Case> {
  void prepare() {
    origin = fillOld();
    known = contents();
    made = newCapture();
    for (const Command& command : row.before) ASSERT_EQ(simrec(command).status, 0);
    if (row.edits) put(kData + kEdited, "what a user made of it");
  }

  /// Nothing but what was whole somewhere stands where a readback looks.
  void expectNoHalfFile() {
    const std::set<std::string> whole = [&] {
      std::set<std::string> texts = {"what a user made of it"};
      for (const auto& file : known) texts.insert(file.second);
      return texts;
    }();
    for (const auto& [name, content] : contents()) {
      EXPECT_TRUE(name.find('/') != name.npos || whole.count(content) == 1) << name;
    }
  }

  /// A capture whose deletion has failed before it began is where it was.
  void expectNoneHidden() {
    const fs::directory_iterator hidden(kData + ".simrec/pruned/IMG_A", noFolder);
    if (hidden == end(hidden)) return;
    EXPECT_LT(std::distance(begin(hidden), end(hidden)), 6);
  }

  void expectTheWayBack() {
    if (fs::exists(kHidden)) fs::rename(kHidden, kCapture);
    const Outcome outcome = simrec(kUnstage);
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    Picture found = picture();
    if (row.prunes) forgetPruned(found, origin);
    EXPECT_EQ(found, origin);
    const std::string kept = kData + ".simrec/edited/" + kEdited;
    EXPECT_EQ(contentOf(kept), row.edits ? "what a user made of it" : "");
    std::size_t others = 0;
    for (const auto& entry : fs::recursive_directory_iterator(kData + ".simrec", noFolder)) {
      others += entry.is_regular_file();
    }
    EXPECT_EQ(others, row.edits) << "something stayed in .simrec";
  }

  static constexpr char kEdited[] = "simulation_AE_AECData_camId[0]_ev[0].xml";
  std::error_code noFolder;
  const Case& row = GetParam();
  Picture origin, known, made;
};

TEST_P(StagingFaults, EveryCallMayFailOrBeTheLast) {
  prepare();
  const Outcome clean = simrec(row.command);
  ASSERT_EQ(clean.status, 0) << clean.err;
  EXPECT_EQ(takeNewCapture(made), row.command == kSet);
  const Picture done = contents();
  for (const auto& each : kFaults) {
    for (failing = 1, calls = 0; failing <= calls + kStep && !HasFailure(); failing += kStep) {
      SCOPED_TRACE(testing::Message() << "call " << failing << ": fault " << &each - kFaults);
      const int number = failing;
      failing = 0;
      prepare();
      const Outcome outcome =
          simrec(row.command, [&] { fault = each, failing = number, calls = grown = 0; });
      const bool sets = takeNewCapture(made);
      if (each.kind == Kind::kGrows) {
        EXPECT_EQ(fs::remove(kNewFile), grown == 1);
      }
      if (each.kind == Kind::kKills) {
        EXPECT_EQ(outcome.status, number <= calls ? -1 : 0);
      } else if (!isRefusal(outcome) && !(row.prunes && each.kind == Kind::kGrows)) {
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(sets, row.command == kSet);
        // What has vanished need not be pruned any more.
        if (fs::exists(kHidden))
          row.prunes ? fs::remove_all(kHidden) : (fs::rename(kHidden, kCapture), 0);
        EXPECT_EQ(contents(), done);
      }
      if (each.error == EIO && isRefusal(outcome)) {
        EXPECT_FALSE(sets);
        expectNoneHidden();
      }
      expectNoHalfFile();
      expectTheWayBack();
      failing = number;
    }
    std::cout << "seen: " << failing - 1 << " failing runs, " << row.name << '\n';
    failing = 0;
  }
}

INSTANTIATE_TEST_SUITE_P(All, StagingFaults, testing::ValuesIn(kCases),
                         [](const auto& row) { return row.param.name; });

TEST(StagingKills, KilledAnyTimeAndAgain) {
  constexpr int kKills = SIMULATION_SLOW_TESTS ? 40 : 200;
  std::mt19937 random(20261123);
  std::uniform_int_distribution<unsigned int> patience(0, 6000), command(0, 4);
  const Command commands[] = {kStageA, kStageB, kUnstage, kPrune, kSet};
  Picture origin, made;
  int killed = 0;
  for (int runs = 0; killed < kKills && runs < 50 * kKills && !HasFailure(); ++runs) {
    if (!fs::exists(kCapture)) origin = fillOld(), made = newCapture();
    const Outcome outcome = simrec(
        commands[command(random)], [] {},
        [&](pid_t child) {
          usleep(patience(random));
          kill(child, SIGKILL);
        });
    killed += outcome.status == -1;
    takeNewCapture(made);
    if (runs % 3 != 0 && fs::exists(kCapture)) continue;
    ASSERT_EQ(simrec(kUnstage).status, 0);
    Picture found = picture(), expected = origin;
    forgetPruned(found, expected);
    EXPECT_EQ(found, expected);
    EXPECT_FALSE(fs::exists(kData + ".simrec"));
  }
  EXPECT_EQ(killed, kKills);
}

}  // namespace
