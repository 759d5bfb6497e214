// What the commands of simrec share. Each command is a file: a function that adds its options
// and says what is done with them.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "simrec/selection.h"
#include "simrec/store.h"

namespace simrec::cli {

/// Exit statuses, the same for every command.
enum Status : int {
  kDone = 0,      ///< and the answer is: yes, the same, sound, nothing to tell
  kFindings = 1,  ///< done, and the answer is: no, different, findings
  kNotDone = 2,   ///< one line on stderr says why
};

/// Options that every command takes.
struct Shared {
  std::string data;  ///< as given; empty: not given
  bool quiet = false;

  /// The data folder: --data, else SIMREC_DATA, else /data/vendor/camera.
  std::string dataFolder() const;
  Store store() const { return Store(dataFolder()); }
};

/// What a command does once its options are known.
using Run = std::function<Status()>;

/// Adds a command; its options belong to the closure in `run`.
using AddCommand = void (*)(CLI::App& app, const Shared& shared, Run& run);

void addDiff(CLI::App& app, const Shared& shared, Run& run);
void addDoctor(CLI::App& app, const Shared& shared, Run& run);
void addExport(CLI::App& app, const Shared& shared, Run& run);
void addList(CLI::App& app, const Shared& shared, Run& run);
void addReport(CLI::App& app, const Shared& shared, Run& run);
void addSet(CLI::App& app, const Shared& shared, Run& run);
void addShow(CLI::App& app, const Shared& shared, Run& run);
void addVerify(CLI::App& app, const Shared& shared, Run& run);
void addPrune(CLI::App& app, const Shared& shared, Run& run);
void addStage(CLI::App& app, const Shared& shared, Run& run);
void addStatus(CLI::App& app, const Shared& shared, Run& run);
void addUnstage(CLI::App& app, const Shared& shared, Run& run);

/// The options of commands that look at some records of a capture.
struct SelectionOptions {
  std::vector<std::string> kinds;
  std::optional<int> camera;

  void addCamera(CLI::App& command);
  void addKinds(CLI::App& command);
  Selection selection() const { return {kinds, camera}; }
  bool isGiven() const { return !kinds.empty() || camera; }
};

/// Adds a subcommand; `run` becomes what `makeRun` does with its options once it is chosen.
template <typename Options>
CLI::App& addCommand(CLI::App& app, const char* name, const char* description, Run& run,
                     std::shared_ptr<Options> options, Status (*perform)(const Options&)) {
  CLI::App& command = *app.add_subcommand(name, description);
  command.callback([&run, options, perform] { run = [=] { return perform(*options); }; });
  return command;
}

/// What stands at the end of a command's help: what its statuses 0 and 1 tell (2 is the same for
/// all), and calls to copy, a line each.
void explain(CLI::App& command, const char* statuses, const char* examples);

/// Tells a shell what it may offer for the last of a call's words.
Status complete(const CLI::App& app, const std::vector<std::string>& words);

}  // namespace simrec::cli
