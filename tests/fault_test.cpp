// What every record operation does when the file system lets it down: at each of
// its calls in turn, on a full disk, in a read-only folder.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdarg>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>

#include "requestmap/request_map.h"
#include "tests/support/all_records.h"

namespace {

namespace fs = std::filesystem;

struct Fault {
  int error;     ///< 0: a read or write moves one byte
  bool forGood;  ///< every later call fails, too
};
constexpr Fault kFaults[] = {
    {ENOSPC, false}, {EIO, false}, {EACCES, false}, {EIO, true}, {0, false}};

Fault fault;
bool armed = false;
int calls = 0, failing = 0;
bool struck = false;
bool untold = false;  ///< what failed is not looked at: a seek, the close of a raw dump

/// Whether the fault hits the call that is under way.
bool strikes(bool transfers) {
  if (!armed || (++calls < failing || (calls > failing && !fault.forGood))) return false;
  if (fault.error == 0 && !transfers) return false;
  errno = fault.error;
  return struck = true;
}

bool fails() { return strikes(false); }

}  // namespace

// The calls that the library and the XML library make.
#define NEXT(name) reinterpret_cast<decltype(&name)>(dlsym(RTLD_NEXT, #name))
#define FAULTY extern "C" __attribute__((visibility("default")))

FAULTY int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const unsigned int mode = (flags & O_CREAT) != 0 ? va_arg(arguments, unsigned int) : 0;
  va_end(arguments);
  return fails() ? -1 : NEXT(open)(path, flags, mode);
}
FAULTY int close(int file) {
  const bool failed = fails();
  // As where what was written never reaches the disk.
  if (failed && ftruncate(file, 0) == 0) untold = true;
  const int result = NEXT(close)(file);
  EXPECT_TRUE(result == 0 || errno != EBADF) << "closed twice";
  return failed ? -1 : result;
}
FAULTY ssize_t read(int file, void* data, size_t size) {
  const bool hit = strikes(true);
  return hit && fault.error != 0 ? -1 : NEXT(read)(file, data, hit ? 1 : size);
}
FAULTY ssize_t pread(int file, void* data, size_t size, off_t at) {
  const bool hit = strikes(true);
  return hit && fault.error != 0 ? -1 : NEXT(pread)(file, data, hit ? 1 : size, at);
}
FAULTY ssize_t write(int file, const void* data, size_t size) {
  const bool hit = strikes(true);
  return hit && fault.error != 0 ? -1 : NEXT(write)(file, data, hit ? 1 : size);
}
#define FAIL_AS(result, type, name, parameters, arguments, exception) \
  FAULTY type name parameters exception { return fails() ? result : NEXT(name) arguments; }
FAIL_AS((untold = true, -1), off_t, lseek, (int f, off_t to, int from), (f, to, from), noexcept)
FAIL_AS(-1, int, access, (const char* path, int mode), (path, mode), noexcept)
FAIL_AS(-1, int, mkdir, (const char* path, mode_t mode), (path, mode), noexcept)
FAIL_AS(-1, int, stat, (const char* path, struct stat* status), (path, status), noexcept)
FAIL_AS(-1, int, fstat, (int file, struct stat* status), (file, status), noexcept)
FAIL_AS(-1, int, rename, (const char* from, const char* to), (from, to), noexcept)
FAIL_AS(-1, int, unlink, (const char* path), (path), noexcept)
FAIL_AS(-1, int, rmdir, (const char* path), (path), noexcept)
FAIL_AS(nullptr, DIR*, opendir, (const char* path), (path), )
FAIL_AS(nullptr, dirent*, readdir, (DIR * folder), (folder), )
FAIL_AS(nullptr, FILE*, fopen, (const char* path, const char* mode), (path, mode), )
FAIL_AS((untold = true, -1), int, fseeko64, (FILE * f, off64_t to, int from), (f, to, from), )
FAIL_AS(-1, off64_t, ftello64, (FILE * file), (file), )
FAIL_AS(0, size_t, fread, (void* data, size_t n, size_t m, FILE* file), (data, n, m, file), )

namespace {

using Files = std::map<std::string, std::string>;  ///< by path

Files filesOnDisk() {
  Files files;
  for (const auto& entry : fs::recursive_directory_iterator(kCamera)) {
    if (entry.is_regular_file()) files[entry.path()] = readFile(entry.path());
  }
  return files;
}

/// Whether a line tells of a success and holds `part`, or tells of a failure.
bool tells(const LogLines& log, bool success, const std::string& part = "") {
  for (const LogLine& line : log) {
    if ((line.text.find("success") != std::string::npos) != success) continue;
    if (success ? line.text.find(part) != std::string::npos : line.level == 6) return true;
  }
  return false;
}

struct EveryRecord : CameraDataTest, testing::WithParamInterface<RecordOperation> {
  void run(std::uint32_t mode) {
    Simulation::m_LscIndex.clear();
    record.run(mode, data.data());
  }

  Files dumpWhole() {
    clearCameraData();
    run(0);
    takeLog();
    return filesOnDisk();
  }

