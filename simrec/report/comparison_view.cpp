#include "simrec/report/comparison_view.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

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
  if (rows.empty()) return nullptr;
  const std::size_t more = rows.size() > kMostRows ? rows.size() - kMostRows : 0;
  if (more > 0) rows.erase(rows.begin() + kMostRows, rows.end());
  std::string caption = printable(pair.any().name);
  if (pair.a && pair.b && pair.a->name != pair.b->name)
    caption += " and " + printable(pair.b->name);
  caption += std::string(": ") + nameOf(difference.outcome);
  if (more > 0) caption += fmt::format(" ({} are not shown)", counted(more, "more row"));
  return table(caption, {"Member", "A", "B", "Difference"}, std::move(rows));
}

/// The answer above all others: what changed most, and what only one of them has.
class Summary {
 public:
  void add(const RecordPair& pair, const RecordDifference& difference) {
    const std::string record = printable(pair.any().name);
    if (!pair.a || !pair.b) {
      alone_.push_back(row(record, {cell(pair.a ? "A" : "B")}));
      return;
    }
    for (const MemberDifference& member : difference.members) {
      if (!member.absolute || !std::isfinite(member.relative)) continue;
      members_.push_back(
          {member.relative,
           row(record, {cell(member.name), cell(numberText(member.a)), cell(numberText(member.b)),
                        cell(percentage(member.relative))})});
    }
    for (const ListDifference& list : difference.lists) {
      if (list.count() == 0) continue;
      const double share = static_cast<double>(list.differing) / static_cast<double>(list.count());
      lists_.push_back({share, row(record, {cell(list.name),
                                            cell(wordsFor(list, !difference.labels.empty()))})});
    }
  }

  Json tables() {
    Json tables = Json::array();
    const auto put = [&](Json rows, const char* caption, const std::vector<std::string>& head) {
      if (!rows.empty()) tables.push_back(table(caption, head, std::move(rows)));
    };
    put(most(members_), "Numbers that changed most, relative to the larger one",
        {"Record", "Member", "A", "B", "Change"});
    put(most(lists_), "Lists and pictures of which most changed, and where",
        {"Record", "List", "Numbers that differ"});
    put(std::move(alone_), "Records that only one of them has", {"Record", "Only in"});
    return tables;
  }

 private:
  using Ranked = std::vector<std::pair<double, Json>>;

  /// The first rows by rank.
  static Json most(Ranked& ranked) {
    constexpr std::size_t kMost = 8;
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    Json rows = Json::array();
    for (const auto& [rank, row] : ranked) {
      if (rows.size() < kMost) rows.push_back(row);
    }
    return rows;
  }

  Ranked members_, lists_;
  Json alone_ = Json::array();
};

Json pairView(const Capture& a, const Capture& b, const RecordPair& pair, Ids& ids) {
  return comparedView(readRecord(a.path, *pair.a), readRecord(b.path, *pair.b), ids);
}

}  // namespace

void forEachDifference(const Capture& a, const Capture& b, Ids& ids,
                       const std::function<void(const Json& group)>& use) {
  const auto pairs = pairRecords(Selection().of(filesOf(a)), Selection().of(filesOf(b)));
  std::vector<const RecordPair*> pictured;
  Json group = {
      {"groupTitle", "All differences"}, {"views", Json::array()}, {"tables", Json::array()}};
  Summary summary;
  std::size_t differing = 0;
  for (const RecordPair& pair : pairs) {
    const RecordDifference difference = compareRecords(a.path, b.path, pair);
    if (difference.outcome == Outcome::kSame) continue;
    ++differing;
    summary.add(pair, difference);
    Json table = differenceTable(pair, difference);
    if (!table.is_null()) group["tables"].push_back(std::move(table));
    if (pair.a && pair.b && isPictured(*pair.any().parts->kind)) pictured.push_back(&pair);
  }
  const std::string answer =
      differing == 0 ? fmt::format("All {} are the same", counted(pairs.size(), "record"))
                     : fmt::format("{} of {} differ", differing, counted(pairs.size(), "record"));
  use({{"groupTitle", answer}, {"views", Json::array()}, {"tables", summary.tables()}});
  Json pictures = {
      {"groupTitle", "Side by side"}, {"views", Json::array()}, {"tables", Json::array()}};
  for (const RecordPair* const pair : pictured) {
    Json view = pairView(a, b, *pair, ids);
    if (view["figures"].empty()) continue;
    pictures["views"] = Json::array({std::move(view)});
    use(pictures);
    pictures["groupTitle"] = "";
  }
  if (!group["tables"].empty()) use(group);
}

}  // namespace simrec::report
