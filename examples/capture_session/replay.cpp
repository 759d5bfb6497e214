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

/// Every error line is a problem, but for those that are `expected`.
void checkLog(const std::vector<std::string>& expected, Problems* problems) {
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
    checkLog(logLines(record.log.replay, filesOf(record, view, "")), problems);
  } catch (const std::exception& error) {
    problems->add(std::string(record.name) + ": the readback throws " + error.what());
  }
  const std::uint64_t problemsBefore = problems->count;
  run(record, kDump, view, &live);
  const std::string folder = record.place == Record::kRequest
                                 ? requestFolder(view.request(), view.camera())
                                 : std::string(kReplayedImage);
  checkLog(logLines(record.log.dump, filesOf(record, view, folder)), problems);
  if (problems->count != problemsBefore) requireRoom();
  return staged;
}

/// Moves each request's records into the image's folder.
void nameImage(Problems* problems) {
  fs::create_directory(fs::path(kCameraData) / kReplayedImage);
  std::vector<unsigned> frames = {kFrame};
  addForImageName(&frames, kReplayedImage);
  insertForChi(kFrame + 1, kChi + 1);  // the newest request stays in the ring: not this one's
  dequeueAll();
  for (const std::string& line : takeErrorLines()) {
    if (line.rfind("move_file:", 0) != 0) problems->add(line);
  }
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
  nameImage(&result.problems);
  return result;
}

}  // namespace capture
