// Nothing that was dumped is lost when the camera process is killed, or when its
// threads dump all at once.
#include <simulation/request_map.h>
#include <sys/wait.h>

#include <atomic>
#include <csignal>
#include <filesystem>
#include <set>
#include <thread>

#include "core/data_paths.h"
#include "requestmap/request_map.h"
#include "tests/support/all_records.h"

namespace {

namespace fs = std::filesystem;

using LossTest = CameraDataTest;

TEST_F(LossTest, AKilledRunLosesNoDump) {
  constexpr unsigned int kLast = 120;
  const RecordOperation& record = recordNamed("AWBTuningMode");
  const std::string file = "/simulation_" + std::string(record.file), whole = record.memory(1);
  const auto image = [](unsigned int n) { return kCamera + std::to_string(n); };
  const pid_t child = fork();
  for (unsigned int n = child == 0 ? 1 : 0; n != 0; ++n) {
    insertForChi(n, n);
    insertForCamx(n, n, kCamId);
    record.run(0, std::string(whole).data(), n);
    fs::create_directory(image(n));
    std::vector<unsigned int> frames = {n};
    addForImageName(&frames, std::to_string(n).c_str());
  }
  while (!fs::exists(image(kLast))) ASSERT_EQ(waitpid(child, nullptr, WNOHANG), 0) << "crashed";
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  for (unsigned int n = 1; fs::exists(image(n)); ++n) {
    const std::string tmp = simulation::requestFolder(n, kCamId).c_str() + file;
    const std::string moved = image(n) + file;
    ASSERT_NE(fs::exists(tmp), fs::exists(moved)) << n;
    EXPECT_TRUE(n > kLast - simulation::kRingSlots || fs::exists(moved)) << n << " has left";
    EXPECT_EQ(readFile(fs::exists(tmp) ? tmp : moved), whole) << n;
  }
}

TEST_F(LossTest, ThreadsShareTheRingAndTheCounterOfLensShading) {
  // Nothing is logged: the log's own lock would put the threads in an order.
  setenv("persist.vendor.camera.simulation.loglevel", "100", 1);
  const auto replayed = [](const RecordOperation& record, const std::string& folder) {
    std::string data = record.memory(2);
    record.run(1, data.data(), kRequest, kCamId, folder.c_str());
    return data;
  };
  std::vector<std::string> alone;
  for (const RecordOperation& record : kAllRecords) {
    record.run(0, record.memory(1).data());
    fs::rename(record.dumped(), record.replayed());
    alone.push_back(replayed(record, "alone"));
  }
  Simulation::m_LscIndex.clear();
  RequestMap map;
  std::atomic<bool> started{false};
  const auto capture = [&](unsigned int first) {
    while (!started) std::this_thread::yield();
    for (unsigned int n = first; n < first + 16; ++n, std::this_thread::yield()) {
      map.enqueue({n, n + 1000, 0, {}, {}, 0});
      for (unsigned int camera = 0; camera < 6; ++camera, std::this_thread::yield()) {
        map.insertForCamx(n + 1000, n, camera);
      }
      map.addForImageName({n, 2}, std::to_string(n).c_str());
    }
    for (unsigned int n = first; n < first + 16; ++n) {
      auto expected = alone.begin();
      const std::string own = std::to_string(n);
      for (const RecordOperation& record : kAllRecords) {
        const bool counted = record.name == std::string("LscMeta");
        record.run(0, record.memory(1).data(), n, kCamId, counted ? "shared" : own.c_str());
        EXPECT_EQ(replayed(record, own), *expected++) << record.name;
      }
    }
  };
  std::vector<std::thread> threads;
  for (const unsigned int first : {100U, 200U, 300U}) threads.emplace_back(capture, first);
  started = true;
  for (std::thread& thread : threads) thread.join();
  std::set<std::string> images;
  for (const RequestData& slot : map.entries) {
    if (slot.camxID[kCamId] == slot.fwkID) images.insert(slot.imageName);
  }
  EXPECT_EQ(images.size(), 48U + 1U) << "each request's, and the free slots' empty one";
  EXPECT_EQ(tree(kCamera + "shared").size(), 48U) << "an index came twice";
  for (const std::string& path : tree()) {
    const std::string other = kCamera + fs::path(path).filename().string();
    if (!fs::is_regular_file(kCamera + path) || !fs::exists(other)) continue;
    EXPECT_TRUE(readFile(kCamera + path) == readFile(other)) << path;
  }
}

}  // namespace
