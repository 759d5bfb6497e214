#include "simrec/report/comparison_view.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "simrec/selection.h"
#include "simrec/text.h"
#include "simrec/wording.h"

namespace simrec::report {
namespace {

/// More differences of a kind are only counted.
constexpr std::size_t kMostRows = 200;

constexpr char kProblem[] = "problem";

std::string numberText(const std::optional<Number>& number) {
  return number ? simrec::textOf(*number) : "missing";
}

std::string listText(std::optional<std::size_t> size) {
  return size ? counted(*size, "number") : "missing";
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

std::string wordsFor(const MemberDifference& member) {
  if (!member.absolute) return "in one of them";
  return fmt::format("by {} ({})", simrec::roughly(*member.absolute), percentage(member.relative));
}

/// "Camera 0, preview", and how the other's file is told where that is another.
std::string titleOfPair(const RecordPair& pair) {
  const std::string title = titleOf(*pair.any().parts);
  const std::string other = pair.a && pair.b ? titleOf(*pair.b->parts) : title;
  return other == title ? title : title + " and " + other;
}

/// Rows of texts, each told once for all records that have the same.
class Merged {
 public:
  using Texts = std::vector<std::string>;

  struct Row {
    Texts texts;
    std::string records;
    double rank;
  };

  void add(const std::string& record, Texts texts, double rank = 0) {
    const auto [found, isNew] = places_.try_emplace(texts, rows_.size());
    if (isNew) {
      rows_.push_back({std::move(texts), record, rank});
    } else {
      rows_[found->second].records += "; " + record;
    }
  }

  const std::vector<Row>& rows() const { return rows_; }

  /// The first ones by rank.
  std::vector<Row> most(std::size_t count) const {
    std::vector<Row> rows = rows_;
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Row& a, const Row& b) { return a.rank > b.rank; });
    rows.resize(std::min(rows.size(), count));
    return rows;
  }

 private:
  std::vector<Row> rows_;
  std::map<Texts, std::size_t> places_;
};

/// The first text is the row's name; records are told last.
Json rowsFor(const std::vector<Merged::Row>& merged) {
  Json rows = Json::array();
  for (const Merged::Row& each : merged) {
    std::vector<Json> cells;
    const bool isProblem = each.texts[0] == kProblem;
    for (std::size_t i = 1; i < each.texts.size(); ++i) {
      cells.push_back(cell(each.texts[i], isProblem && !each.texts[i].empty()));
    }
    cells.push_back(cell(each.records));
    rows.push_back(row(each.texts[0], std::move(cells)));
  }
  return rows;
}

/// All differences of the records of one kind.
class KindTable {
 public:
  explicit KindTable(const catalogue::Kind& kind) : kind_(&kind) {}

  const catalogue::Kind& kind() const { return *kind_; }

  void add(const RecordPair& pair, const RecordDifference& difference) {
    const auto add = [&, title = titleOfPair(pair)](Merged::Texts texts) {
      merged_.add(title, std::move(texts));
    };
    for (const MemberDifference& member : difference.members) {
      add({member.name, numberText(member.a), numberText(member.b), wordsFor(member)});
    }
    const bool labels = !difference.labels.empty();
    for (const ListDifference& list : difference.lists) {
      add({list.name, listText(list.a), listText(list.b), wordsFor(list, labels)});
    }
    for (const LabelChange& change : difference.labels) {
      add({"label", std::to_string(change.from), std::to_string(change.to),
           fmt::format("{} times", change.count)});
    }
    for (const std::string& problem : difference.problemsOfA) add({kProblem, problem, "", ""});
    for (const std::string& problem : difference.problemsOfB) add({kProblem, "", problem, ""});
  }

  /// Null: there is nothing in it.
  Json json() const {
    const std::size_t count = merged_.rows().size();
    if (count == 0) return nullptr;
    std::string caption = fmt::format("{}: {}", kind_->name, kind_->content);
    if (count > kMostRows) {
      caption += fmt::format(" ({} are not shown)", counted(count - kMostRows, "more row"));
    }
    return table(caption, {"Member", "A", "B", "Difference", "Records"},
                 rowsFor(merged_.most(kMostRows)));
  }

 private:
  const catalogue::Kind* kind_;
  Merged merged_;
};

/// What differs, kind by kind.
class DifferenceTables {
 public:
  void add(const RecordPair& pair, const RecordDifference& difference) {
    const catalogue::Kind& kind = *pair.any().parts->kind;
    if (kinds_.empty() || &kinds_.back().kind() != &kind) kinds_.emplace_back(kind);
    kinds_.back().add(pair, difference);
    if (difference.bytes.bytes == 0) return;
    bytes_.push_back(row(printable(pair.any().name),
                         {cell(fmt::format("{} in {}", counted(difference.bytes.bytes, "byte"),
                                           counted(difference.bytes.rangeCount, "range")))}));
  }

  Json json() {
    Json tables = Json::array();
    for (const KindTable& kind : kinds_) {
      if (Json json = kind.json(); !json.is_null()) tables.push_back(std::move(json));
    }
    if (!bytes_.empty()) {
      tables.push_back(table("Binary records", {"Record", "Bytes that differ"}, std::move(bytes_)));
    }
    return tables;
  }

 private:
  std::vector<KindTable> kinds_;
  Json bytes_ = Json::array();
};

/// The answer above all others: what changed most, and what only one of them has.
class Summary {
 public:
  void add(const RecordPair& pair, const RecordDifference& difference) {
    if (!pair.a || !pair.b) {
      alone_.push_back(row(printable(pair.any().name), {cell(pair.a ? "A" : "B")}));
      return;
    }
    const std::string title = titleOfPair(pair);
    const std::string kind = std::string(pair.any().parts->kind->name) + ".";
    for (const MemberDifference& member : difference.members) {
      if (!member.absolute || !std::isfinite(member.relative)) continue;
      members_.add(title,
                   {kind + member.name, numberText(member.a), numberText(member.b),
                    percentage(member.relative)},
                   member.relative);
    }
    for (const ListDifference& list : difference.lists) {
      if (list.count() == 0) continue;
      lists_.add(title, {kind + list.name, wordsFor(list, !difference.labels.empty())},
                 static_cast<double>(list.differing) / static_cast<double>(list.count()));
    }
  }

  Json tables() {
    constexpr std::size_t kMost = 8;
    Json tables = Json::array();
    const auto put = [&](Json rows, const char* caption, const std::vector<std::string>& head) {
      if (!rows.empty()) tables.push_back(table(caption, head, std::move(rows)));
    };
    put(rowsFor(members_.most(kMost)), "Numbers that changed most, relative to the larger one",
        {"Member", "A", "B", "Change", "Records"});
    put(rowsFor(lists_.most(kMost)), "Lists and pictures of which most changed, and where",
        {"List", "Numbers that differ", "Records"});
    put(std::move(alone_), "Records that only one of them has", {"Record", "Only in"});
    return tables;
  }

 private:
  Merged members_, lists_;
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
  DifferenceTables differences;
  Summary summary;
  std::size_t differing = 0;
  for (const RecordPair& pair : pairs) {
    const RecordDifference difference = compareRecords(a.path, b.path, pair);
    if (difference.outcome == Outcome::kSame) continue;
    ++differing;
    summary.add(pair, difference);
    differences.add(pair, difference);
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
  Json tables = differences.json();
  if (tables.empty()) return;
  use({{"groupTitle", "All differences"}, {"views", Json::array()}, {"tables", std::move(tables)}});
}

}  // namespace simrec::report
