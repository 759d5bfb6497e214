// simrec verify: whether a dump shows what the replay of a capture must have fed.
#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/error.h"
#include "simrec/text.h"
#include "simrec/verification.h"

namespace simrec::cli {
namespace {

struct Options {
  const Shared& shared;
  std::string capture, dump;
  std::optional<int> camera;
  bool json = false;
};

Json jsonOf(const VerifiedRecord& record) {
  Json json;
  json["record"] = record.file.parts->kind->name;
  setParts(json, *record.file.parts);
  json["status"] = nameOf(record.fed);
  if (!record.why.empty()) json["why"] = record.why;
  json["members"] = Json::array();
  for (const Unfed& member : record.members) {
    json["members"].push_back(
        {{"name", member.name}, {"expected", member.expected}, {"found", member.found}});
  }
  for (const auto& [name, count] : record.more) {
    json["more"].push_back({{"name", name}, {"count", count}});
  }
  for (const auto& [begin, end] : record.ranges) {
    json["ranges"].push_back({{"begin", begin}, {"end", end}});
  }
  if (record.rangeCount > record.ranges.size()) json["rangeCount"] = record.rangeCount;
  return json;
}

std::string textOf(const Json& value) {
  return value.is_string() ? value.get<std::string>() : value.is_null() ? "nothing" : dump(value);
}

void put(const VerifiedRecord& record) {
  const bool good = record.fed == Fed::kYes || record.fed == Fed::kNotReplayed;
  print("{}  {}{}\n",
        colored(good ? Color::kPlain : Color::kRed, fmt::format("{:<12}", nameOf(record.fed))),
        printable(record.file.name), record.why.empty() ? "" : ": " + record.why);
  for (const Unfed& member : record.members) {
    print("    {}: {} expected, {} found\n", member.name, textOf(member.expected),
          textOf(member.found));
  }
  for (const auto& [name, count] : record.more) print("    {}: {} more differ\n", name, count);
  for (const auto& [begin, end] : record.ranges) {
    print("    bytes {} to {} differ\n", begin, end - 1);
  }
  if (record.rangeCount > record.ranges.size()) print("    and more\n");
}

Status verifyAll(const Options& options) {
  const Store store = options.shared.store();
  const Capture capture = store.find(options.capture), dumped = store.find(options.dump);
  const std::vector<File> files = Selection({}, options.camera).of(filesOf(capture));
  if (files.empty()) throw Error("there are no records in " + options.capture);
  const std::vector<File> others = filesOf(dumped);
  const auto partners = answering(files, others);
  std::vector<VerifiedRecord> records;
  Progress progress("Verifying", files.size(), options.shared.quiet);
  for (std::size_t i = 0; i < files.size(); ++i) {
    records.push_back(verify(capture, files[i], dumped, partners[i]));
    progress.step();
  }
  const auto count = [&](Fed fed) {
    return std::count_if(records.begin(), records.end(),
                         [fed](const VerifiedRecord& record) { return record.fed == fed; });
  };
  const bool fed = count(Fed::kNo) == 0 && count(Fed::kMissing) == 0;
  if (options.json) {
    Json head;
    setName(head, "capture", "captureBytes", capture.name);
    setName(head, "dump", "dumpBytes", dumped.name);
    head["fed"] = fed;
    JsonDocument document(head, "records");
    for (const VerifiedRecord& record : records) document.add(dump(jsonOf(record)));
    document.end();
  } else {
    for (const VerifiedRecord& record : records) put(record);
    print("{} of {} as {} has them, {} not fed, {} missing, {} left out by their own rule.\n",
          count(Fed::kYes), counted(files.size(), "record"), printable(capture.name),
          count(Fed::kNo), count(Fed::kMissing), count(Fed::kNotReplayed));
  }
  return fed ? kDone : kFindings;
}

}  // namespace

void addVerify(CLI::App& app, const Shared& shared, Run& run) {
  auto options = std::make_shared<Options>(Options{shared, {}, {}, {}});
  CLI::App& command =
      addCommand(app, "verify", "tell whether a dump shows what a replay must have fed", run,
                 options, verifyAll);
  command.add_option("CAPTURE", options->capture, "the capture that was replayed")->required();
  command.add_option("DUMP", options->dump, "the capture that was made meanwhile")->required();
  command
      .add_option("--camera", options->camera,
                  "only records of this camera and those that have none")
      ->type_name("N");
  command.add_flag("--json", options->json, "as JSON");
  explain(command, "0 every record was fed, or left out by its own rule; 1 one was not",
          "simrec verify IMG_000072 REPLAYED");
}

}  // namespace simrec::cli
