// The pipeline's side of the request map: plays capture runs through it, and
// follows every file that was dumped to where it must end. One run after the
// other, as the process has one map. Keeps the requests that the map holds, so
// its memory does not grow with a run. For one thread.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "problems.h"

namespace capture {

/// What the requests of one kind came to. Files that are neither moved nor in
/// tmp are deleted.
struct KindTotal {
  const char* name;
  std::uint64_t requests = 0, images = 0, files = 0, moved = 0, deleted = 0, inTmp = 0;
};

struct RunTotals {
  std::vector<KindTotal> kinds;
  std::uint64_t leftFullRing = 0;                  // requests
  std::uint64_t filesOfNewest = 0, filesKept = 0;  // in tmp, as expected
  std::uint64_t filesMisplaced = 0;                // a problem each
  std::uint64_t moveLines = 0;                     // in the library's log
};

class CaptureRuns {
 public:
  /// `record` dumps what request `index` is on one camera, under its CamX id.
  using Record = std::function<void(unsigned index, unsigned camera)>;
  CaptureRuns(unsigned cameras, Problems* problems, Record record);

  /// Plays requests `first` to `end` - 1, with a `step` for each, and lets go of
  /// all but the newest. The frame numbers that images are named by lie `offset`
  /// above those of the requests.
  void play(unsigned first, unsigned end, std::uint64_t offset, const std::function<void()>& step);

  /// Looks at the newest request, and that no file lies where none was expected.
  void finish();

  const RunTotals& totals() const { return totals_; }

 private:
  enum Place { kMoved, kDeleted, kInTmp };
  struct File {
    std::filesystem::path path;
    ino_t inode;  // tells the file from another of its name
    Place place;  // where it must be when the request has left the ring
  };
  struct Request {
    unsigned index, frame;  // `frame` is its place in the image
    std::size_t kind;
    std::string image;  // empty: none was saved
    std::vector<File> files;
  };

  unsigned shoot(std::size_t kind, unsigned first, unsigned most);
  void capture(Request request);
  void listFiles(const std::filesystem::path& folder, Request* request);
  void nameImage(const std::string& image, unsigned first, unsigned frames);
  void flush();
  void letGo(std::size_t count);
  void checkMoves(std::uint64_t expected);
  void checkFiles(const Request& request);
  bool isInPlace(const Request& request, const File& file);

  unsigned cameras_;
  Problems& problems_;
  Record record_;
  std::uint64_t offset_ = 0;
  std::deque<Request> held_;          // those in the ring, the oldest first
  std::set<std::string> namesTaken_;  // of files, in the image of the newest
  RunTotals totals_;
};

/// The last request up to `index` that is a photo of its own from every camera,
/// in a run that begins with request 0.
unsigned photoUpTo(unsigned index);

}  // namespace capture
