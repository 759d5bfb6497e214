// simrec doctor: what is wrong with captures, and what a readback of each file would do.
#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/diagnosis.h"
#include "simrec/error.h"
#include "simrec/overview.h"
#include "simrec/text.h"

namespace simrec::cli {
namespace {

struct Options {
  const Shared& shared;
  std::vector<std::string> captures;
  bool json = false;
};

Json jsonOf(const Finding& finding) {
  Json json;
  setName(json, "file", "fileBytes", finding.file);
  json["severity"] = nameOf(finding.severity);
  json["what"] = finding.what;
  json["readback"] = nameOf(finding.readback);
  return json;
}

Json jsonOf(const Capture& capture, const std::vector<Finding>& findings) {
  Json json;
  setName(json, "name", "nameBytes", capture.name);
  json["findings"] = Json::array();
  for (const Finding& finding : findings) json["findings"].push_back(jsonOf(finding));
  return json;
}

void putFindings(const Capture& capture, const std::vector<Finding>& findings) {
  if (findings.empty()) return;
  print("{}\n", colored(Color::kBold, printable(capture.name)));
  for (const Finding& finding : findings) {
    constexpr Color kColors[] = {Color::kRed, Color::kYellow, Color::kFaint};
    const Color color = kColors[static_cast<int>(finding.severity)];
    if (!finding.file.empty()) print("  {}\n", printable(finding.file));
    print("    {} {}; readback: {}\n", colored(color, std::string(nameOf(finding.severity)) + ":"),
          finding.what, nameOf(finding.readback));
  }
}

std::vector<Capture> capturesOf(const Store& store, const std::vector<std::string>& names) {
  if (names.empty()) return store.captures();
  std::vector<Capture> captures;
  captures.reserve(names.size());
  for (const std::string& name : names) captures.push_back(store.find(name));
  return captures;
}

/// What was examined and found.
struct Tally {
  std::uint64_t captures = 0;
  std::uint64_t findings[3] = {};  ///< by severity

  void add(const std::vector<Finding>& found) {
    ++captures;
    for (const Finding& finding : found) ++findings[static_cast<int>(finding.severity)];
  }
};

SizeSurvey survey(const Store& store, bool quiet) {
  Progress progress("Looking", 0, quiet);
  return surveySizes(store, [&] { progress.step(); });
}

/// How much there is to do: captures, or the files of one alone.
std::uint64_t workIn(const std::vector<Capture>& captures) {
  if (captures.size() != 1) return captures.size();
  try {
    return unsortedFilesOf(captures.front()).size();
  } catch (const Error&) {  // examining it will tell
    return 0;
  }
}

/// Calls `use` with each capture and its findings as they come. Of all captures, somebody else's
/// folders are left out.
template <typename Use>
void forEachExamined(const Options& options, const Store& store,
                     const std::vector<Capture>& captures, Use use) {
  const SizeSurvey sizes = survey(store, options.shared.quiet);
  const bool alone = captures.size() == 1;
  Progress progress("Examining", workIn(captures), options.shared.quiet);
  Doctor doctor(sizes, [&] { progress.step(0); });
  for (const Capture& capture : captures) {
    if (!options.captures.empty() || looksLikeCapture(capture)) {
      use(capture, doctor.examine(capture, [&] { progress.step(alone ? 1 : 0); }));
    }
    if (!alone) progress.step();
  }
}

Status examine(const Options& options) {
  const Store store = options.shared.store();
  const std::vector<Capture> captures = capturesOf(store, options.captures);
  Tally tally;
  std::optional<JsonDocument> document;
  if (options.json) document.emplace(Json::object(), "captures");
  forEachExamined(options, store, captures, [&](const Capture& capture, const auto& findings) {
    tally.add(findings);
    if (document) {
      document->add(dump(jsonOf(capture, findings)));
    } else {
      putFindings(capture, findings);
    }
  });
  const auto& [errors, warnings, notes] = tally.findings;
  if (document) {
    document->end();
  } else {
    print("{} examined: {}, {}, {}.\n", counted(tally.captures, "capture"),
          counted(errors, "error"), counted(warnings, "warning"), counted(notes, "note"));
  }
  return errors + warnings == 0 ? kDone : kFindings;
}

}  // namespace

void addDoctor(CLI::App& app, const Shared& shared, Run& run) {
  auto options = std::make_shared<Options>(Options{shared, {}});
  CLI::App& command =
      addCommand(app, "doctor", "tell what is wrong with captures, and what a readback would do",
                 run, options, examine);
  command.add_option("CAPTURE", options->captures, "captures to examine; all when none is named");
  command.add_flag("--json", options->json, "as JSON");
  explain(command, "0 sound, or notes alone; 1 errors or warnings",
          "simrec doctor\nsimrec doctor IMG_000072 57/0 --json");
}

}  // namespace simrec::cli
