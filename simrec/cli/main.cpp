// simrec: what operators do with a folder of captures. Each command is a file of its own.
#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <sstream>

#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/error.h"
#include "simrec/text.h"

namespace simrec::cli {
namespace {

// In the order of the help.
constexpr AddCommand kCommands[] = {
    addList,     //
    addShow,     //
    addDoctor,   //
    addDiff,     //
    addStage,    //
    addStatus,   //
    addUnstage,  //
    addSet,      //
    addVerify,   //
    addPrune,    //
    addReport,   //
    addExport,   //
};

int fail(const std::string& why) {
  fmt::print(stderr, "simrec: {}\n", printable(why));
  return kNotDone;
}

/// What CLI11 says of a wrong call is one line; help goes to stdout.
int endParsing(const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() == 0) {
    std::ostringstream help;
    app.exit(error, help);
    put(help.str());
    flushOutput();
    return kDone;
  }
  const std::vector<std::string> unknown = app.remaining();
  if (app.get_subcommands().empty() && !unknown.empty()) {
    const std::string& word = unknown.front();
    return fail((word[0] == '-' ? "no option is called '" : "no command is called '") + word + "'");
  }
  const std::string why = error.what();
  return fail(why.substr(0, why.find('\n')));
}

const CLI::App& commandNamed(const CLI::App& app, const std::string& name) {
  const auto found = app.get_subcommands([&](auto* each) { return each->check_name(name); });
  if (found.empty()) throw Error("no command is called '" + name + "'");
  return *found.front();
}

void addHelp(CLI::App& app, Run& run) {
  const auto topic = std::make_shared<std::string>();
  CLI::App& command = *app.add_subcommand("help", "explain a command");
  command.add_option("COMMAND", *topic, "the command to explain");
  explain(command, "0 there is such a command", "simrec help show");
  command.callback([&app, &run, topic] {
    run = [&app, topic] {
      // Not App::help(), which prefers the command that was called: this one.
      const CLI::App* const about = topic->empty() ? &app : &commandNamed(app, *topic);
      const std::string name = topic->empty() ? "simrec" : "simrec " + *topic;
      put(app.get_formatter()->make_help(about, name, CLI::AppFormatMode::Normal));
      return kDone;
    };
  });
}

/// An option's value that is empty is none: '' would be the number 0.
void refuseEmptyValues(CLI::App& app) {
  for (CLI::Option* const option : app.get_options()) {
    if (option->get_positional() || option->get_items_expected_max() == 0) continue;
    option->check(
        [](const std::string& value) { return value.empty() ? "no value is given" : ""; });
  }
  for (CLI::App* const command : app.get_subcommands([](auto*) { return true; })) {
    refuseEmptyValues(*command);
  }
}

/// As in --data=, for which the next word would be taken.
void refuseMissingValues(int argc, const char* const* argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word == "--") return;
    if (word.substr(0, 2) == "--" && word.find('=') + 1 == word.size()) {
      throw Error(word.substr(0, word.size() - 1) + ": no value is given");
    }
  }
}

/// That too few files may be open at once would be told as the fault of a capture.
void takeDescriptors() {
  constexpr rlim_t kNeeded = 64;
  rlimit limit = {};
  if (getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= kNeeded) return;
  limit.rlim_cur = std::min(kNeeded, limit.rlim_max);
  if (limit.rlim_cur < kNeeded || setrlimit(RLIMIT_NOFILE, &limit) != 0) {
    throw Error("fewer than 64 files may be open at once (ulimit -n)");
  }
}

int runProgram(int argc, const char* const* argv) {
  CLI::App app("Looks into, checks, compares and replays captures of libsimulation.", "simrec");
  app.require_subcommand(1);
  app.fallthrough();
  Shared shared;
  Run run;
  app.add_option("--data", shared.data,
                 "the data folder; else $SIMREC_DATA, else /data/vendor/camera")
      ->type_name("DIR");
  app.add_flag("--quiet", shared.quiet, "no progress bar");
  for (const AddCommand add : kCommands) add(app, shared, run);
  refuseEmptyValues(app);
  addHelp(app, run);
  explain(
      app,
      "0 done, and the answer is yes, the same, sound; 1 done, and it is no, different, findings",
      "simrec --data capture-data list\nsimrec help show");
  try {
    if (argc > 1 && argv[1] == std::string("complete")) {
      run = [&] { return complete(app, {argv + 2, argv + argc}); };
    } else {
      refuseMissingValues(argc, argv);
      app.parse(argc, argv);
      takeDescriptors();
    }
  } catch (const CLI::ParseError& error) {
    return endParsing(app, error);
  }
  const int status = run();
  flushOutput();
  return status;
}

int runAndTell(int argc, const char* const* argv) {
  try {
    return runProgram(argc, argv);
  } catch (const std::bad_alloc&) {
    return fail("there is not enough memory");
  } catch (const std::exception& error) {
    return fail(error.what());
  }
}

}  // namespace
}  // namespace simrec::cli

int main(int argc, char** argv) {
  try {
    return simrec::cli::runAndTell(argc, argv);
  } catch (...) {  // not even that could be told
    return simrec::cli::kNotDone;
  }
}
