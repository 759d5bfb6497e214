// simrec unstage: the data folder as it was before anything was staged.
#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/cli/staging_output.h"
#include "simrec/text.h"

namespace simrec::cli {
namespace {

struct Options {
  const Shared& shared;
  bool dryRun = false;
};

Status unstage(const Options& options) {
  const Store store = options.shared.store();
  const auto changes = simrec::unstage(store, options.dryRun ? Doing::kDry : Doing::kReally);
  options.dryRun ? putChanges(changes) : putNotable(changes);
  if (changes.size() == countOf(Deed::kFinish, changes) + countOf(Deed::kDiscard, changes)) {
    put("nothing is staged\n");
  } else {
    print("{} {}taken away, {} brought back\n", counted(countOf(Deed::kRemove, changes), "file"),
          options.dryRun ? "would be " : "", countOf(Deed::kBringBack, changes));
  }
  return kDone;
}

}  // namespace

void addUnstage(CLI::App& app, const Shared& shared, Run& run) {
  auto options = std::make_shared<Options>(Options{shared});
  CLI::App& command = addCommand(
      app, "unstage", "take away what is staged, and bring back the rest", run, options, unstage);
  command.add_flag("--dry-run", options->dryRun, "only tell what would be done");
  explain(command, "0 nothing is staged any more", "simrec unstage");
}

}  // namespace simrec::cli
