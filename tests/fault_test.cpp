// What every record operation does when the file system lets it down: at each of
// its calls in turn, on a full disk, in a read-only folder.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>

#include "requestmap/request_map.h"
#include "tests/support/all_records.h"
#include "tests/support/camera_data.h"

namespace {

namespace fs = std::filesystem;

struct Fault {
  int error;     ///< 0: a read or write moves one byte
  bool forGood;  ///< every later call fails, too
};
constexpr Fault kFaults[] = {
    {ENOSPC, false}, {EIO, false}, {EACCES, false}, {EIO, true}, {0, false}};

bool armed = false;
int untilFault = 0;
int calls = 0;
bool seekFailed = false;
bool closeFailed = false;  ///< with something written
Fault fault;

/// Whether the call that is under way is to fail.
bool strikes() {
  if (!armed || (++calls, untilFault < 0)) return false;
  if (untilFault > 0 && --untilFault > 0) return false;
  if (!fault.forGood) untilFault = -1;
  errno = fault.error;
  return true;
}

bool fails() { return strikes() && fault.error != 0; }

void arm(int call, const Fault& which) {
  fault = which;
  untilFault = call;
  calls = 0;
  seekFailed = closeFailed = false;
  armed = true;
}

template <typename Function>
Function* next(Function*, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// The calls that the library and the XML library make.
#define NEXT(name) next(name, #name)
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
  // As where what was written reaches its disk late, or never.
  if (failed && ftruncate(file, 0) == 0) closeFailed = true;
  const int result = NEXT(close)(file);
  return failed ? -1 : result;
}
FAULTY ssize_t read(int file, void* data, size_t size) {
  const bool struck = strikes();
  return struck && fault.error != 0 ? -1 : NEXT(read)(file, data, struck && size > 1 ? 1 : size);
}
FAULTY ssize_t write(int file, const void* data, size_t size) {
  const bool struck = strikes();
  return struck && fault.error != 0 ? -1 : NEXT(write)(file, data, struck && size > 1 ? 1 : size);
}
FAULTY off_t lseek(int file, off_t offset, int whence) noexcept {
  const bool failed = fails();
  seekFailed = seekFailed || failed;
  return failed ? -1 : NEXT(lseek)(file, offset, whence);
}
FAULTY size_t fread(void* data, size_t size, size_t count, FILE* file) {
  return fails() ? 0 : NEXT(fread)(data, size, count, file);
}
#define FAIL_AS(result, type, name, parameters, arguments, exception) \
  FAULTY type name parameters exception { return fails() ? result : NEXT(name) arguments; }
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

namespace {

using Files = std::map<std::string, std::string>;  ///< by path

Files filesBelow(const std::string& folder = kCamera) {
  Files files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) files[entry.path()] = readFile(entry.path());
  }
  return files;
}

void clear() {
  for (const auto& entry : fs::directory_iterator(kCamera)) fs::remove_all(entry.path());
  takeLog();
}

struct Claims {
  bool success = false, failure = false;
};

Claims claims(const std::string& part) {
  Claims found;
  for (const LogLine& line : takeLog()) {
    const bool success = line.text.find("success") != std::string::npos;
    if (success && line.text.find(part) != std::string::npos) found.success = true;
    if (!success && line.level == 6) found.failure = true;
  }
  return found;
}

std::size_t openFiles() { return tree("/proc/self/fd").size(); }

class EveryRecord : public CameraDataTest, public testing::WithParamInterface<RecordOperation> {
 protected:
  static constexpr unsigned int kRequest = 21, kCamera1 = 1;
  const RecordOperation& record = GetParam();

  void run(std::uint32_t mode, Bytes& data) {
    SimulationInfo info = infoFor(mode);
    Simulation::m_LscIndex.clear();
    record.run(info, data.data(), kRequest, kCamera1);
  }

  /// The files of an undisturbed dump.
  Files dumpWhole() {
    clear();
    run(0, dumped);
    Files files = filesBelow();
    EXPECT_EQ(files.size(), record.files);
    return files;
  }

  void expectHonestDump(const Files& whole) {
    EXPECT_EQ(dumped, callersMemory(record, 1));
    const Files found = filesBelow();
    const LogLines log = takeLog();
    for (const auto& [path, bytes] : whole) {
      if (found.count(path) != 0 && found.at(path) == bytes) continue;
      bool failed = false;
      for (const LogLine& line : log) {
        EXPECT_NE(line.text, "dump " + path + " success");
        failed = failed || (line.level == 6 && line.text.find("success") == std::string::npos);
      }
      const bool unseen = closeFailed && fs::path(path).extension() == ".bin";
      EXPECT_TRUE(failed || unseen) << "nothing told of " << path;
    }
  }

