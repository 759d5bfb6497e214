// The request map: which request leaves when, what its image gets, what is logged.
#include "requestmap/request_map.h"

#include <simulation/request_map.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "tests/support/camera_data.h"

namespace {

namespace fs = std::filesystem;

std::ostream& operator<<(std::ostream& out, const RequestData& slot) {
  out << "fwk " << slot.fwkID << " chi " << slot.chiID << " image '" << slot.imageName << "' index "
      << slot.index << " camx";
  for (int camera = 0; camera < 6; ++camera) {
    if ((slot.camMask >> camera & 1) != 0) out << ' ' << camera << ':' << slot.camxID[camera];
  }
  return out << '\n';
}

struct RequestMapTest : CameraDataTest {
  ~RequestMapTest() override { EXPECT_EQ(tree("/proc/self/fd").size(), openBefore) << "leaked"; }

  void enqueue(std::uint64_t fwkID, std::uint64_t chiID) {
    map.enqueue({fwkID, chiID, 0, {}, {}, 0});
  }
  RequestMap map;
  const std::size_t openBefore = tree("/proc/self/fd").size();
};

struct Ring : RequestMapTest, testing::WithParamInterface<const char*> {
  void showSlots(std::ostream& out) const;
  bool perform(const Names& words, std::ostream& out);
};

/// The slots with a camera or an image, and the parked names.
void Ring::showSlots(std::ostream& out) const {
  for (const RequestData& slot : map.entries) {
    const bool used = slot.camMask != 0 || slot.imageName[0] != 0;
    if (used) out << "= slot " << &slot - map.entries << ": " << slot;
  }
  for (const RequestData& slot : map.tmpEntries) {
    if (slot.fwkID != 0) out << "= parked " << &slot - map.tmpEntries << ": " << slot;
  }
}

bool Ring::perform(const Names& words, std::ostream& out) {
  const auto number = [&](std::size_t at) { return std::stoull(words.at(at)); };
  const auto shortNumber = [&](std::size_t at) { return static_cast<unsigned int>(number(at)); };
  const auto path = [&](std::size_t at) { return kCamera + words.at(at); };
  const auto returns = [&](int result) { out << "= returns " << result << '\n'; };
  const auto name = [&] {
    std::vector<unsigned int> frames;
    for (std::size_t at = 2; at < words.size(); ++at) frames.push_back(shortNumber(at));
    const char* const image = words[1] == "null" ? nullptr : words[1].c_str();
    map.addForImageName(frames, words[1] == "empty" ? "" : image);
  };
  return call(words[0],
              {
                  {"enqueue", [&] { enqueue(number(1), number(2)); }},
                  {"insert", [&] { map.insertForCamx(number(1), number(2), shortNumber(3)); }},
                  {"offset", [&] { map.m_OffPreReqStart = number(1); }},
                  {"name", name},
                  {"dequeue", [&] { map.dequeue(); }},
                  {"dequeueAll", [&] { returns(map.dequeueAll()); }},
                  {"move", [&] { returns(map.move_file(path(1).data(), path(2).data())); }},
                  {"empty", [&] { returns(map.delete_directory(path(1).c_str(), false)); }},
                  {"delete", [&] { returns(map.delete_directory(path(1).c_str(), true)); }},
                  {"slots", [&] { showSlots(out); }},
              });
}

TEST_P(Ring, DoesAsItsFileSays) {
  playGolden(GetParam() + std::string(".ring"),
             [this](const Names& words, std::ostream& out) { return perform(words, out); });
}
INSTANTIATE_TEST_SUITE_P(All, Ring,
                         testing::Values("full", "restart", "camx", "names", "parked", "image",
                                         "move", "delete"),
                         [](const auto& row) { return row.param; });

TEST_F(RequestMapTest, BrokenBoundsAbort) {
  const auto aborts = testing::KilledBySignal(SIGABRT);
  EXPECT_EXIT(::insertForCamx(1, 1, 6), aborts, "");
  EXPECT_EXIT((map.rear = 50, enqueue(1, 1)), aborts, "");
  EXPECT_EXIT((map.rear = -1, enqueue(1, 1)), aborts, "");
  EXPECT_EXIT((map.front = 50, map.dequeue()), aborts, "");
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
      const std::string folder = "tmp/RequestID[" + std::to_string(n + 70) + "]_camId[1]/";
      fs::create_directories(kCamera + folder);
      writeFile(kCamera + folder + std::to_string(n), "");
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
