// simrec status: what is staged, and whether it still is what was staged.
#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/staging.h"
#include "simrec/text.h"

namespace simrec::cli {
namespace {

struct Options {
  const Shared& shared;
  bool json = false;
};

void putJson(const StagingStatus& status) {
  Json head;
  head["staged"] = status.staged;
  if (status.staged) {
    setName(head, "from", "fromBytes", status.from);
    head["since"] = utcTime(status.since);
  } else {
    head["from"] = nullptr;
    head["since"] = nullptr;
  }
  if (status.interrupted) head["interrupted"] = true;
  JsonDocument document(head, "files");
  for (const StagedFile& file : status.files) {
    Json json;
    setName(json, "file", "fileBytes", file.name);
    json["state"] = nameOf(file.state);
    document.add(dump(json));
  }
  document.end();
}

void putText(const StagingStatus& status) {
  if (!status.staged) return put("nothing is staged\n");
  print("{} from {}, since {}\n", counted(status.files.size(), "file"), printable(status.from),
        localTime(status.since));
  for (const StagedFile& file : status.files) {
    const Color color = file.state == StagedState::kUntouched ? Color::kPlain : Color::kYellow;
    print("  {} {}\n", colored(color, fmt::format("{:<9}", nameOf(file.state))),
          printable(file.name));
  }
}

std::string leftText(const std::vector<Change>& tidying) {
  std::string text;
  for (const Change& change : tidying) {
    text += text.empty() ? "" : ", ";
    text += (change.deed == Deed::kFinish ? "pruned/" : "") + printable(change.file);
  }
  return text;
}

Status status(const Options& options) {
  const StagingStatus status = stagingStatus(options.shared.store());
  options.json ? putJson(status) : putText(status);
  if (status.interrupted) {
    fmt::print(stderr,
               "simrec: staging was interrupted; 'simrec unstage' brings back what stood there\n");
  }
  if (!status.tidying.empty()) {
    fmt::print(stderr,
               "simrec: an earlier command has left {} in .simrec; 'simrec unstage' deletes that\n",
               leftText(status.tidying));
  }
  return status.isSound() ? kDone : kFindings;
}

}  // namespace

void addStatus(CLI::App& app, const Shared& shared, Run& run) {
  auto options = std::make_shared<Options>(Options{shared});
  CLI::App& command = addCommand(app, "status", "what is staged, and whether it was edited since",
                                 run, options, status);
  command.add_flag("--json", options->json, "as JSON");
  explain(command,
          "0 nothing is staged, or all of it is untouched; 1 a file was edited or is gone, or "
          "staging was interrupted",
          "simrec status --json");
}

}  // namespace simrec::cli