  Bytes dumped = callersMemory(record, 1);

  void failEveryCall(const char* what, const std::function<void()>& prepare,
                     const std::function<void()>& work, const std::function<void()>& check) {
    int runs = 0;
    for (const Fault& which : kFaults) {
      for (int call = 1;; ++call, ++runs) {
        SCOPED_TRACE(std::string(what) + ": call " + std::to_string(call) + " fails with " +
                     std::to_string(which.error));
        prepare();
        const std::size_t before = openFiles();
        arm(call, which);
        work();
        armed = false;
        EXPECT_EQ(openFiles(), before) << "a file was left open";
        check();
        if (calls < call || HasFailure()) break;
      }
    }
    std::cout << what << ' ' << runs << " runs\n";
  }
};

TEST_P(EveryRecord, DumpSurvivesEveryFault) {
  const Files whole = dumpWhole();
  failEveryCall(
      "dump", clear, [&] { run(0, dumped); }, [&] { expectHonestDump(whole); });
}

TEST_P(EveryRecord, ReadbackSurvivesEveryFault) {
  for (const auto& [path, bytes] : dumpWhole()) {
    fs::rename(path, kCamera + fs::path(path).filename().string());
  }
  const Bytes live = callersMemory(record, 2);
  Bytes replayed = live, data;
  run(1, replayed);
  ASSERT_NE(live, replayed);
  const auto check = [&] {
    const Claims claim = claims("readback ");
    if (seekFailed || data == replayed) return;  // a failed seek is not noticed: other bytes
    EXPECT_TRUE(claim.failure);
    EXPECT_TRUE(record.files > 1 || !claim.success);
    EXPECT_TRUE(!record.staged || data == live);
    for (std::size_t at = 0; at < data.size(); ++at) {
      ASSERT_TRUE(data[at] == live[at] || data[at] == replayed[at]) << at;
    }
  };
  const auto prepare = [&] { data = live, takeLog(); };
  failEveryCall(
      "readback", prepare, [&] { run(1, data); }, check);
}

/// A request with an image keeps its files, each in one place.
TEST_P(EveryRecord, LeavesTheRingWithEveryFault) {
  for (const std::string image : {"IMG_0001", ""}) {
    const Files whole = dumpWhole();
    const std::string folder = "tmp/RequestID[21]_camId[1]", from = kCamera + folder;
    if (whole.begin()->first.find(from) != 0) return;  // in its image's folder since its dump
    RequestMap map;
    const auto prepare = [&] {
      dumpWhole();
      fs::create_directory(kCamera + "IMG_0001");
      map = RequestMap();
      map.rear = 1;
      map.entries[0].chiID = 1;
      map.entries[0].camMask = 1 << kCamera1;
      map.entries[0].camxID[kCamera1] = kRequest;
      image.copy(map.entries[0].imageName, 63);
      takeLog();
    };
    const auto check = [&] {
      const Claims claim = claims("deleted");
      const bool gone = !fs::exists(from);
      if (image.empty()) {
        EXPECT_EQ(claim.success, gone);
        EXPECT_EQ(claim.failure, !gone);
        return;
      }
      Files found = filesBelow();
      EXPECT_EQ(found.size(), whole.size());
      for (const auto& [path, bytes] : whole) {
        const std::string moved = kCamera + image + path.substr(from.size());
        EXPECT_EQ(found[found.count(path) != 0 ? path : moved], bytes) << path;
      }
    };
    failEveryCall(
        image.empty() ? "deletion" : "move", prepare, [&] { map.dequeue(); }, check);
  }
}

TEST_P(EveryRecord, DumpOnFullDiskIsNotASuccess) {
  const Files whole = dumpWhole();
  clear();
  for (const char* room : {"nr_inodes=1", "nr_inodes=3", "size=4096", "size=40960"}) {
    SCOPED_TRACE(room);
    ASSERT_EQ(mount("none", kCamera.c_str(), "tmpfs", 0, room), 0);
    writeFile(kCamera + "first", "takes a page");
    run(0, dumped);
    expectHonestDump(whole);
    EXPECT_EQ(umount(kCamera.c_str()), 0) << "a file was left open";
  }
}

TEST_P(EveryRecord, DumpIntoReadOnlyFolderIsNotASuccess) {
  const Files whole = dumpWhole();
  clear();
  const ReadOnlyCameraData readOnly;
  run(0, dumped);
  expectHonestDump(whole);
}

INSTANTIATE_TEST_SUITE_P(All, EveryRecord, testing::ValuesIn(kAllRecords),
                         [](const auto& record) { return record.param.name; });

}  // namespace
