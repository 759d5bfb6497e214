#include "capture_run.h"

#include <simulation/request_map.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <system_error>
#include <utility>

#include "catalogue/file_name.h"
#include "data_folder.h"
#include "library_log.h"
#include "view.h"

namespace capture {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kRing = 50;  // requests that the map holds
constexpr unsigned kNever = ~0U;

/// What a run shoots, in turns. The name of the image comes when that many of
/// its frames were captured: earlier frames are found in the ring, for later
/// ones the name is parked.
struct Kind {
  const char* name;
  unsigned frames, namedAfter;
};
constexpr Kind kKinds[] = {
    {"photo", 1, 1},    {"no image", 1, kNever},         {"photo, named first", 1, 0},
    {"3 frames", 3, 3}, {"3 frames, named first", 3, 0}, {"3 frames, named amid", 3, 1},
};
constexpr unsigned kRequestsOfTurns = 12;

// The numbers under which the pipeline knows a request differ, but overlap those
// of other requests.
unsigned frameNumber(unsigned index) { return index + 1; }
std::uint64_t chiId(unsigned index) { return index + 101; }

/// The frames of an image come from different cameras where there are enough:
/// the names of most files tell the camera, but not the frame.
bool reaches(unsigned frames, unsigned frame, unsigned camera, unsigned cameras) {
  return frames == 1 || camera % frames == frame % std::min(frames, cameras);
}

fs::path inData(const fs::path& path) { return kCameraData / path; }

/// 0 when there is nothing.
ino_t inodeOf(const fs::path& path) {
  struct stat status;
  return lstat(inData(path).c_str(), &status) == 0 ? status.st_ino : 0;
}

/// Named folders, an image's among them, hold files that no request moved there.
bool isMovable(const fs::path& file) {
  const auto parts = catalogue::parseFileName(file.filename().string());
  return !parts || parts->kind->place == catalogue::Place::kRequest;
}

std::uint64_t movableFilesBelow(const fs::path& folder) {
  if (!fs::is_directory(folder)) return 0;
  const fs::recursive_directory_iterator entries(folder);
  return static_cast<std::uint64_t>(std::count_if(
      begin(entries), end(entries),
      [](const auto& entry) { return !entry.is_directory() && isMovable(entry.path()); }));
}

/// In the image's folders and in tmp.
std::uint64_t filesInData() {
  std::uint64_t count = 0;
  for (const auto& entry : fs::directory_iterator(kCameraData)) {
    const std::string name = entry.path().filename();
    if (name == "tmp" || name.rfind("IMG_", 0) == 0) count += movableFilesBelow(entry);
  }
  return count;
}

}  // namespace

unsigned photoUpTo(unsigned index) { return index / kRequestsOfTurns * kRequestsOfTurns; }

CaptureRuns::CaptureRuns(unsigned cameras, Problems* problems, Record record)
    : cameras_(cameras), problems_(*problems), record_(std::move(record)) {
  for (const Kind& kind : kKinds) totals_.kinds.push_back({kind.name});
}

void CaptureRuns::play(unsigned first, unsigned end, std::uint64_t offset,
                       const std::function<void()>& step) {
  offset_ = offset;
  setOffPreReqStart(offset);
  for (std::size_t turn = 0; first < end; ++turn) {
    const unsigned next = first + shoot(turn % std::size(kKinds), first, end - first);
    for (; first < next; ++first) step();
  }
  flush();
}

/// One image, or one request without. Returns how many requests it took, `most`
/// at most.
unsigned CaptureRuns::shoot(std::size_t kind, unsigned first, unsigned most) {
  const bool saved = kKinds[kind].namedAfter != kNever;
  const unsigned frames = std::min(kKinds[kind].frames, most);
  const unsigned namedAfter = std::min(kKinds[kind].namedAfter, frames);
  const std::string image = saved ? imageFolder(first) : "";
  totals_.kinds[kind].images += saved;
  namesTaken_.clear();
  for (unsigned frame = 0; frame <= frames; ++frame) {
    if (saved && frame == namedAfter) nameImage(image, first, frames);
    if (frame < frames) capture({first + frame, frame, kind, image, {}});
  }
  return frames;
}

void CaptureRuns::nameImage(const std::string& image, unsigned first, unsigned frames) {
  fs::create_directory(inData(image));  // the library moves files into it, but never makes it
  std::vector<unsigned> numbers;
  for (unsigned frame = 0; frame < frames; ++frame) {
    numbers.push_back(static_cast<unsigned>(frameNumber(first + frame) + offset_));
  }
  addForImageName(&numbers, image.c_str());
}

