#include "replay.h"

#include <simulation/request_map.h>

#include <algorithm>
#include <exception>
#include <filesystem>

#include "data_folder.h"
#include "library_log.h"
#include "record.h"

namespace capture {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kDump = 0, kReadback = 1;
constexpr unsigned kIndex = 7;  // of the live request
constexpr std::uint64_t kChi = 1, kFrame = 1;

/// Names no folder: nothing is dumped there.
constexpr char kReadbackFolder[] = "REPLAY";

void clearDumps(unsigned cameras) {
  fs::remove_all(fs::path(kCameraData) / kReplayedImage);
  for (unsigned camera = 0; camera < cameras; ++camera) {
    fs::remove_all(fs::path(kCameraData) / requestFolder(camxRequest(kIndex, camera), camera));
  }
}

bool isStaged(const Record& record, const View& view) {
  const auto files = filesOf(record, view, "");
  return std::all_of(files.begin(), files.end(), [](const std::string& file) {
    return fs::exists(fs::path(kCameraData) / file);
  });
}

void run(const Record& record, std::uint32_t mode, const View& view, Bytes* data) {
  SimulationInfo info = {{}, mode == kDump ? kReplayedImage : kReadbackFolder, mode};
  record.run({*SimulationMgr::getInstance(), &info, *data, view.request(), view.camera()});
}

/// What a record's replay logs as an error though all went well is no problem.
void checkLog(const Record& record, const View& view, Problems* problems) {
  const auto expected = logLines(record.log.replay, filesOf(record, view, ""));
  for (const std::string& line : takeErrorLines()) {
    if (std::find(expected.begin(), expected.end(), line) == expected.end()) problems->add(line);
  }
}

/// True when there was a file to replay.
bool replayOne(const Record& record, const View& view, Problems* problems) {
  Bytes live = record.compute(view);
  const bool staged = isStaged(record, view);
  try {
    if (staged) run(record, kReadback, view, &live);
    checkLog(record, view, problems);
  } catch (const std::exception& error) {
    problems->add(std::string(record.name) + ": the readback throws " + error.what());
  }
  run(record, kDump, view, &live);
  takeErrorLines();  // dumps that went well tell so
  return staged;
}

}  // namespace

Replayed replayStaged(const Scene& scene, Rgb light, unsigned cameras) {
  clearDumps(cameras);
  Replayed result;
  setOffPreReqStart(0);
  insertForChi(kFrame, kChi);
  for (unsigned camera = 0; camera < cameras; ++camera) {
    insertForCamx(kChi, camxRequest(kIndex, camera), camera);
  }
  for (const Record& record : allRecords()) {
    bool everywhere = true;
    for (unsigned camera = 0; camera < cameras; ++camera) {
      const bool staged = replayOne(record, View(scene, light, kIndex, camera), &result.problems);
      everywhere = everywhere && staged;
    }
    if (everywhere) {
      ++result.records;
    } else {
      result.absent.emplace_back(record.name);
    }
  }
  fs::create_directory(fs::path(kCameraData) / kReplayedImage);
  std::vector<unsigned> frames = {kFrame};
  addForImageName(&frames, kReplayedImage);
  insertForChi(kFrame + 1, kChi + 1);  // the newest request stays in the ring: not this one's
  dequeueAll();
  takeErrorLines();  // each move
  return result;
}

}  // namespace capture
