#include "options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cstdio>
#include <string>
#include <vector>

#include "scene.h"
#include "view.h"

namespace capture {
namespace {

constexpr char kPurpose[] =
    "Plays a camera pipeline: records the inputs of its algorithms for every request and\n"
    "camera, sees that the library sorts them into the folders of their images, puts the\n"
    "files of one request in place, and replays them over other inputs.";

constexpr char kExitStatuses[] =
    "Exit status: 0 everything was as expected, 1 something differed or could not be\n"
    "written, 2 not started (bad option, image or folder); nothing was written.";

std::vector<std::string> illuminantNames() {
  std::vector<std::string> names;
  for (const Illuminant& light : illuminants()) names.emplace_back(light.name);
  return names;
}

std::string mustBeNamed(const std::string& name) { return name.empty() ? "must be named" : ""; }

/// Decimal, whatever it begins with: 010 is ten, and 0x10 no number.
CLI::Validator wholeNumber(unsigned low, unsigned high) {
  const std::string range = std::to_string(low) + " to " + std::to_string(high);
  const auto readDecimal = [=](std::string& text) {
    unsigned number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (stop != end || error != std::errc() || number < low || number > high) {
      return "'" + text + "' is no whole number from " + range;
    }
    text = std::to_string(number);
    return std::string();
  };
  return {readDecimal, range};
}

void addOptions(CLI::App* app, Options* options) {
  app->add_option("--data", options->data,
                  "Folder for the recorded files; made if missing, and\n"
                  "cleared when an earlier run made it. Refused when it\n"
                  "holds anything else")
      ->type_name("DIR")
      ->check(mustBeNamed)
      ->capture_default_str();
  auto* image = app->add_option("--image", options->image,
                                "Photograph to use as the scene: binary PPM (P6), 8 or\n"
                                "16 bit. Without it the scene is a chart of 24 colours")
                    ->type_name("FILE.ppm")
                    ->check(mustBeNamed);
  app->add_option("--illuminant", options->illuminant, "Light on the chart")
      ->type_name("NAME")
      ->check(CLI::IsMember(illuminantNames()))
      ->capture_default_str()
      ->excludes(image);
  app->add_option("--requests", options->requests, "Capture requests")
      ->type_name("N")
      ->transform(wholeNumber(1, 100000))
      ->capture_default_str();
  app->add_option("--cameras", options->cameras,
                  "Cameras. Each gives some frames of an image made of several\n"
                  "frames, and all of every other request")
      ->type_name("N")
      ->transform(wholeNumber(1, kMaxCameras))
      ->capture_default_str();
  app->add_flag("--all-large", options->allLarge,
                "Record the large inputs, 4 of the 26, of all requests: some\n"
                "3 MB of files for each. Otherwise of the six requests of a\n"
                "burst, one of which is replayed");
  app->add_flag("--log", options->log, "Print all that the library logs, as it comes, on stderr");
  app->add_flag("--replay", options->replay,
                "Record nothing anew: replay what is staged in the folder (simrec\n"
                "stage) over inputs under another light, and dump what the\n"
                "algorithms see then as the image REPLAYED");
  app->add_option("--tell", options->tell)->group("");      // for scripts/demo
  app->add_option("--simrec", options->simrec)->group("");  // for scripts/demo
}

}  // namespace

std::optional<ExitStatus> parseOptions(int argc, const char* const* argv, Options* options) {
  CLI::App app(kPurpose, "capture_session");
  app.footer(kExitStatuses);
  addOptions(&app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
      app.exit(error);
      return kAllAsExpected;
    }
    std::fprintf(stderr, "capture_session: %s (--help lists the options)\n", error.what());
    return kNotStarted;
  }
  return std::nullopt;
}

}  // namespace capture
