// One capture session: records every request, then replays one of them over
// other live inputs and compares. Works on the files under kCameraData.
// For one thread.
#pragma once

#include <simulation/simulation.h>

#include <cstdint>
#include <string>
#include <vector>

#include "dumps.h"
#include "record.h"
#include "scene.h"

namespace capture {

/// What became of one record in all requests and cameras.
struct Result {
  std::string record;
  Written dumped;
  std::string replayed = "not replayed";
};

/// What should not have happened: all of it counted, the beginning kept.
struct Problems {
  std::uint64_t count = 0;
  std::vector<std::string> first;

  void add(const std::string& problem);
};

class Session {
 public:
  /// `scene` must outlive the session. Requests and cameras are 1 or more.
  Session(const Scene& scene, Rgb light, unsigned requests, unsigned cameras);

  /// Records request `index`, 0 to requests - 1, of every camera.
  void record(unsigned index);

  /// Does what an operator does: copies the files of the request to be replayed
  /// to where they are read back. Then replays every camera of it over inputs
  /// of a later request under `otherLight`.
  void replay(Rgb otherLight);

  const std::vector<Result>& results() const { return results_; }
  const Problems& problems() const { return problems_; }
  std::uint64_t expectedLogLines() const { return expectedLogLines_; }

  View replayedView(unsigned camera) const;

 private:
  View recordedView(const Record& record, unsigned camera) const;
  void putInPlace(const Record& record, const View& view);
  void replayRecord(const Record& record, const View& recordedView, const View& liveView,
                    Result* result);
  void run(const Record& record, std::uint32_t mode, const View& view, Bytes* data);
  void checkLog(const Record& record, const View& view, std::vector<std::string> expected);

  const Scene& scene_;
  Rgb light_;
  unsigned requests_, cameras_;
  std::vector<Record> records_;
  std::vector<Result> results_;
  Dumps dumps_;
  Problems problems_;
  std::uint64_t expectedLogLines_ = 0;
};

}  // namespace capture