  void expectHonestDump() {
    EXPECT_EQ(data, live);
    const Files found = filesOnDisk();
    const LogLines log = takeLog();
    for (const auto& [path, bytes] : whole) {
      if (found.count(path) != 0 && found.at(path) == bytes) continue;
      EXPECT_FALSE(tells(log, true, path));
      EXPECT_TRUE(tells(log, false) || (untold && path.find(".bin") != path.npos)) << path;
    }
  }

  /// Does `work` with one call after the other failing, until none is left.
  void failEveryCall(const char* what, const std::function<void()>& prepare,
                     const std::function<void()>& work, const std::function<void()>& check) {
    int runs = 0;
    for (const Fault& each : kFaults) {
      for (failing = 1, calls = 0; failing <= calls + 1 && !HasFailure(); ++failing) {
        SCOPED_TRACE(testing::Message() << what << ": call " << failing << ": " << each.error);
        prepare();
        fault = each;
        const std::size_t openBefore = tree("/proc/self/fd").size();
        calls = 0, untold = struck = false, armed = true;
        work();
        armed = false;
        runs += struck;
        EXPECT_EQ(tree("/proc/self/fd").size(), openBefore) << "a file was left open";
        check();
      }
    }
    std::cout << "seen: " << runs << " failing runs, " << what << '\n';
  }

  const RecordOperation& record = GetParam();
  const std::string live = record.memory(1);
  std::string data = live;
  const Files whole = dumpWhole();
};

TEST_P(EveryRecord, DumpSurvivesEveryFault) {
  EXPECT_EQ(whole.count(record.dumped()), 1U);
  failEveryCall(
      "dump", clearCameraData, [&] { run(0); }, [&] { expectHonestDump(); });
}

TEST_P(EveryRecord, ReadbackSurvivesEveryFault) {
  for (const auto& file : whole) {
    fs::rename(file.first, kCamera + fs::path(file.first).filename().string());
  }
  const std::string own = data = record.memory(2);
  run(1);
  const std::string replayed = data;
  ASSERT_NE(own, replayed);
  const auto check = [&] {
    const LogLines log = takeLog();
    if (untold || data == replayed) return;
    EXPECT_TRUE(tells(log, false));
    EXPECT_TRUE(whole.size() > 1 || !tells(log, true));
    EXPECT_TRUE(!record.staged || data == own);
    for (std::size_t at = 0; at < data.size(); ++at) {
      ASSERT_TRUE(data[at] == own[at] || data[at] == replayed[at]) << at;
    }
  };
  failEveryCall(
      "readback", [&] { data = own, takeLog(); }, [&] { run(1); }, check);
}

TEST_P(EveryRecord, LeavesTheRingWithEveryFault) {
  const std::string from = kCamera + "tmp/RequestID[12]_camId[3]", to = kCamera + kImageFolder;
  if (!fs::exists(from)) GTEST_SKIP() << "in its image's folder since its dump";
  RequestMap map;
  const auto prepare = [&](const char* image) {
    dumpWhole();
    fs::create_directory(to);
    map = RequestMap();
    map.insertForCamx(0, kRequest, kCamId);
    map.addForImageName({0}, image);
    map.rear = 1;
    takeLog();
  };
  const auto checkDeleted = [&] {
    const LogLines log = takeLog();
    EXPECT_EQ(fs::exists(from), tells(log, false));
    EXPECT_EQ(fs::exists(from), !tells(log, true, "deleted"));
  };
  const auto checkMoved = [&] {
    EXPECT_TRUE(struck || !fs::exists(from));
    EXPECT_EQ(filesOnDisk().size(), whole.size());
    for (const auto& [path, bytes] : whole) {
      EXPECT_EQ(readFile(fs::exists(path) ? path : to + path.substr(from.size())), bytes);
    }
  };
  failEveryCall(
      "deletion", [&] { prepare(""); }, [&] { map.dequeue(); }, checkDeleted);
  failEveryCall(
      "move", [&] { prepare("IMG_0001"); }, [&] { map.dequeue(); }, checkMoved);
}

TEST_P(EveryRecord, DumpWithoutRoomOrRightsIsNotASuccess) {
  SKIP_WHERE_NOTHING_CAN_BE_MOUNTED();
  for (const char* room : {"nr_inodes=1", "nr_inodes=3", "size=4096", "size=40960"}) {
    SCOPED_TRACE(room);
    ASSERT_EQ(mount("none", kCamera.c_str(), "tmpfs", 0, room), 0);
    writeFile(kCamera + "first", "takes a page");
    run(0);
    expectHonestDump();
    EXPECT_EQ(umount(kCamera.c_str()), 0) << "a file was left open";
  }
  clearCameraData();
  const ReadOnlyCameraData readOnly;
  run(0);
  expectHonestDump();
}

INSTANTIATE_TEST_SUITE_P(All, EveryRecord, testing::ValuesIn(kAllRecords),
                         [](const auto& row) { return row.param.name; });

}  // namespace
