#include "simrec/report/comparison_view.h"

#include <fmt/format.h>

#include "simrec/selection.h"
#include "simrec/text.h"
#include "simrec/wording.h"

namespace simrec::report {
namespace {

/// More members of a record are only counted.
constexpr std::size_t kMostRows = 200;

std::string numberText(const std::optional<Number>& number) {
  return number ? simrec::textOf(*number) : "missing";
}

std::string listText(std::optional<std::size_t> size) {
  return size ? counted(*size, "number") : "missing";
}

Json rowFor(const MemberDifference& member) {
  return row(member.name,
             {cell(numberText(member.a)), cell(numberText(member.b)),
              cell(member.absolute ? fmt::format("by {} ({})", simrec::roughly(*member.absolute),
                                                 percentage(member.relative))
                                   : std::string("in one of them"))});
}

std::string wordsFor(const ListDifference& list, bool labels) {
  if (!list.a || !list.b) return "in one of them";
  std::string text = fmt::format(
      "{} of {} ({}), from [{}] to [{}]", list.differing, list.count(),
      percentage(static_cast<double>(list.differing) / static_cast<double>(list.count())),
      list.first, list.last);
  if (list.maxAbsolute && !labels) {
    text += fmt::format(", most by {} at [{}], RMS {:.6g}", simrec::roughly(*list.maxAbsolute),
                        list.maxAt, list.rms);
  }
  return text;
}

void addRows(const RecordDifference& difference, Json& rows) {
  for (const MemberDifference& member : difference.members) rows.push_back(rowFor(member));
  const bool labels = !difference.labels.empty();
  for (const ListDifference& list : difference.lists) {
    rows.push_back(row(
        list.name, {cell(listText(list.a)), cell(listText(list.b)), cell(wordsFor(list, labels))}));
  }
  for (const LabelChange& change : difference.labels) {
    rows.push_back(row("label", {cell(std::to_string(change.from)), cell(std::to_string(change.to)),
                                 cell(fmt::format("{} times", change.count))}));
  }
  if (difference.bytes.bytes > 0) {
    rows.push_back(
        row("bytes", {cell(""), cell(""),
                      cell(fmt::format("{} in {}", counted(difference.bytes.bytes, "byte"),
                                       counted(difference.bytes.rangeCount, "range")))}));
  }
  for (const std::string& problem : difference.problemsOfA) {
    rows.push_back(row("problem", {cell(problem, true), cell(""), cell("")}));
  }
  for (const std::string& problem : difference.problemsOfB) {
    rows.push_back(row("problem", {cell(""), cell(problem, true), cell("")}));
  }
}

/// The table of a pair that differs.
Json differenceTable(const RecordPair& pair, const RecordDifference& difference) {
  Json rows = Json::array();
  addRows(difference, rows);
  if (rows.empty()) {
    const auto presence = [](bool there) { return cell(there ? "there" : "missing", !there); };
    rows.push_back(
        row("the record", {presence(pair.a.has_value()), presence(pair.b.has_value()), cell("")}));
  }
  const std::size_t more = rows.size() > kMostRows ? rows.size() - kMostRows : 0;
  if (more > 0) rows.erase(rows.begin() + kMostRows, rows.end());
  std::string caption = printable(pair.any().name);
  if (pair.a && pair.b && pair.a->name != pair.b->name)
    caption += " and " + printable(pair.b->name);
  caption += std::string(": ") + nameOf(difference.outcome);
  if (more > 0) caption += fmt::format(" ({} are not shown)", counted(more, "more row"));
  return table(caption, {"Member", "A", "B", "Difference"}, std::move(rows));
}

Json pairView(const Capture& a, const Capture& b, const RecordPair& pair, Ids& ids) {
  return comparedView(readRecord(a.path, *pair.a), readRecord(b.path, *pair.b), ids);
}

}  // namespace

void forEachDifference(const Capture& a, const Capture& b, Ids& ids,
                       const std::function<void(const Json& group)>& use) {
  const auto pairs = pairRecords(Selection().of(filesOf(a)), Selection().of(filesOf(b)));
  std::vector<const RecordPair*> pictured;
  Json group = {{"groupTitle", ""}, {"views", Json::array()}, {"tables", Json::array()}};
  for (const RecordPair& pair : pairs) {
    const RecordDifference difference = compareRecords(a.path, b.path, pair);
    if (difference.outcome == Outcome::kSame) continue;
    group["tables"].push_back(differenceTable(pair, difference));
    if (pair.a && pair.b && isPictured(*pair.any().parts->kind)) pictured.push_back(&pair);
  }
  const std::size_t differing = group["tables"].size();
  group["groupTitle"] =
      differing == 0 ? fmt::format("All {} are the same", counted(pairs.size(), "record"))
                     : fmt::format("{} of {} differ", differing, counted(pairs.size(), "record"));
  Json pictures = {
      {"groupTitle", "Side by side"}, {"views", Json::array()}, {"tables", Json::array()}};
  for (const RecordPair* const pair : pictured) {
    Json view = pairView(a, b, *pair, ids);
    if (view["figures"].empty()) continue;
    pictures["views"] = Json::array({std::move(view)});
    use(pictures);
    pictures["groupTitle"] = "";
  }
  use(group);
}

}  // namespace simrec::report
