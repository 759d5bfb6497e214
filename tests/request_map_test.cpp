// The request map: which request leaves when, what its image gets, what is logged.
#include "requestmap/request_map.h"

#include <simulation/request_map.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>
#include <thread>

#include "core/path.h"
#include "tests/support/camera_data.h"

namespace {

namespace fs = std::filesystem;

/// The log since the last call must be that of tests/golden.
void expectLog(const std::string& name) {
  std::ostringstream log;
  for (const LogLine& line : takeLog()) log << line << '\n';
  EXPECT_EQ(log.str(), golden(name + ".log"));
}

std::string dumpFolder(int camxID, int camId) {
  return simulation::Path(kCamera, "tmp/RequestID[", camxID, "]_camId[", camId, "]").c_str();
}

/// Writes a file that contains its own path, and the folders it needs.
void put(const std::string& path) {
  fs::create_directories(fs::path(path).parent_path());
  writeFile(path, path);
}

class RequestMapTest : public CameraDataTest {
 protected:
  ~RequestMapTest() override { EXPECT_EQ(tree("/proc/self/fd").size(), openBefore_) << "leaked"; }

  void enqueue(int fwkID, int chiID) {
    RequestData request;
    request.fwkID = static_cast<std::uint64_t>(fwkID);
    request.chiID = static_cast<std::uint64_t>(chiID);
    map.enqueue(request);
  }
  void insertForCamx(int chiID, int camxID, int camId) {
    map.insertForCamx(static_cast<std::uint64_t>(chiID), static_cast<std::uint64_t>(camxID),
                      static_cast<std::uint32_t>(camId));
  }

  RequestMap map;

 private:
  const std::size_t openBefore_ = tree("/proc/self/fd").size();
};

TEST_F(RequestMapTest, FlushesWhenFreshThenFillsWrapsAndDropsTheOldest) {
  put(kCamera + "tmp_asd/left/over");
  for (int n = 1; n <= 130; ++n) {
    enqueue(n, n + 1000);
    insertForCamx(n + 1000, n + 500, n % 4);
  }
  expectLog("ring");
  EXPECT_EQ(tree(), Names{"tmp_asd/"});
}

TEST_F(RequestMapTest, EmptyNewestSlotRestartsTheMap) {
  for (const int chiID : {11, 12, 0}) enqueue(chiID, chiID);
  takeLog();
  for (int n = 4; n <= 52; ++n) enqueue(n, n);
  for (const int call : {1, 2}) EXPECT_EQ(map.dequeueAll(), -1) << call << " no scratch folder";
  expectLog("restart");
  EXPECT_EQ(map.entries[2].fwkID, 52U) << "the newest request stays";
}

TEST_F(RequestMapTest, CamxIdsGoToTheNewestSlotOfTheirChiId) {
  for (const int fwkID : {1, 2, 3}) enqueue(fwkID, 11);
  takeLog();
  insertForCamx(99, 7, 0);
  insertForCamx(11, 7, 5);
  map.insertForCamx(11, 0x100000008, 5);
  insertForCamx(11, 9, 0);
  insertForCamx(0, 7, 1);     // empty slots count: the first one going back is 0
  map.entries[4].chiID = 14;  // where the search ends
  insertForCamx(14, 7, 2);
  expectLog("camx");
  EXPECT_EQ(map.entries[3].camMask, 0b100001);
  EXPECT_EQ(map.entries[3].camxID[5], 0x100000008U);
  EXPECT_EQ(map.entries[0].camMask, 0b10);
  EXPECT_EQ(map.entries[4].camMask, 0b100);
}

TEST_F(RequestMapTest, BrokenBoundsAbort) {
  const auto aborts = testing::KilledBySignal(SIGABRT);
  EXPECT_EXIT(::insertForCamx(1, 1, 6), aborts, "");
  EXPECT_EXIT((map.rear = 50, enqueue(1, 1)), aborts, "");
  EXPECT_EXIT((map.rear = -1, insertForCamx(1, 1, 0)), aborts, "");
  EXPECT_EXIT((map.front = 50, map.dequeue()), aborts, "");
}

TEST_F(RequestMapTest, NamesFindTheNewestSlotOfTheirFrame) {
  const std::string name = std::string(60, 'n') + "cut here";
  for (const int fwkID : {5, 900, 5, 7}) enqueue(fwkID, 11);
  takeLog();
  const struct {
    std::uint64_t offset;
    unsigned int frame;
    int slot;
  } cases[] = {{1000, 1005, 3}, {1000, 900, 2}, {7, 7, 4}, {0x100000007, 5, 3}};
  for (const auto& row : cases) {
    RequestMap named = map;
    named.m_OffPreReqStart = row.offset;
    named.addForImageName({1, row.frame}, name.c_str());
    EXPECT_EQ(named.entries[row.slot].imageName, name.substr(0, 63));
    EXPECT_EQ(named.entries[row.slot].index, 1U);
    EXPECT_STREQ(named.entries[1].imageName, "");
  }
  expectLog("names");
}

TEST_F(RequestMapTest, EarlyNamesAreParkedByPositionAndUsedOnce) {
  map.addForImageName(std::vector<unsigned int>(40, 90), "replaced");
  for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
    map.addForImageName({1, 1, 1, 1}, nothing);
  }
  map.m_OffPreReqStart = 100;
  map.addForImageName({107, 107, 8}, "IMG");
  EXPECT_EQ(map.tmpEntries[11].fwkID, 90U);
  EXPECT_EQ(map.tmpEntries[2].index, 2U);
  for (const int fwkID : {8, 7, 7, 7, 90, 0, 6}) enqueue(fwkID, 11);  // free places have frame 0
  expectLog("parked");
  EXPECT_EQ(map.entries[3].index, 1U);
}