void CaptureRuns::capture(Request request) {
  insertForChi(frameNumber(request.index), chiId(request.index));
  if (held_.size() == kRing) {
    letGo(1);
    ++totals_.leftFullRing;
  }
  for (unsigned camera = 0; camera < cameras_; ++camera) {
    if (!reaches(kKinds[request.kind].frames, request.frame, camera, cameras_)) continue;
    const unsigned camxId = camxRequest(request.index, camera);
    insertForCamx(chiId(request.index), camxId, camera);
    record_(request.index, camera);
    listFiles(requestFolder(camxId, camera), &request);
  }
  ++totals_.kinds[request.kind].requests;
  totals_.kinds[request.kind].files += request.files.size();
  held_.push_back(std::move(request));
}

/// The first file of a name goes to the image's folder; a later one, which the
/// library must not move over it, stays in tmp.
void CaptureRuns::listFiles(const fs::path& folder, Request* request) {
  std::error_code error;  // then there are no files, which are missed elsewhere
  for (const auto& entry : fs::directory_iterator(inData(folder), error)) {
    const std::string name = entry.path().filename();
    const Place place = request->image.empty()            ? kDeleted
                        : namesTaken_.insert(name).second ? kMoved
                                                          : kInTmp;
    request->files.push_back({folder / name, inodeOf(folder / name), place});
  }
}

/// The end of a run. The scratch folder of the algorithms is emptied with it.
void CaptureRuns::flush() {
  const fs::path scratch = inData("tmp_asd");
  fs::create_directory(scratch);
  std::ofstream(scratch / "simulation_scratch") << "of this run";
  if (dequeueAll() != 0 || !fs::is_empty(scratch)) problems_.add("dequeueAll left tmp_asd filled");
  letGo(held_.size() - 1);
}

/// The oldest requests have left the ring: so their files must be moved or deleted.
void CaptureRuns::letGo(std::size_t count) {
  std::uint64_t moves = 0;
  for (; count > 0; --count, held_.pop_front()) {
    const Request& request = held_.front();
    checkFiles(request);
    if (!request.image.empty()) moves += request.files.size();  // also those that stay in tmp
    totals_.filesKept += static_cast<std::uint64_t>(
        std::count_if(request.files.begin(), request.files.end(),
                      [](const File& file) { return file.place == kInTmp; }));
  }
  checkMoves(moves);
}

/// The library traces each move as an error line.
void CaptureRuns::checkMoves(std::uint64_t expected) {
  std::uint64_t moves = 0;
  for (const std::string& line : takeErrorLines()) {
    if (line.rfind("move_file:", 0) == 0) {
      ++moves;
    } else {
      problems_.add("the library logged: " + line);
    }
  }
  if (libraryLogsErrors() && moves != expected) {
    problems_.add(std::to_string(moves) + " lines for " + std::to_string(expected) + " moves");
  }
  totals_.moveLines += moves;
}

void CaptureRuns::checkFiles(const Request& request) {
  std::map<fs::path, bool> folderStays;
  for (const File& file : request.files) {
    folderStays[file.path.parent_path()] |= file.place == kInTmp;
    if (isInPlace(request, file)) continue;
    constexpr const char* kPlaces[] = {"moved to ", "deleted", "kept"};
    ++totals_.filesMisplaced;
    problems_.add(file.path.string() + " was not " + kPlaces[file.place] + request.image);
  }
  for (const auto& [folder, stays] : folderStays) {
    if ((inodeOf(folder) != 0) != stays) {
      problems_.add(folder.string() + (stays ? " is gone" : " is still there"));
    }
  }
}

/// Counts the file where it is.
bool CaptureRuns::isInPlace(const Request& request, const File& file) {
  const bool isMoved =
      !request.image.empty() && inodeOf(request.image / file.path.filename()) == file.inode;
  const Place place = isMoved ? kMoved : inodeOf(file.path) == file.inode ? kInTmp : kDeleted;
  KindTotal& total = totals_.kinds[request.kind];
  ++(place == kMoved ? total.moved : place == kInTmp ? total.inTmp : total.deleted);
  return place == file.place;
}

void CaptureRuns::finish() {
  for (File& file : held_.front().files) file.place = kInTmp;
  checkFiles(held_.front());
  totals_.filesOfNewest = held_.front().files.size();
  std::uint64_t expected = 0;
  for (const KindTotal& total : totals_.kinds) expected += total.moved + total.inTmp;
  const std::uint64_t found = filesInData();
  if (found != expected) {
    problems_.add(std::to_string(found) + " files in image folders and tmp, expected " +
                  std::to_string(expected));
  }
}

}  // namespace capture
