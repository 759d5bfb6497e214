#include "report.h"

#include <unistd.h>

#include <algorithm>
#include <cinttypes>
#include <cstdio>

#include "data_folder.h"

namespace capture {
namespace {

constexpr std::size_t kColumns = 100;

/// Ends a line that has `indent` columns; words that find no room go below them.
void printWords(const std::string& words, std::size_t indent) {
  std::size_t from = 0;
  while (words.size() - from > kColumns - indent) {
    const std::size_t blank = words.rfind(' ', from + kColumns - indent);
    if (blank == std::string::npos || blank < from) break;
    std::printf("%.*s\n%*s", static_cast<int>(blank - from), &words[from], static_cast<int>(indent),
                "");
    from = blank + 1;
  }
  std::printf("%s\n", &words[from]);
}

/// `path` as a word of a shell's command, of which no program takes it for an option.
std::string shellWord(const std::string& path) {
  constexpr char kPlain[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/._-+,:@%=";
  if (path.front() == '-') return shellWord("./" + path);
  if (path.find_first_not_of(kPlain) == std::string::npos) return path;
  std::string word = "'";
  for (const char c : path) word += c == '\'' ? "'\\''" : std::string{c};
  return word + "'";
}

}  // namespace

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
    const int indent = std::printf("%-19s %7" PRIu64 " %11" PRIu64 "  ", result.record.c_str(),
                                   result.dumped.files, result.dumped.bytes);
    printWords(result.replayed, static_cast<std::size_t>(indent));
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
  std::printf("Problems: %" PRIu64 ". The library's log told of %" PRIu64
              " moves and successes, as expected.\n",
              session.problems().count, session.expectedLogLines() + session.runTotals().moveLines);
  std::printf(
      "The replayed photo has all its records in its image's folder. Other requests share one in\n"
      "bursts for offline statistics (those of the first stay), lens shading (the tables are\n"
      "numbered) and what ACB sees (that of the last stays).\n");
  const bool slash = options.data.back() == '/';
  std::printf(
      "The files are in %s; one to look at:\n  %s%s%s/simulation_AWB_ExtExposure_camId[0].xml\n",
      options.data.c_str(), options.data.c_str(), slash ? "" : "/",
      session.replayedFolder(0).c_str());
}

void printReplay(const Options& options, const Replayed& replayed) {
  std::printf("Replayed %zu of %zu records over inputs under another light.\n", replayed.records,
              replayed.records + replayed.absent.size());
  for (const std::string& record : replayed.absent) {
    std::printf("  not staged for every camera: %s\n", record.c_str());
  }
  std::printf("What the algorithms saw then is the capture %s in %s.\n", kReplayedImage,
              options.data.c_str());
}

std::string nextSteps(const Options& options, const std::string& capture) {
  const std::string simrec = shellWord(options.simrec) + " --data " + shellWord(options.data);
  return "\nTo look into them:\n  " + simrec + " list\n  " + simrec + " show " + capture +
         " AE_AECData --camera 0\n  " + simrec + " doctor " + capture + "\n";
}

void printProblems(const Options& options, const Problems& problems) {
  for (const std::string& problem : problems.first) {
    std::fprintf(stderr, "capture_session: %s\n", asNamed(problem, options.data).c_str());
  }
  if (problems.count > problems.first.size()) {
    std::fprintf(stderr, "capture_session: ... and %" PRIu64 " more\n",
                 problems.count - problems.first.size());
  }
}

}  // namespace capture
