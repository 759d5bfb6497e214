// simrec set: a new capture with members changed.
#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/cli/staging_output.h"
#include "simrec/derivation.h"
#include "simrec/text.h"

namespace simrec::cli {
namespace {

struct Options {
  const Shared& shared;
  std::string capture, name;
  std::vector<std::string> changes;
  std::optional<int> camera;
};

Status set(const Options& options) {
  const Store store = options.shared.store();
  Derivation derivation = {store.find(options.capture), options.name, {}, options.camera};
  for (const std::string& change : options.changes) {
    derivation.changes.push_back(parseAssignment(change));
  }
  const auto [changed, others] = derive(store, derivation);
  putLeftOut(others);
  print("{} is {} with {} changed:\n", printable(options.name), printable(options.capture),
        counted(changed.size(), "record"));
  for (const std::string& name : changed) print("  {}\n", printable(name));
  return kDone;
}

}  // namespace

void addSet(CLI::App& app, const Shared& shared, Run& run) {
  auto options = std::make_shared<Options>(Options{shared, {}, {}, {}, {}});
  CLI::App& command =
      addCommand(app, "set", "make a new capture with members changed", run, options, set);
  command.add_option("CAPTURE", options->capture, "the capture to copy")->required();
  command.add_option("NAME", options->name, "the name of the new one")->required();
  command
      .add_option("CHANGE", options->changes,
                  "KIND.MEMBER=VALUE, or *= and a factor: AE_AECData.LuxIndex=350, LSC.rGain*=1.02")
      ->required();
  command
      .add_option("--camera", options->camera,
                  "change only records of this camera and those that have none")
      ->type_name("N");
  explain(command, "0 the capture is made",
          "simrec set IMG_000072 WARM ZOAWB_SpectralSensorInfo.cct=2800\n"
          "simrec set IMG_000072 FLAT 'LSC.rGain*=1.02' AE_AECData.ExposureIndexLong.Gain=2");
}

}  // namespace simrec::cli
