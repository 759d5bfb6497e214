#include "options.h"

#include <CLI/CLI.hpp>
#include <cstdio>
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
    "Exit status: 0 everything was as expected, 1 something differed,\n"
    "2 not started (bad option, image or folder); nothing was written.";

std::vector<std::string> illuminantNames() {
  std::vector<std::string> names;
  for (const Illuminant& light : illuminants()) names.emplace_back(light.name);
  return names;
}

void addOptions(CLI::App* app, Options* options) {
  app->add_option("--data", options->data,
                  "Folder for the recorded files; made if missing, and cleared when an earlier "
                  "run made it. Refused when it holds anything else")
      ->type_name("DIR")
      ->check([](const std::string& name) { return name.empty() ? "must be named" : ""; })
      ->capture_default_str();
  auto* image = app->add_option("--image", options->image,
                                "Photograph to use as the scene: binary PPM (P6), 8 or 16 bit. "
                                "Without it the scene is a chart of 24 colours")
                    ->type_name("FILE.ppm");
  app->add_option("--illuminant", options->illuminant, "Light on the chart")
      ->type_name("NAME")
      ->check(CLI::IsMember(illuminantNames()))
      ->capture_default_str()
      ->excludes(image);
  app->add_option("--requests", options->requests, "Capture requests")
      ->type_name("N")
      ->check(CLI::Range(1, 100000))
      ->capture_default_str();
  app->add_option("--cameras", options->cameras,
                  "Cameras. Each gives some frames of an image made of several frames, and "
                  "all of every other request")
      ->type_name("N")
      ->check(CLI::Range(1, static_cast<int>(kMaxCameras)))
      ->capture_default_str();
  app->add_flag("--all-large", options->allLarge,
                "Record the large inputs, 4 of the 26, of all requests: some 3 MB of files for "
                "each. Otherwise of the six requests of a burst, one of which is replayed");
  app->add_flag("--log", options->log, "Print all that the library logs, as it comes, on stderr");
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
