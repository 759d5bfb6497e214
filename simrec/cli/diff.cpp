// simrec diff: what differs between two captures.
#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/comparison.h"
#include "simrec/error.h"
#include "simrec/text.h"
#include "simrec/wording.h"

namespace simrec::cli {
namespace {

struct Options {
  const Shared& shared;
  std::string a, b;
  SelectionOptions selection;
  Tolerance tolerance;
  bool json = false;
};

constexpr std::size_t kMostLabels = 10;
constexpr std::size_t kMostRanges = 10;

std::string textOf(const std::optional<Number>& number) {
  return number ? simrec::textOf(*number) : "missing";
}

void putProblems(const char* side, const std::vector<std::string>& problems) {
  for (const std::string& problem : problems) {
    print("  {} {}\n", colored(Color::kRed, fmt::format("problem in {}:", side)), problem);
  }
}

void putMember(const MemberDifference& member) {
  const std::string both = textOf(member.a) + " -> " + textOf(member.b);
  if (!member.absolute) return print("  {:<34} {}\n", member.name, both);
  print("  {:<34} {:<32}  by {} ({})\n", member.name, both, roughly(*member.absolute),
        percentage(member.relative));
}

std::string sizeOfList(std::optional<std::size_t> size) {
  return size ? counted(*size, "number") : "missing";
}

void putList(const ListDifference& list, bool labels) {
  if (list.a != list.b) {
    print("  {:<34} {} -> {}\n", list.name, sizeOfList(list.a), sizeOfList(list.b));
    if (!list.a || !list.b) return;
  }
  std::string text = fmt::format(
      "{} of {} differ ({})", list.differing, list.count(),
      percentage(static_cast<double>(list.differing) / static_cast<double>(list.count())));
  text += fmt::format(", from [{}] to [{}]", list.first, list.last);
  if (list.maxAbsolute && !labels) {
    text += fmt::format(", most by {} at [{}], RMS {:.6g}", roughly(*list.maxAbsolute), list.maxAt,
                        list.rms);
  }
  print("  {:<34} {}\n", list.name, text);
}

void putLabels(const std::vector<LabelChange>& labels) {
  const std::size_t shown = std::min(labels.size(), kMostLabels);
  for (std::size_t i = 0; i < shown; ++i) {
    print("    label {} -> {}: {} times\n", labels[i].from, labels[i].to, labels[i].count);
  }
  if (shown < labels.size()) print("    and {}\n", counted(labels.size() - shown, "more change"));
}

void putBytes(const ByteDifference& bytes) {
  if (bytes.bytes == 0) return;
  std::string text = counted(bytes.bytes, "byte") + ":";
  const std::size_t shown = std::min(bytes.ranges.size(), kMostRanges);
  for (std::size_t i = 0; i < shown; ++i) {
    text += fmt::format(" [{}, {})", bytes.ranges[i].begin, bytes.ranges[i].end);
  }
  if (shown < bytes.rangeCount) {
    text += " and " + counted(bytes.rangeCount - shown, "more range");
  }
  print("  {}\n", text);
}

void putRecord(const RecordPair& pair, const RecordDifference& difference) {
  if (difference.outcome == Outcome::kSame) return;
  std::string names = printable(pair.any().name);
  if (pair.a && pair.b && pair.a->name != pair.b->name) names += " -> " + printable(pair.b->name);
  print("{}  {}\n", colored(Color::kBold, names),
        colored(Color::kYellow, nameOf(difference.outcome)));
  putProblems("a", difference.problemsOfA);
  putProblems("b", difference.problemsOfB);
  for (const MemberDifference& member : difference.members) putMember(member);
  for (const ListDifference& list : difference.lists) putList(list, !difference.labels.empty());
  putLabels(difference.labels);
  putBytes(difference.bytes);
  put("\n");
}

Json jsonOf(const std::optional<Number>& number) { return number ? toJson(*number) : Json(); }

Json jsonOf(const MemberDifference& member) {
  return {{"name", member.name},
          {"a", jsonOf(member.a)},
          {"b", jsonOf(member.b)},
          {"absolute", jsonOf(member.absolute)},
          {"relative", member.absolute ? toJson(member.relative) : Json()}};
}

Json jsonOf(const ListDifference& list) {
  Json json = {{"name", list.name},
               {"count", list.count()},
               {"differing", list.differing},
               {"maxAbsolute", jsonOf(list.maxAbsolute)},
               {"rms", toJson(list.rms)},
               {"first", list.first},
               {"last", list.last}};
  if (list.maxAbsolute) json["maxAt"] = list.maxAt;
  if (list.a != list.b) {
    json["countA"] = list.a ? Json(*list.a) : Json();
    json["countB"] = list.b ? Json(*list.b) : Json();
  }
  return json;
}

Json jsonOf(const LabelChange& change) {
  return {{"from", change.from}, {"to", change.to}, {"count", change.count}};
}

Json jsonOf(const Range& range) { return {{"begin", range.begin}, {"end", range.end}}; }

/// Adds an array with an object for each item; no items, no key.
template <typename Items>
void setAll(Json& object, const char* key, const Items& items) {
  for (const auto& item : items) object[key].push_back(jsonOf(item));
}

std::string jsonOf(const RecordPair& pair, const RecordDifference& difference) {
  const auto& parts = *pair.any().parts;
  Json json;
  json["record"] = parts.kind->name;
  setParts(json, parts);
  if (pair.a) setName(json, "fileA", "fileABytes", pair.a->name);
  if (pair.b) setName(json, "fileB", "fileBBytes", pair.b->name);
  json["status"] = nameOf(difference.outcome);
  if (!difference.problemsOfA.empty()) json["problemsA"] = difference.problemsOfA;
  if (!difference.problemsOfB.empty()) json["problemsB"] = difference.problemsOfB;
  setAll(json, "members", difference.members);
  setAll(json, "lists", difference.lists);
  setAll(json, "labels", difference.labels);
  setAll(json, "ranges", difference.bytes.ranges);
  if (difference.bytes.rangeCount > difference.bytes.ranges.size()) {
    json["rangeCount"] = difference.bytes.rangeCount;
  }
  return dump(json);
}

/// How many records came out how.
struct Tally {
  std::uint64_t all = 0, different = 0, onlyInA = 0, onlyInB = 0;

