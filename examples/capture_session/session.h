// One capture session: records every request of two capture runs, then replays
// one of them over other live inputs and compares. Works on the files under kCameraData.
// For one thread.
#pragma once

#include <simulation/simulation.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "capture_run.h"
#include "dumps.h"
#include "options.h"
#include "problems.h"
#include "record.h"
#include "scene.h"

namespace capture {

/// What became of one record in all requests and cameras.
struct Result {
  std::string record;  // a '*' ends the name of a large one
  Written dumped;
  std::string replayed = "not replayed";
};

class Session {
 public:
  /// `scene` must outlive the session.
  Session(const Scene& scene, const Options& options);

  /// Records all requests: most in one run, the last fifth in a second one,
  /// offline. Large records are left out but for the burst of the request to be
  /// replayed, if the options don't want them all. Calls `step` after each request.
  void capture(const std::function<void()>& step);

  /// Does what an operator does: copies the files of the request to be replayed
  /// from the folder of its image to where they are read back. Then replays every
  /// camera of it over inputs of a later request under `otherLight`.
  void replay(Rgb otherLight);

  const std::vector<Result>& results() const { return results_; }
  const Problems& problems() const { return problems_; }
  const RunTotals& runTotals() const { return runs_.totals(); }
  std::uint64_t expectedLogLines() const { return expectedLogLines_; }

  View replayedView(unsigned camera) const;

  /// Where the files of the replayed request and camera are, below kCameraData.
  std::string replayedFolder(unsigned camera) const;

  /// What simrec calls the capture with the files of the replayed request's first camera.
  std::string replayedCapture() const;

 private:
  void record(unsigned index, unsigned camera);
  bool isRecorded(const Record& record, unsigned index) const;
  View recordedView(const Record& record, unsigned camera) const;
  void putInPlace(const Record& record, unsigned camera);
  void takeAway(const Record& record, unsigned camera);
  void replayRecord(const Record& record, const View& recordedView, const View& liveView,
                    Result* result);
  void run(const Record& record, std::uint32_t mode, const View& view, Bytes* data);
  void checkLog(const Record& record, const View& view, std::vector<std::string> expected);

  const Scene& scene_;
  Rgb light_;
  unsigned requests_, cameras_;
  bool allLarge_;
  unsigned online_;    // requests of the first run
  unsigned replayed_;  // a photo in the middle of it
  std::vector<Record> records_;
  std::vector<Result> results_;
  Dumps dumps_;
  Problems problems_;
  CaptureRuns runs_;
  std::uint64_t expectedLogLines_ = 0;
};

}  // namespace capture
