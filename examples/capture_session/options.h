// The command line of the host program.
#pragma once

#include <optional>
#include <string>

namespace capture {

enum ExitStatus { kAllAsExpected = 0, kSomethingDiffered = 1, kNotStarted = 2 };

struct Options {
  std::string data = "capture-data/";
  std::string image;  // empty: the colour chart
  std::string illuminant = "D65";
  unsigned requests = 200;
  unsigned cameras = 3;
  bool allLarge = false;  // large records of all requests
  bool log = false;
  bool replay = false;            // what is staged, instead of recording
  std::string tell;               // a file for what scripts/demo goes on with; empty: none
  std::string simrec = "simrec";  // how the toolkit is called, for what is printed last
};

/// Fills `options`. A value is the status to exit with at once: the help was
/// printed, or what is wrong with the options.
std::optional<ExitStatus> parseOptions(int argc, const char* const* argv, Options* options);

}  // namespace capture
