// simrec list: a row for each capture of the data folder.
#include <limits>

#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/overview.h"
#include "simrec/provenance.h"
#include "simrec/text.h"

namespace simrec::cli {
namespace {

enum class Order { kName, kTime, kBytes };

struct Options {
  const Shared& shared;
  Order order = Order::kName;
  bool json = false;
};

struct Row {
  const Capture& capture;
  Overview overview;
};

/// Newest or largest first. Their folders are read once more to be shown: only these keys of them
/// are in memory at a time.
void sort(std::vector<Capture>& captures, Order order, bool quiet) {
  if (order == Order::kName) return;
  Progress progress("Sorting", captures.size(), quiet);
  std::vector<std::pair<std::int64_t, std::size_t>> keys;
  for (std::size_t i = 0; i < captures.size(); ++i) {
    const Overview overview = overviewOf(captures[i]);
    keys.emplace_back(order == Order::kTime
                          ? overview.newest.value_or(std::numeric_limits<std::int64_t>::min())
                          : static_cast<std::int64_t>(overview.bytes),
                      i);
    progress.step();
  }
  std::stable_sort(keys.begin(), keys.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  std::vector<Capture> sorted;
  sorted.reserve(keys.size());
  for (const auto& [key, index] : keys) sorted.push_back(std::move(captures[index]));
  captures = std::move(sorted);
}

/// Calls `use` with each row as it comes.
template <typename Use>
void forEachRow(const std::vector<Capture>& captures, bool quiet, Use use) {
  Progress progress("Looking", captures.size(), quiet);
  for (const Capture& capture : captures) {
    const Row row = {capture, overviewOf(capture)};
    // Somebody else's folder: nothing in it has to do with captures.
    if (row.overview.looksLikeCapture) use(row);
    progress.step();
  }
}

std::string jsonOf(const Row& row) {
  Json json;
  setName(json, "name", "nameBytes", row.capture.name);
  json["kind"] = nameOf(row.capture.kind);
  json["cameras"] = row.overview.cameras;
  json["records"] = row.overview.records;
  json["bytes"] = row.overview.bytes;
  json["modified"] = row.overview.newest ? Json(utcTime(*row.overview.newest)) : Json();
  json["problems"] = row.overview.problems;
  if (const auto provenance = readProvenance(row.capture)) json["from"] = toJson(*provenance);
  return dump(json);
}

void putRow(const Row& row) {
  std::string cameras;
  for (const int camera : row.overview.cameras) {
    cameras += (cameras.empty() ? "" : ",") + std::to_string(camera);
  }
  const auto problems = row.overview.problemCount;
  print("{:<24} {:<8} {:<8} {:>7} {:>10}  {}{}\n", printable(row.capture.name),
        nameOf(row.capture.kind), cameras, row.overview.records, sizeText(row.overview.bytes),
        row.overview.newest ? localTime(*row.overview.newest) : "-",
        problems == 0 ? "" : colored(Color::kYellow, "  ! " + counted(problems, "problem")));
  if (const auto provenance = readProvenance(row.capture)) {
    print("    {}\n", colored(Color::kFaint, sentenceFor(*provenance)));
  }
}

Status list(const Options& options) {
  const Store store = options.shared.store();
  std::vector<Capture> captures = store.captures();
  sort(captures, options.order, options.shared.quiet);
  if (options.json) {
    Json head;
    setName(head, "data", "dataBytes", store.data());
    JsonDocument document(head, "captures");
    forEachRow(captures, options.shared.quiet, [&](const Row& row) { document.add(jsonOf(row)); });
    document.end();
    return kDone;
  }
  print("{:<24} {:<8} {:<8} {:>7} {:>10}  {}\n", "capture", "kind", "cameras", "records", "size",
        "newest file");
  forEachRow(captures, options.shared.quiet, putRow);
  return kDone;
}

}  // namespace

void addList(CLI::App& app, const Shared& shared, Run& run) {
  auto options = std::make_shared<Options>(Options{shared});
  CLI::App& command =
      addCommand(app, "list", "list the captures of the data folder", run, options, list);
  const std::map<std::string, Order> orders = {
      {"name", Order::kName}, {"time", Order::kTime}, {"bytes", Order::kBytes}};
  command
      .add_option("--sort", options->order, "by name, time (newest first) or bytes (largest first)")
      ->transform([orders](const std::string& word) {
        const auto found = orders.find(word);
        if (found == orders.end())
          throw CLI::ValidationError("'" + word + "' is none of name, time and bytes");
        return std::to_string(static_cast<int>(found->second));
      })
      ->type_name("name|time|bytes");
  command.add_flag("--json", options->json, "as JSON");
  explain(command, "0 whatever there is to list", "simrec list --sort time\nsimrec list --json");
}

}  // namespace simrec::cli
