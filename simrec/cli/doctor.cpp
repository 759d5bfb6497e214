// simrec doctor: what is wrong with captures, and what a readback of each file would do.
#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/diagnosis.h"
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

Status examine(const Options& options) {
  const Store store = options.shared.store();
  const std::vector<Capture> captures = capturesOf(store, options.captures);
  Doctor doctor(surveySizes(store));
  std::optional<JsonDocument> document;
  if (options.json) document.emplace(Json::object(), "captures");
  std::size_t counts[3] = {};
  {
    Progress progress("Examining", captures.size(), options.shared.quiet);
    for (const Capture& capture : captures) {
      const std::vector<Finding> findings = doctor.examine(capture);
      for (const Finding& finding : findings) ++counts[static_cast<int>(finding.severity)];
      if (document) {
        document->add(dump(jsonOf(capture, findings)));
      } else {
        putFindings(capture, findings);
      }
      progress.step();
    }
  }
  if (document) {
    document->end();
  } else {
    print("{} examined: {}, {}, {}.\n", counted(captures.size(), "capture"),
          counted(counts[0], "error"), counted(counts[1], "warning"), counted(counts[2], "note"));
  }
  return counts[0] + counts[1] == 0 ? kDone : kFindings;
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
