#include "report.h"

#include <unistd.h>

#include <algorithm>
#include <cinttypes>
#include <cstdio>

namespace capture {

ProgressBar::ProgressBar(unsigned steps, bool wanted)
    : steps_(steps), visible_(wanted && isatty(STDERR_FILENO)) {}

ProgressBar::~ProgressBar() {
  if (visible_) std::fputs("\r\033[K", stderr);
}

void ProgressBar::step() {
  constexpr unsigned kWidth = 40;
  const auto percent = [this](unsigned done) { return std::uint64_t{done} * 100 / steps_; };
  ++done_;
  if (!visible_ || percent(done_) == percent(done_ - 1)) return;
  const int filled = static_cast<int>(std::uint64_t{done_} * kWidth / steps_);
  std::fprintf(stderr, "\rrecording [%.*s%*s] %3u%%", filled,
               "########################################", static_cast<int>(kWidth) - filled, "",
               static_cast<unsigned>(percent(done_)));
}

void printHeader(const Options& options, const Scene& scene) {
  const std::string what =
      options.image.empty() ? "chart of 24 colours under " + options.illuminant : options.image;
  std::printf("Scene: %s (%d x %d). Requests: %u, cameras: %u.\n\n", what.c_str(), scene.width(),
              scene.height(), options.requests, options.cameras);
}

void printTable(const Options& options, const std::vector<Result>& results) {
  std::printf("%-19s %7s %11s  %s\n", "record", "files", "bytes", "replayed");
  for (const Result& result : results) {
    std::printf("%-19s %7" PRIu64 " %11" PRIu64 "  %s\n", result.record.c_str(),
                result.dumped.files, result.dumped.bytes, result.replayed.c_str());
  }
  const auto asExpected = std::count_if(results.begin(), results.end(), [](const Result& result) {
    return result.replayed.rfind("identical", 0) == 0;
  });
  std::printf("%td of %zu records replayed as expected.%s\n", asExpected, results.size(),
              options.allLarge ? ""
                               : " Those marked * are large: recorded in the\nsix requests of a "
                                 "burst only, all others in every request (see --all-large).");
}

void printRuns(const RunTotals& totals) {
  std::printf("\n%-22s %8s %8s %9s %9s %9s %9s\n", "requests", "count", "images", "files", "moved",
              "deleted", "in tmp");
  for (const KindTotal& kind : totals.kinds) {
    std::printf(
        "%-22s %8" PRIu64 " %8" PRIu64 " %9" PRIu64 " %9" PRIu64 " %9" PRIu64 " %9" PRIu64 "\n",
        kind.name, kind.requests, kind.images, kind.files, kind.moved, kind.deleted, kind.inTmp);
  }
  std::printf("\nA full ring let go of %" PRIu64
              " requests, dequeueAll of the rest but the newest.\n",
              totals.leftFullRing);
  std::printf("In tmp: %" PRIu64 " files of the newest request, %" PRIu64
              " whose name an earlier file of their image had\ntaken. "
              "Lost or in the wrong place: %" PRIu64 " files.\n",
              totals.filesOfNewest, totals.filesKept, totals.filesMisplaced);
}

void printSummary(const Options& options, const Session& session) {
  const View view = session.replayedView(0);
  std::printf("\nReplayed request %u over live inputs of a later request under another light.\n",
              view.request());
  std::printf("Error lines in the library's log: %" PRIu64
              " expected (each move; some\nsuccesses are logged so), %" PRIu64 " problems.\n",
              session.expectedLogLines() + session.runTotals().moveLines, session.problems().count);
  std::printf(
      "Requests share folders in bursts: offline statistics are those of the first of a burst,\n"
      "what ACB sees that of the last; lens shading tables are numbered, the last was replayed.\n");
  const bool slash = options.data.back() == '/';
  std::printf(
      "The files are in %s; one to look at:\n  %s%s%s/simulation_AWB_ExtExposure_camId[0].xml\n",
      options.data.c_str(), options.data.c_str(), slash ? "" : "/",
      session.replayedFolder(0).c_str());
}

void printProblems(const Problems& problems) {
  for (const std::string& problem : problems.first) {
    std::fprintf(stderr, "capture_session: %s\n", problem.c_str());
  }
  if (problems.count > problems.first.size()) {
    std::fprintf(stderr, "capture_session: ... and %" PRIu64 " more\n",
                 problems.count - problems.first.size());
  }
}

}  // namespace capture
