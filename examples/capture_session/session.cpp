#include "session.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "data_folder.h"
#include "library_log.h"

namespace capture {
namespace {

namespace fs = std::filesystem;

/// All records, in the order in which a request makes them.
std::vector<Record> allRecords() { return awbRecords(); }

constexpr std::uint32_t kDump = 0, kReadback = 1;

std::string fileName(const std::string& pattern, const View& view) {
  std::string name = pattern;
  return name.replace(name.find('#'), 1, std::to_string(view.camera()));
}

std::string placeOf(const Record& record, const View& view) {
  return std::string(record.name) + " of request " + std::to_string(view.request()) + ", camera " +
         std::to_string(view.camera());
}

bool holds(const std::string& line, const char* part) {
  return part && line.find(part) != std::string::npos;
}

}  // namespace

std::string requestFolder(const View& view) {
  return "tmp/RequestID[" + std::to_string(view.request()) + "]_camId[" +
         std::to_string(view.camera()) + "]";
}

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

void Session::run(const Record& record, std::uint32_t mode, const View& view, Bytes* data) {
  SimulationInfo info = {{}, "", mode};
  record.run({*SimulationMgr::getInstance(), &info, *data, view.request(), view.camera()});
  checkLog(record, view, mode == kReadback ? record.replayLog : nullptr);
}

/// Every error line is a problem, but for the one that is `expected`, if any,
/// and must be there.
void Session::checkLog(const Record& record, const View& view, const char* expected) {
  bool missing = expected && libraryLogsErrors();
  for (const std::string& line : takeErrorLines()) {
    if (holds(line, expected)) {
      missing = false;
      expected = nullptr;  // once
      ++expectedLogLines_;
    } else {
      problems_.add("the library logged for " + placeOf(record, view) + ": " + line);
    }
  }
  if (missing)
    problems_.add("no log line \"" + std::string(expected) + "\" for " + placeOf(record, view));
}

void Session::record(unsigned index) {
  for (unsigned camera = 0; camera < cameras_; ++camera) {
    const View view(scene_, light_, index, camera);
    for (std::size_t i = 0; i < records_.size(); ++i) {
      Bytes data = records_[i].compute(view);
      run(records_[i], kDump, view, &data);
      checkDump(records_[i], view, data, &results_[i]);
    }
  }
}

/// A binary record's files hold the bytes that were given to the operation, one
/// file after the other, and nothing else.
void Session::checkDump(const Record& record, const View& view, const Bytes& data, Result* result) {
  Bytes written;
  for (const std::string& pattern : record.files) {
    std::ifstream file(fs::path(kCameraData) / requestFolder(view) / fileName(pattern, view),
                       std::ios::binary);
    if (!file) return problems_.add("no file for " + placeOf(record, view));
    written.insert(written.end(), std::istreambuf_iterator<char>(file), {});
    ++result->files;
  }
  result->bytes += written.size();
  const bool complete = record.format == Record::kXml ? !written.empty() : written == data;
  if (!complete) problems_.add("wrong bytes in the file for " + placeOf(record, view));
}

void Session::replay(Rgb otherLight) {
  constexpr unsigned kLater = 7;
  for (unsigned camera = 0; camera < cameras_; ++camera) {
    putInPlace(camera);
    const View recorded = replayedView(camera);
    const View live(scene_, otherLight, requests_ / 2 + kLater, camera);
    for (std::size_t i = 0; i < records_.size(); ++i) {
      replayRecord(records_[i], recorded, live, &results_[i]);
    }
  }
}

void Session::putInPlace(unsigned camera) {
  const View view = replayedView(camera);
  std::error_code error;
  fs::copy(fs::path(kCameraData) / requestFolder(view), kCameraData, error);
  if (error) problems_.add("copying " + requestFolder(view) + ": " + error.message());
}

void Session::replayRecord(const Record& record, const View& recordedView, const View& liveView,
                           Result* result) {
  const Bytes recorded = record.compute(recordedView);
  const Bytes before = record.compute(liveView);
  const Bytes expected = record.replayed ? record.replayed(recorded, before) : recorded;
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
    result->replayed =
        live == recorded ? "identical" : std::string("identical but for ") + record.difference;
  }
}

}  // namespace capture