TEST_F(RequestMapTest, DumpsGoToTheImageOfTheirRequest) {
  const std::string longName = "/" + std::string(250, 'n');
  for (const int n : {1, 2}) enqueue(n, n + 10);
  for (const int camId : {0, 2, 5}) insertForCamx(11, 70 + camId, camId);
  map.addForImageName({1}, "IMG");
  fs::create_directory(kCamera + "IMG");
  put(dumpFolder(70, 0) + "/a");
  put(dumpFolder(72, 2) + longName);
  map.dequeue();
  takeLog();
  map.dequeue();
  expectLog("image");
  EXPECT_EQ(tree(), (Names{"IMG/", "IMG/a", "IMG" + longName, "tmp/"}));
  EXPECT_EQ(map.entries[1].imageName[0], '\0') << "the next request there has no image";
}

TEST_F(RequestMapTest, MovingOverwritesNothingThatIsThere) {
  std::string from = kCamera + "from", to = kCamera + "to";
  for (const char* name : {"/new", "/taken", "/dangling", "/loop"}) put(from + name);
  put(to + "/taken");
  fs::create_symlink("nowhere", to + "/dangling");
  fs::create_symlink("loop", to + "/loop");
  EXPECT_EQ(map.move_file(from.data(), to.data()), 0);
  EXPECT_EQ(tree(), (Names{"from/", "from/loop", "from/taken", "to/", "to/dangling", "to/loop",
                           "to/new", "to/taken"}));
  EXPECT_EQ(readFile(to + "/taken"), to + "/taken");
  EXPECT_EQ(readFile(to + "/dangling"), from + "/dangling");
  takeLog();
  EXPECT_EQ(map.move_file(from.data(), std::string("/no folder").data()), 0);
  const LogLines log = takeLog();
  EXPECT_EQ(std::count(log.begin(), log.end(), LogLine{6, "Failed to move file loop"}), 1);
  EXPECT_EQ(map.move_file(std::string("/no folder").data(), to.data()), 1);
}

TEST_F(RequestMapTest, DeletingTakesTheWholeTreeOrStops) {
  const std::string root = kCamera + "root";
  const std::string name = "/" + std::string(255, 'n');
  const struct {
    const char* link;  ///< where a link in the tree points to
    bool removeSelf;
    bool deleted;
    Names left;
  } cases[] = {{"target/inside", true, true, {"target/", "target/inside"}},
               {"target/inside", false, true, {"root/", "target/", "target/inside"}},
               {"target", true, false, {"root/", "root/link/", "target/"}},
               {"nowhere", false, false, {"root/", "root/link", "target/", "target/inside"}}};
  for (const auto& row : cases) {
    put(kCamera + "target/inside");
    if (row.deleted) put(root + name + name + name);
    fs::create_directories(root);
    fs::create_symlink(kCamera + row.link, root + "/link");
    EXPECT_EQ(map.delete_directory(root.c_str(), row.removeSelf) == 0, row.deleted);
    EXPECT_EQ(tree(), row.left);
    fs::remove_all(root);
  }
  EXPECT_EQ(map.delete_directory(root.c_str(), true), -1);
}

TEST_F(RequestMapTest, ThreadsShareTheRing) {
  enqueue(1, 1001);
  std::atomic<bool> started{false};
  std::vector<std::thread> threads;
  for (const int first : {100, 200, 300}) {
    threads.emplace_back([&, first] {
      while (!started) std::this_thread::yield();
      for (int n = first; n < first + 16; ++n, std::this_thread::yield()) {
        enqueue(n, n + 1000);
        for (int camId = 0; camId < 3; ++camId) insertForCamx(n + 1000, n, camId);
        map.addForImageName({static_cast<unsigned int>(n), 2}, std::to_string(n).c_str());
        insertForCamx(1001, n, 5);
      }
    });
  }
  started = true;
  for (std::thread& thread : threads) thread.join();
  std::set<std::uint64_t> complete;
  for (const RequestData& slot : map.entries) {
    const bool whole = slot.camMask == 0b111 && slot.chiID == slot.fwkID + 1000;
    if (whole && slot.imageName == std::to_string(slot.fwkID)) complete.insert(slot.fwkID);
  }
  EXPECT_EQ(complete.size(), 48U);
}

// The map of the process, which the child process is the first to use.
using ProcessMap = CameraDataTest;
TEST_F(ProcessMap, StartsEmptyAndLetsGoOfOneRequestAtExit) {
  const auto run = [] {
    insertForCamx(1, 1, 5);
    const bool silent = takeLog().empty();
    const bool empty = dequeueAll() == -1 && takeLog().size() == 100;
    setOffPreReqStart(100);
    for (const unsigned int n : {1U, 2U, 3U}) {
      insertForChi(n, n + 10);
      insertForCamx(n + 10, n + 70, 1);
      put(dumpFolder(static_cast<int>(n) + 70, 1) + "/" + std::to_string(n));
      if (n == 1) dequeueAll();  // brings front to the slot of request 1
    }
    std::vector<unsigned int> frames = {102, 101};
    addForImageName(&frames, "IMG");
    std::exit(silent && empty);
  };
  fs::create_directory(kCamera + "IMG");
  EXPECT_EXIT(run(), testing::ExitedWithCode(1), "");
  EXPECT_EQ(tree(), (Names{"IMG/", "IMG/1", "tmp/", "tmp/RequestID[72]_camId[1]/",
                           "tmp/RequestID[72]_camId[1]/2", "tmp/RequestID[73]_camId[1]/",
                           "tmp/RequestID[73]_camId[1]/3"}));
}

}  // namespace
