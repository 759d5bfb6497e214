#include "session.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "data_folder.h"
#include "library_log.h"

namespace capture {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kDump = 0, kReadback = 1;

std::string placeOf(const Record& record, const View& view) {
  return std::string(record.name) + " of request " + std::to_string(view.request()) + ", camera " +
         std::to_string(view.camera());
}

/// A replayed request is of no burst of the session.
constexpr char kReplayFolder[] = "REPLAY";

}  // namespace

void Problems::add(const std::string& problem) {
  constexpr std::size_t kKept = 10;
  if (++count <= kKept) first.push_back(problem);
}

Session::Session(const Scene& scene, Rgb light, unsigned requests, unsigned cameras)
    : scene_(scene), light_(light), requests_(requests), cameras_(cameras), records_(allRecords()) {
  for (const Record& record : records_) {
    results_.emplace_back();
    results_.back().record = record.name;
  }
}

View Session::replayedView(unsigned camera) const {
  return View(scene_, light_, requests_ / 2, camera);
}

/// The request whose dump the replayed request finds: one of its burst where they share a file.
View Session::recordedView(const Record& record, unsigned camera) const {
  const View view = replayedView(camera);
  return View(scene_, light_, dumps_.keptIndex(record, view), camera);
}

void Session::run(const Record& record, std::uint32_t mode, const View& view, Bytes* data) {
  const std::string folder = mode == kDump ? burstFolder(view) : kReplayFolder;
  SimulationInfo info = {{}, folder.c_str(), mode};
  record.run({*SimulationMgr::getInstance(), &info, *data, view.request(), view.camera()});
  checkLog(record, view,
           mode == kDump
               ? logLines(record.log.dump, dumps_.files(record, view, requestFolder(view)))
               : logLines(record.log.replay, filesOf(record, view, "")));
}

/// Every error line is a problem, but for those that are `expected` and must be there.
void Session::checkLog(const Record& record, const View& view, std::vector<std::string> expected) {
  for (const std::string& line : takeErrorLines()) {
    const auto found = std::find(expected.begin(), expected.end(), line);
    if (found != expected.end()) {
      expected.erase(found);
      ++expectedLogLines_;
    } else {
      problems_.add("the library logged for " + placeOf(record, view) + ": " + line);
    }
  }
  if (!libraryLogsErrors()) return;
  for (const std::string& line : expected) {
    problems_.add("no log line \"" + line + "\" for " + placeOf(record, view));
  }
}

void Session::record(unsigned index) {
  for (unsigned camera = 0; camera < cameras_; ++camera) {
    const View view(scene_, light_, index, camera);
    for (std::size_t i = 0; i < records_.size(); ++i) {
      Bytes data = records_[i].compute(view);
      dumps_.add(records_[i], view);
      run(records_[i], kDump, view, &data);
      const std::string problem = dumps_.check(records_[i], view, data, &results_[i].dumped);
      if (!problem.empty()) problems_.add(problem + placeOf(records_[i], view));
    }
  }
}

void Session::replay(Rgb otherLight) {
  constexpr unsigned kLater = 7;
  for (unsigned camera = 0; camera < cameras_; ++camera) {
    for (const Record& record : records_) putInPlace(record, replayedView(camera));
    const View live(scene_, otherLight, requests_ / 2 + kLater, camera);
    for (std::size_t i = 0; i < records_.size(); ++i) {
      replayRecord(records_[i], recordedView(records_[i], camera), live, &results_[i]);
    }
  }
}

/// A file that is numbered in its folder gets the number that the replay asks
/// for, which counts from 0 again.
void Session::putInPlace(const Record& record, const View& view) {
  const auto from = dumps_.files(record, view, requestFolder(view)), to = filesOf(record, view, "");
  for (std::size_t i = 0; i < from.size(); ++i) {
    std::error_code error;
    fs::copy_file(fs::path(kCameraData) / from[i], fs::path(kCameraData) / to[i],
                  fs::copy_options::overwrite_existing, error);
    if (error) problems_.add("copying " + from[i] + ": " + error.message());
  }
}

void Session::replayRecord(const Record& record, const View& recordedView, const View& liveView,
                           Result* result) {
  const Bytes recorded = record.compute(recordedView);
  const Bytes before = record.compute(liveView);
  const Bytes expected = record.replay.result ? record.replay.result(recorded, before) : recorded;
  if (before == expected) problems_.add("nothing to replay: " + placeOf(record, liveView));

  Bytes live = before;
  run(record, kReadback, liveView, &live);
  const auto difference = std::mismatch(live.begin(), live.end(), expected.begin(), expected.end());
  const bool differs = live != expected;
  if (differs) {
    result->replayed = "DIFFERS at byte " + std::to_string(difference.first - live.begin()) +
                       " (camera " + std::to_string(liveView.camera()) + ")";
    problems_.add(placeOf(record, recordedView) + " was replayed with differences");
  } else if (result->replayed == "not replayed" || result->replayed == "identical") {
    result->replayed = live == recorded
                           ? "identical"
                           : std::string("identical but for ") + record.replay.difference;
  }
}

}  // namespace capture
