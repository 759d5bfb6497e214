// simrec stage: a capture where readbacks look.
#include <algorithm>

#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/cli/staging_output.h"
#include "simrec/text.h"

namespace simrec::cli {
namespace {

/// Lens shading counts its calls with 16 bits.
constexpr int kMostShadingFiles = 65536;

struct Options {
  const Shared& shared;
  std::string capture;
  SelectionOptions selection;
  int shadingFiles = 0;
  bool dryRun = false;
};

void putTotal(const std::vector<Change>& changes, const Capture& capture, const char* staged) {
  print("{} of {} {}", counted(countOf(Deed::kStage, changes), "file"), printable(capture.name),
        staged);
  const std::size_t aside = countOf(Deed::kSetAside, changes);
  print("{}\n", aside == 0 ? "" : ", " + counted(aside, "file") + " set aside");
}

void putNothingToRepeat(const std::vector<File>& files) {
  const auto isShading = [](const File& file) { return file.parts->index.has_value(); };
  if (std::none_of(files.begin(), files.end(), isShading)) put("no lens shading is repeated\n");
}

Status stage(const Options& options) {
  const Selection selection = options.selection.selection();
  const Store store = options.shared.store();
  const Capture capture = store.find(options.capture);
  const std::vector<File> files = selection.of(filesOf(capture));
  const std::vector<Placement> placements = placementsOf(files, options.shadingFiles);
  const std::vector<std::string> others = leftOut(capture, files);
  if (options.dryRun) {
    const std::vector<Change> changes = simrec::stage(store, capture, placements, Doing::kDry);
    putLeftOut(others);
    if (options.shadingFiles > 0) putNothingToRepeat(files);
    putChanges(changes);
    putTotal(changes, capture, "would be staged");
    return kDone;
  }
  std::vector<Change> changes;
  {
    Progress progress("Staging", placements.size(), options.shared.quiet);
    changes = simrec::stage(store, capture, placements, Doing::kReally, [&] { progress.step(); });
  }
  putLeftOut(others);
  if (options.shadingFiles > 0) putNothingToRepeat(files);
  putNotable(changes);
  putTotal(changes, capture, "staged");
  return kDone;
}

}  // namespace

void addStage(CLI::App& app, const Shared& shared, Run& run) {
  auto options = std::make_shared<Options>(Options{shared, {}, {}});
  CLI::App& command =
      addCommand(app, "stage", "put a capture where readbacks look", run, options, stage);
  command.add_option("CAPTURE", options->capture, "an image, REQUEST/CAMERA, or a path")
      ->required();
  options->selection.addKinds(command);
  options->selection.addCamera(command);
  command
      .add_option("--lsc-repeat", options->shadingFiles,
                  "go on with the last lens-shading file until there are N")
      ->check(CLI::Range(1, kMostShadingFiles))
      ->type_name("N");
  command.add_flag("--dry-run", options->dryRun, "only tell what would be done");
  explain(command, "0 staged",
          "simrec stage IMG_000072\n"
          "simrec stage IMG_000072 'AWB_*' LSC --lsc-repeat 100");
}

}  // namespace simrec::cli
