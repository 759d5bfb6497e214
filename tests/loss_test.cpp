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
#include "tests/support/camera_data.h"

namespace {

namespace fs = std::filesystem;

constexpr unsigned int kRequests = 200, kCameras = 3, kSmalls = 3, kRingRequests = 49;

std::string imageOf(unsigned int run, unsigned int request) {
  return "IMG_" + std::to_string(run) + "_" + std::to_string(request);
}

/// One request in seven has no image: its dumps are deleted.
bool hasImage(unsigned int request) { return request % 7 != 0; }

/// Of kAllRecords: two raw ones and one XML.
constexpr std::size_t kSmall[kSmalls] = {0, 3, 5};
constexpr unsigned int kRecords = kRequests * kCameras * kSmalls;

struct Progress {
  std::atomic<unsigned int> begun, dumped;  ///< requests; records whose dump has returned
};

void capture(unsigned int run, Progress& progress) {
  for (unsigned int request = 1; request <= kRequests; ++request) {
    progress.begun = request;
    insertForChi(request, request);
    for (unsigned int camera = 0; camera < kCameras; ++camera) {
      insertForCamx(request, request, camera);
      for (const std::size_t row : kSmall) {
        Bytes data = kAllRecords[row].memory(1);
        kAllRecords[row].run(0, data, request, camera);
        ++progress.dumped;
      }
    }
    if (!hasImage(request)) continue;
    const std::string image = imageOf(run, request);
    fs::create_directory(kCamera + image);
    std::vector<unsigned int> frames = {request};
    addForImageName(&frames, image.c_str());
  }
}

class LossTest : public CameraDataTest {
 protected:
  LossTest() {
    for (unsigned int record = 0; record < kCameras * kSmalls; ++record) {
      const RecordOperation& operation = kAllRecords[kSmall[record % kSmalls]];
      Bytes data = operation.memory(1);
      operation.run(0, data, 1, record / kSmalls);
      file_[record] = tree().back();
      whole_[record] = readFile(kCamera + file_[record]);
      file_[record].erase(0, file_[record].rfind('/'));
      fs::remove_all(kCamera + "tmp");
    }
  }

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
    for (unsigned int record = 0; record < progress->dumped; ++record) {
      const unsigned int request = record / kSmalls / kCameras + 1;
      const unsigned int each = record % (kSmalls * kCameras), camera = each / kSmalls;
      const std::string& file = file_[each];
      const std::string folder = simulation::requestFolder(request, camera).c_str();
      const std::string tmp = folder + file;
      const std::string moved = kCamera + imageOf(run, request) + file;
      const bool inTmp = fs::exists(tmp), inImage = fs::exists(moved);
      if (!hasImage(request) && !inTmp && request + kRingRequests <= progress->begun) continue;
      ASSERT_TRUE(inTmp != inImage) << tmp;
      ASSERT_EQ(readFile(inTmp ? tmp : moved), whole_[each]) << tmp;
    }
  }

  void* const shared =
      mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  Progress* const progress = new (shared) Progress;

 private:
  /// Of one request: their names, and what they are when they are whole.
  std::string file_[kCameras * kSmalls], whole_[kCameras * kSmalls];
};

TEST_F(LossTest, AKilledRunLosesNothingAndTheNextOneGoesOn) {
  std::mt19937 random(20240601);
  std::uniform_int_distribution<unsigned int> limits(0, kRecords - 100), patiences(0, 300);
  int killed = 0;
  for (unsigned int run = 1; run <= 100 && !HasFailure(); ++run) {
    const int status = play(run, limits(random), std::chrono::microseconds(patiences(random)));
    killed += WIFSIGNALED(status);
    EXPECT_TRUE(status == 0 || WTERMSIG(status) == SIGKILL);
    expectNothingLost(run);
    for (unsigned int request = 1; request <= kRequests; ++request) {
      fs::remove_all(kCamera + imageOf(run, request));
    }
  }
  EXPECT_GT(killed, 50);
  ASSERT_EQ(play(101, kRecords + 1), 0);
  EXPECT_EQ(progress->dumped, kRecords);
  expectNothingLost(101);
  std::cout << killed << " runs killed\n";
}

TEST_F(CameraDataTest, ThreadsDumpAllRecordsAtOnce) {
  constexpr unsigned int kThreads = 4, kEach = 15;  // more requests than the ring has slots
  fs::create_directory(kCamera + "image");
  std::vector<std::thread> threads;
  for (unsigned int thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([thread] {
      const std::string folder = "thread" + std::to_string(thread);
      for (unsigned int request = thread; request < kThreads * kEach; request += kThreads) {
        insertForChi(request + 1, request + 1);
        for (unsigned int camera = 0; camera < kCameras; ++camera) {
          insertForCamx(request + 1, request + 100, camera);
          for (const RecordOperation& record : kAllRecords) {
            const bool counted = record.name == std::string("simulationForLscMeta");
            Bytes data = record.memory(1);
            record.run(0, data, request + 100, camera, counted ? "shared" : folder.c_str());
            if (!counted) record.run(1, data, request + 100, camera);
          }
        }
        std::vector<unsigned int> frames = {request + 1};
        addForImageName(&frames, "image");
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(tree(kCamera + "shared").size(), kThreads * kEach * kCameras) << "an index came twice";
}

}  // namespace
