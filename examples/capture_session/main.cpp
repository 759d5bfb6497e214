// Plays the camera pipeline on an ordinary machine: records what its algorithms
// see for several requests and cameras, and replays one request.
#include <cstdio>
#include <exception>
#include <string>

#include "data_folder.h"
#include "library_log.h"
#include "options.h"
#include "ppm.h"
#include "report.h"
#include "session.h"

namespace capture {
namespace {

ExitStatus refuse(const std::string& what, const std::string& problem) {
  std::fprintf(stderr, "capture_session: %s: %s\n", what.c_str(), problem.c_str());
  return kNotStarted;
}

ExitStatus report(const Options& options, const Session& session) {
  printTable(options, session.results());
  printRuns(session.runTotals());
  printSummary(options, session);
  printProblems(session.problems());
  const bool shown = std::fflush(stdout) == 0 && !std::ferror(stdout);
  return shown && session.problems().count == 0 ? kAllAsExpected : kSomethingDiffered;
}

ExitStatus play(const Options& options, const Scene& scene) {
  setUpLibraryLog(options.log);
  printHeader(options, scene);
  Session session(scene, options);
  {
    ProgressBar progress(options.requests, /*wanted=*/!options.log);
    session.capture([&progress] { progress.step(); });
  }
  session.replay(lightOf(options.illuminant == "A" ? "D65" : "A"));
  return report(options, session);
}

ExitStatus runProgram(int argc, const char* const* argv) {
  Options options;
  if (const auto status = parseOptions(argc, argv, &options)) return *status;
  Scene scene;
  if (options.image.empty()) {
    scene = drawChart();
  } else if (const std::string problem = readPpm(options.image, &scene); !problem.empty()) {
    return refuse(options.image, problem);
  }
  const std::string problem = prepareDataFolder(options.data);
  return problem.empty() ? play(options, scene) : refuse(options.data, problem);
}

}  // namespace
}  // namespace capture

int main(int argc, char** argv) {
  try {
    return capture::runProgram(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "capture_session: %s\n", error.what());
    return capture::kSomethingDiffered;
  }
}
