// Nothing that was dumped is lost when the camera process is killed, or when its
// threads dump all at once.
#include <simulation/request_map.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <random>
#include <thread>

#include "core/data_paths.h"
#include "tests/support/all_records.h"

namespace {

namespace fs = std::filesystem;

constexpr unsigned int kRequests = 200, kCameras = 3, kRingRequests = 50;

/// What each camera dumps.
const char* const kSmall[kCameras] = {"AECData", "AWBFaceROI", "AWBTuningMode"};
constexpr unsigned int kDumps = kRequests * kCameras;

std::string imageOf(unsigned int request) { return "IMG_" + std::to_string(request); }

/// One request in seven has no image: its dumps are deleted.
bool hasImage(unsigned int request) { return request % 7 != 0; }

struct Progress {
  std::atomic<unsigned int> begun, dumped;  ///< requests; dumps that have returned
};

/// Other bytes in every run.
void dump(unsigned int run, unsigned int request, unsigned int camera) {
  const RecordOperation& record = recordNamed(kSmall[camera]);
  record.run(0, record.memory(run).data(), request, camera);
}

void capture(unsigned int run, Progress& progress) {
  for (unsigned int request = 1; request <= kRequests; ++request) {
    progress.begun = request;
    insertForChi(request, request);
    for (unsigned int camera = 0; camera < kCameras; ++camera) {
      insertForCamx(request, request, camera);
      dump(run, request, camera);
      ++progress.dumped;
    }
    if (!hasImage(request)) continue;
    fs::create_directory(kCamera + imageOf(request));
    std::vector<unsigned int> frames = {request};
    addForImageName(&frames, imageOf(request).c_str());
  }
}

struct LossTest : CameraDataTest {
  /// Plays a run and kills it once `limit` records are dumped, and `patience` later.
  int play(unsigned int run, unsigned int limit, std::chrono::microseconds patience = {}) {
    progress->begun = progress->dumped = 0;
    const pid_t child = fork();
    if (child == 0) {
      capture(run, *progress);
      _exit(0);
    }
    int status = -1;
    while (waitpid(child, &status, WNOHANG) == 0) {
      const bool due = progress->dumped >= limit;
      std::this_thread::sleep_for(due ? patience : std::chrono::microseconds(20));
      if (due) kill(child, SIGKILL);
    }
    return status;
  }

  void expectNothingLost(unsigned int run) {
    std::string file[kCameras], whole[kCameras];
    for (unsigned int camera = 0; camera < kCameras; ++camera) {
      dump(run, kRequests + 1, camera);
      const std::string folder = simulation::requestFolder(kRequests + 1, camera).c_str();
      file[camera] = '/' + tree(folder).back();
      whole[camera] = readFile(folder + file[camera]);
    }
    for (unsigned int number = 0; number < progress->dumped; ++number) {
      const unsigned int request = number / kCameras + 1, camera = number % kCameras;
      const std::string tmp = simulation::requestFolder(request, camera).c_str() + file[camera];
      const std::string moved = kCamera + imageOf(request) + file[camera];
      const bool inTmp = fs::exists(tmp);
      ASSERT_FALSE(inTmp && request + kRingRequests < progress->begun)
          << tmp << " has left the ring";
      if (!hasImage(request) && !inTmp && request + kRingRequests <= progress->begun) continue;
      ASSERT_TRUE(inTmp != fs::exists(moved)) << tmp;
      ASSERT_EQ(readFile(inTmp ? tmp : moved), whole[camera]) << tmp;
    }
  }

  void* const shared =
      mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  Progress* const progress = new (shared) Progress;
};

TEST_F(LossTest, AKilledRunLosesNothingAndTheNextOneGoesOn) {
  std::mt19937 random(20240601);
  std::uniform_int_distribution<unsigned int> limits(0, kDumps - 50), patiences(0, 300);
  constexpr unsigned int kRuns = SIMULATION_SLOW_TESTS ? 20 : 100;
  unsigned int killed = 0;
  for (unsigned int run = 1; run <= kRuns && !HasFailure(); ++run) {
    const int status = play(run, limits(random), std::chrono::microseconds(patiences(random)));
    killed += WIFSIGNALED(status);
    EXPECT_TRUE(status == 0 || WTERMSIG(status) == SIGKILL);
    expectNothingLost(run);
    for (unsigned int request = 1; request <= kRequests; ++request) {
      fs::remove_all(kCamera + imageOf(request));
    }
  }
  EXPECT_GT(killed, kRuns / 2);
  ASSERT_EQ(play(0, kDumps + 1), 0);
  EXPECT_EQ(progress->dumped, kDumps);
  expectNothingLost(0);
  std::cout << "seen: " << killed << " runs killed, nothing lost\n";
}

/// What a readback makes of memory(2); for lens shading the first one of `folder`.
std::string replayed(const RecordOperation& record, unsigned int camera,
                     const std::string& folder) {
  std::string data = record.memory(2);
  record.run(1, data.data(), kRequest, camera, folder.c_str());
  return data;
}

TEST_F(CameraDataTest, ThreadsDumpAndReadBackAllRecordsAtOnce) {
  constexpr unsigned int kThreads = 4, kEach = 15;  // more requests than the ring has slots
  std::vector<std::string> expected;
  for (unsigned int camera = 0; camera < kCameras; ++camera) {
    for (const RecordOperation& record : kAllRecords) {
      record.run(0, record.memory(1).data(), kRequest, camera, "tmp/named");
    }
    for (const std::string& path : tree(kCamera + "tmp/")) {
      if (path.back() != '/')
        fs::rename(kCamera + "tmp/" + path, kCamera + fs::path(path).filename().string());
    }
    for (const RecordOperation& record : kAllRecords) {
      expected.push_back(replayed(record, camera, "alone" + std::to_string(camera)));
      EXPECT_NE(expected.back(), record.memory(2)) << record.name;
    }
  }
  fs::create_directory(kCamera + "image");
  const auto capture = [&](unsigned int thread) {
    const std::string folder = "thread" + std::to_string(thread);
    for (unsigned int request = thread; request < kThreads * kEach; request += kThreads) {
      insertForChi(request + 1, request + 1);
      auto alone = expected.begin();
      for (unsigned int camera = 0; camera < kCameras; ++camera) {
        insertForCamx(request + 1, request + 100, camera);
        const std::string own = folder + std::to_string(request) + std::to_string(camera);
        for (const RecordOperation& record : kAllRecords) {
          const bool counted = record.name == std::string("LscMeta");
          record.run(0, record.memory(1).data(), request + 100, camera,
                     counted ? "shared" : folder.c_str());
          EXPECT_EQ(replayed(record, camera, own), *alone++) << record.name;
        }
      }
      std::vector<unsigned int> frames = {request + 1};
      addForImageName(&frames, "image");
    }
  };
  std::vector<std::thread> threads;
  for (unsigned int thread = 0; thread < kThreads; ++thread) threads.emplace_back(capture, thread);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(tree(kCamera + "shared").size(), kThreads * kEach * kCameras) << "an index came twice";
  std::size_t dumped = 0;
  for (const std::string& path : tree()) {
    const std::string alone = kCamera + fs::path(path).filename().string();
    if (path.find('/') == path.npos || !fs::is_regular_file(alone)) continue;
    EXPECT_TRUE(readFile(kCamera + path) == readFile(alone)) << path;
    ++dumped;
  }
  // 22 records in each request's folder, three in each thread's, three gain tables.
  EXPECT_EQ(dumped, kThreads * kCameras * (22 * kEach + 4) + 3);
}

}  // namespace
