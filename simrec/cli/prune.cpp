// simrec prune: captures taken away to free space.
#include <unistd.h>

#include <chrono>
#include <iostream>

#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/error.h"
#include "simrec/prune.h"
#include "simrec/quantity.h"
#include "simrec/text.h"

namespace simrec::cli {
namespace {

struct Options {
  const Shared& shared;
  PruneWishes wishes = {};
  bool dryRun = false, yes = false;
};

/// What can't be done keeps nothing else from being done; told in one line at the end.
struct Troubles {
  std::size_t count = 0;
  std::string first;

  void add(const std::string& why) {
    if (count++ == 0) first = why;
  }
  void raise() const {
    if (count == 0) return;
    throw Error(first + (count > 1 ? ", and " + counted(count - 1, "folder") + " more" : ""));
  }
};

std::string totalOf(const std::vector<Prunable>& chosen) {
  std::uint64_t files = 0, bytes = 0;
  for (const Prunable& each : chosen) {
    files += each.files;
    bytes += each.bytes;
  }
  return fmt::format("{} with {}, {}", counted(chosen.size(), "capture"), counted(files, "file"),
                     sizeText(bytes));
}

void putChosen(const std::vector<Prunable>& chosen) {
  for (const Prunable& each : chosen) {
    print("remove  {:<24} {:>5} {:>10}  {}\n", printable(each.capture.name), each.files,
          sizeText(each.bytes), localTime(each.newest));
  }
  print("{} would be removed\n", totalOf(chosen));
}

bool agrees(const std::vector<Prunable>& chosen) {
  if (isatty(STDIN_FILENO) != 1) throw Error("prune asks before it removes, or takes --yes");
  fmt::print(stderr, "Remove {}? [y/N] ", totalOf(chosen));
  std::string answer;
  if (!std::getline(std::cin, answer)) fmt::print(stderr, "\n");
  const bool agreed = answer == "y" || answer == "Y" || CLI::detail::to_lower(answer) == "yes";
  if (!agreed) put("nothing is removed\n");
  return agreed;
}

Status prune(const Options& options) {
  const Store store = options.shared.store();
  const auto now = std::chrono::nanoseconds(std::chrono::system_clock::now().time_since_epoch());
  if (options.dryRun) refuseWhileAnotherWorks(Directory(store.data()));
  Troubles troubles;
  const auto trouble = [&](const std::string& why) { troubles.add(why); };
  const std::vector<Prunable> chosen = chosenBy(options.wishes, store, now.count(), trouble);
  if (options.dryRun) {
    if (!chosen.empty() || troubles.count == 0) putChosen(chosen);
  } else if (chosen.empty()) {
    if (troubles.count == 0) put("nothing to remove\n");
  } else if (!options.yes && !agrees(chosen)) {
    return kFindings;
  } else {
    {
      Progress progress("Removing", chosen.size(), options.shared.quiet);
      simrec::prune(chosen, store, trouble, [&] { progress.step(); });
    }
    if (troubles.count == 0) print("{} removed\n", totalOf(chosen));
  }
  troubles.raise();
  return kDone;
}

}  // namespace

void addPrune(CLI::App& app, const Shared& shared, Run& run) {
  auto options = std::make_shared<Options>(Options{shared});
  CLI::App& command =
      addCommand(app, "prune", "remove captures to free space", run, options, prune);
  PruneWishes& wishes = options->wishes;
  command
      .add_option_function<std::string>(
          "--older", [&wishes](const std::string& age) { wishes.older = ageFrom(age); },
          "images, and leftovers, whose newest file is older (30s, 10m, 8h, 7d)")
      ->check([](const std::string& age) {
        return ageFrom(age) ? "" : "no age (30s, 10m, 8h, 7d): " + age;
      })
      ->type_name("AGE");
  command
      .add_option_function<std::string>(
          "--keep", [&wishes](const std::string& count) { wishes.keep = countFrom(count); },
          "all images but the newest N; those never go")
      ->check([](const std::string& count) {
        return countFrom(count) ? "" : "no number of images: " + count;
      })
      ->type_name("N");
  command
      .add_option_function<std::string>(
          "--max-bytes", [&wishes](const std::string& size) { wishes.maxBytes = sizeFrom(size); },
          "the oldest images until the rest is no larger (bytes, 500K, 200M, 2G)")
      ->check([](const std::string& size) {
        return sizeFrom(size) ? "" : "no size (bytes, 500K, 200M, 2G): " + size;
      })
      ->type_name("SIZE");
  command.add_flag("--leftovers", wishes.leftovers,
                   "requests in tmp whose newest file is older than ten minutes or AGE");
  command.add_flag("--dry-run", options->dryRun, "only tell what would be removed");
  command.add_flag("--yes", options->yes, "don't ask");
  explain(
      command,
      "0 done, also when nothing was to do; 1 the answer was no (2 where nobody could be asked)",
      "simrec prune --leftovers --dry-run\n"
      "simrec prune --older 7d --keep 20 --yes");
}

}  // namespace simrec::cli
