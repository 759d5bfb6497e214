// Plays the camera pipeline on an ordinary machine: records what its algorithms
// see for several requests and cameras, and replays one request.
#include <standard_streams.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <string>

#include "data_folder.h"
#include "library_log.h"
#include "options.h"
#include "ppm.h"
#include "replay.h"
#include "report.h"
#include "session.h"

namespace capture {
namespace {

void complain(const std::string& what, const std::string& problem) {
  std::fprintf(stderr, "capture_session: %s: %s\n", what.c_str(), problem.c_str());
}

ExitStatus refuse(const std::string& what, const std::string& problem) {
  complain(what, problem);
  return kNotStarted;
}

ExitStatus report(const Options& options, const Session& session) {
  printTable(options, session.results());
  printRuns(session.runTotals());
  printSummary(options, session);
  const std::string next = nextSteps(options, session.replayedCapture());
  if (options.tell.empty()) {
    std::fputs(next.c_str(), stdout);
  } else {
    std::ofstream(options.tell) << options.data << '\n' << session.replayedCapture() << next;
  }
  printProblems(options, session.problems());
  return session.problems().count == 0 ? kAllAsExpected : kSomethingDiffered;
}

/// The live inputs of a replay are under another light than the recorded ones.
Rgb otherLight(const Options& options) { return lightOf(options.illuminant == "A" ? "D65" : "A"); }

ExitStatus play(const Options& options, const Scene& scene) {
  setUpLibraryLog(options.log);
  printHeader(options, scene);
  Session session(scene, options);
  {
    ProgressBar progress(options.requests, /*wanted=*/!options.log);
    session.capture([&progress] { progress.step(); });
  }
  session.replay(otherLight(options));
  return report(options, session);
}

ExitStatus replay(const Options& options, const Scene& scene) {
  setUpLibraryLog(options.log);
  const Replayed replayed = replayStaged(scene, otherLight(options), options.cameras);
  printReplay(options, replayed);
  printProblems(options, replayed.problems);
  return replayed.problems.count == 0 ? kAllAsExpected : kSomethingDiffered;
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
  const std::string problem =
      options.replay ? openDataFolder(options.data) : prepareDataFolder(options.data);
  if (!problem.empty()) return refuse(options.data, problem);
  try {
    return options.replay ? replay(options, scene) : play(options, scene);
  } catch (const std::exception& error) {
    complain(options.data, explain(error, options.data) + "; the session is not complete");
    return kSomethingDiffered;
  }
}

/// The status when nothing printed was lost, and otherwise at least one that tells so.
ExitStatus withOutput(ExitStatus status) {
  const bool arrived = simulation_host::outputArrived("capture_session");
  return arrived || status != kAllAsExpected ? status : kSomethingDiffered;
}

}  // namespace
}  // namespace capture

int main(int argc, char** argv) {
  simulation_host::holdStandardStreams();
  try {
    return capture::withOutput(capture::runProgram(argc, argv));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "capture_session: %s\n", error.what());
    return capture::kSomethingDiffered;
  }
}
