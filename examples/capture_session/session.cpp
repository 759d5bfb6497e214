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

std::string folderOf(const View& view) { return requestFolder(view.request(), view.camera()); }

/// A replayed request is of no burst of the session.
constexpr char kReplayFolder[] = "REPLAY";

}  // namespace

Session::Session(const Scene& scene, const Options& options)
    : scene_(scene),
      light_(lightOf(options.illuminant)),
      requests_(options.requests),
      cameras_(options.cameras),
      allLarge_(options.allLarge),
      online_(requests_ - requests_ / 5),
      replayed_(photoUpTo(online_ / 2)),
      records_(allRecords()),
      dumps_(replayed_),
      runs_(cameras_, &problems_,
            [this](unsigned index, unsigned camera) { record(index, camera); }) {
  for (const Record& record : records_) {
    results_.emplace_back();
    results_.back().record = record.name + std::string(record.large ? "*" : "");
  }
}

View Session::replayedView(unsigned camera) const {
  return View(scene_, light_, replayed_, camera);
}

/// The only request is also the newest, whose files stay in tmp.
std::string Session::replayedFolder(unsigned camera) const {
  return requests_ == 1 ? folderOf(replayedView(camera)) : imageFolder(replayed_);
}

std::string Session::replayedCapture() const {
  const View view = replayedView(0);
  return requests_ == 1 ? std::to_string(view.request()) + "/" + std::to_string(view.camera())
                        : imageFolder(replayed_);
}

/// The request whose dump the replayed request finds: one of its burst where they share a file.
View Session::recordedView(const Record& record, unsigned camera) const {
  const View view = replayedView(camera);
  return View(scene_, light_, dumps_.keptIndex(record, view), camera);
}

void Session::run(const Record& record, std::uint32_t mode, const View& view, Bytes* data) {
  const std::string folder = mode == kDump ? dumps_.namedFolder(view.index()) : kReplayFolder;
  SimulationInfo info = {{}, folder.c_str(), mode};
  record.run({*SimulationMgr::getInstance(), &info, *data, view.request(), view.camera()});
  checkLog(record, view,
           mode == kDump ? logLines(record.log.dump, dumps_.files(record, view, folderOf(view)))
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

void Session::capture(const std::function<void()>& step) {
  constexpr std::uint64_t kOfflineOffset = 1000;
  runs_.play(0, online_, 0, step);
  if (online_ < requests_) runs_.play(online_, requests_, kOfflineOffset, step);
  runs_.finish();
}

void Session::record(unsigned index, unsigned camera) {
  const View view(scene_, light_, index, camera);
  for (std::size_t i = 0; i < records_.size(); ++i) {
    if (!isRecorded(records_[i], index)) continue;
    const std::uint64_t problemsBefore = problems_.count;
    Bytes data = records_[i].compute(view);
    dumps_.add(records_[i], view);
    run(records_[i], kDump, view, &data);
    const std::string problem = dumps_.check(records_[i], view, data, &results_[i].dumped);
    if (!problem.empty()) problems_.add(problem + placeOf(records_[i], view));
    if (problems_.count != problemsBefore) requireRoom();
  }
}

bool Session::isRecorded(const Record& record, unsigned index) const {
  return allLarge_ || !record.large || burstFolder(index) == burstFolder(replayed_);
}

void Session::replay(Rgb otherLight) {
  constexpr unsigned kLater = 7;
  for (unsigned camera = 0; camera < cameras_; ++camera) {
    for (const Record& record : records_) putInPlace(record, camera);
    const View live(scene_, otherLight, replayed_ + kLater, camera);
    for (std::size_t i = 0; i < records_.size(); ++i) {
      replayRecord(records_[i], recordedView(records_[i], camera), live, &results_[i]);
    }
    for (const Record& record : records_) takeAway(record, camera);
  }
}

/// So that the live data is used again.
void Session::takeAway(const Record& record, unsigned camera) {
  for (const std::string& file : filesOf(record, replayedView(camera), "")) {
    std::error_code error;
    fs::remove(fs::path(kCameraData) / file, error);
    if (error) problems_.add("removing " + file + ": " + error.message());
  }
}

/// A file that is numbered in its folder gets the number that the replay asks
/// for, which counts from 0 again.
void Session::putInPlace(const Record& record, unsigned camera) {
  const View view = replayedView(camera);
  const auto from = dumps_.files(record, view, replayedFolder(camera));
  const auto to = filesOf(record, view, "");
  for (std::size_t i = 0; i < from.size(); ++i) {
    std::error_code error;
    fs::copy_file(fs::path(kCameraData) / from[i], fs::path(kCameraData) / to[i],
                  fs::copy_options::overwrite_existing, error);
    if (!error) continue;
    problems_.add("copying " + from[i] + ": " + error.message());
    requireRoom();
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
