// What the program tells its user: progress on stderr, results on stdout.
#pragma once

#include "options.h"
#include "replay.h"
#include "session.h"

namespace capture {

/// A bar on stderr, if wanted and that is a terminal; gone when it is destroyed.
class ProgressBar {
 public:
  ProgressBar(unsigned steps, bool wanted);
  ~ProgressBar();
  void step();

 private:
  unsigned steps_, done_ = 0;
  bool visible_;
};

void printHeader(const Options& options, const Scene& scene);
void printTable(const Options& options, const std::vector<Result>& results);

/// How the requests went through the ring, and where their files are.
void printRuns(const RunTotals& totals);

/// What was replayed, what the log said, and where the files are.
void printSummary(const Options& options, const Session& session);

/// What was replayed from what is staged, and where the dumps are.
void printReplay(const Options& options, const Replayed& replayed);

/// Commands that look at what is there now, to be pasted into a shell in the folder that
/// this program was started in.
std::string nextSteps(const Options& options, const std::string& capture);

/// On stderr.
void printProblems(const Options& options, const Problems& problems);

}  // namespace capture
