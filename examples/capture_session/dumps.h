// What the dumps leave on disk. Records of a request have its folder to
// themselves; others share a folder with the requests of a burst, where the file
// of the first, of the last or of each of them stays. For one thread.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "record.h"

namespace capture {

/// Files that were written, at their final sizes; one that is written again counts once.
struct Written {
  std::uint64_t files = 0, bytes = 0;
};

class Dumps {
 public:
  /// `photo` has a folder of its own for such records: that of its image.
  explicit Dumps(unsigned photo) : photo_(photo) {}

  /// The folder, below kCameraData, of records that don't have a request's to themselves.
  std::string namedFolder(unsigned index) const;

  /// Call it before the record of that view is dumped.
  void add(const Record& record, const View& view);

  /// Where the newest dump is, below kCameraData: in `folder`, or in that of the burst.
  std::vector<std::string> files(const Record& record, const View& view,
                                 const std::string& folder) const;

  /// The request whose dump is found there.
  unsigned keptIndex(const Record& record, const View& view) const;

  /// Looks at the newest dump, of `data`. Returns an empty text, else the
  /// beginning of one that tells what is wrong with it.
  std::string check(const Record& record, const View& view, const Bytes& data, Written* written);

 private:
  struct Kept {
    unsigned dumps = 0, index = 0;  // of the burst so far; of the request that is kept
    Written counted;
  };

  std::string keyOf(const Record& record, const View& view) const;
  void count(const Record& record, const View& view, const Written& dump, Written* written);

  unsigned photo_;
  std::map<std::string, Kept> kept_;  // of each record, burst and camera
};

}  // namespace capture