  void add(Outcome outcome) {
    ++all;
    if (outcome == Outcome::kDifferent) ++different;
    if (outcome == Outcome::kOnlyInA) ++onlyInA;
    if (outcome == Outcome::kOnlyInB) ++onlyInB;
  }
  bool isSame() const { return different + onlyInA + onlyInB == 0; }
};

void putTally(const Tally& tally) {
  if (tally.isSame()) return print("{}: the same\n", counted(tally.all, "record"));
  std::string only;
  if (tally.onlyInA > 0) only += fmt::format(", {} only in a", tally.onlyInA);
  if (tally.onlyInB > 0) only += fmt::format(", {} only in b", tally.onlyInB);
  print("{}: {} different{}\n", counted(tally.all, "record"), tally.different, only);
}

/// "same" stands in front of the records, so they wait.
void putJson(const Capture& a, const Capture& b, const Tally& tally,
             const std::vector<std::string>& records) {
  Json head;
  setName(head, "a", "aBytes", a.name);
  setName(head, "b", "bBytes", b.name);
  head["same"] = tally.isSame();
  JsonDocument document(head, "records");
  for (const std::string& record : records) document.add(record);
  document.end();
}

/// A bar over the bytes of all pairs, some of which are told while a pair is compared.
class Work {
 public:
  Work(const std::vector<RecordPair>& pairs, bool quiet)
      : progress_("Comparing", in(pairs), quiet, Progress::Unit::kBytes) {}

  void add(std::uint64_t bytes) {
    told_ += bytes;
    progress_.step(bytes);
  }

  void end(const RecordPair& pair) {
    const std::uint64_t all = in(pair);
    progress_.step(all > told_ ? all - told_ : 0);
    told_ = 0;
  }

 private:
  static std::uint64_t in(const RecordPair& pair) {
    return std::max(pair.a ? pair.a->bytes : 0, pair.b ? pair.b->bytes : 0);
  }

  static std::uint64_t in(const std::vector<RecordPair>& pairs) {
    std::uint64_t bytes = 0;
    for (const RecordPair& pair : pairs) bytes += in(pair);
    return bytes;
  }

  Progress progress_;
  std::uint64_t told_ = 0;  ///< of this pair
};

Status diff(const Options& options) {
  if (!(options.tolerance.relative >= 0 && options.tolerance.absolute >= 0)) {
    throw Error("--relative and --absolute are numbers from 0 on");
  }
  const Selection selection = options.selection.selection();
  const Store store = options.shared.store();
  const Capture a = store.find(options.a), b = store.find(options.b);
  const std::vector<RecordPair> pairs =
      pairRecords(selection.of(filesOf(a)), selection.of(filesOf(b)));
  if (pairs.empty() && options.selection.isGiven()) {
    throw Error("neither capture has a record of that kind or camera");
  }
  Tally tally;
  std::vector<std::string> records;
  Work work(pairs, options.shared.quiet);
  for (const RecordPair& pair : pairs) {
    const RecordDifference difference = compareRecords(a.path, b.path, pair, options.tolerance,
                                                       [&](auto bytes) { work.add(bytes); });
    tally.add(difference.outcome);
    if (options.json) {
      records.push_back(jsonOf(pair, difference));
    } else {
      putRecord(pair, difference);
    }
    work.end(pair);
  }
  options.json ? putJson(a, b, tally, records) : putTally(tally);
  return tally.isSame() ? kDone : kFindings;
}

}  // namespace

void addDiff(CLI::App& app, const Shared& shared, Run& run) {
  auto options = std::make_shared<Options>(Options{shared, {}, {}, {}, {}});
  CLI::App& command =
      addCommand(app, "diff", "tell what differs between two captures", run, options, diff);
  command.add_option("A", options->a, "an image, REQUEST/CAMERA, staged, or a path")->required();
  command.add_option("B", options->b, "the same")->required();
  options->selection.addKinds(command);
  options->selection.addCamera(command);
  command
      .add_option("--relative", options->tolerance.relative,
                  "take numbers as the same up to this part of the larger one")
      ->type_name("R");
  command
      .add_option("--absolute", options->tolerance.absolute,
                  "take numbers as the same up to this difference")
      ->type_name("A");
  command.add_flag("--json", options->json, "as JSON");
  explain(command, "0 the same; 1 different",
          "simrec diff IMG_000072 IMG_000096 AE_AECData --camera 0\n"
          "simrec diff IMG_000072 staged --relative 1e-6 --json");
}

}  // namespace simrec::cli
