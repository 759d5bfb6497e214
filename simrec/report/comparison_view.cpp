#include "simrec/report/comparison_view.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "simrec/report/change_summary.h"
#include "simrec/report/merged_rows.h"
#include "simrec/selection.h"
#include "simrec/text.h"
#include "simrec/wording.h"

namespace simrec::report {
namespace {

/// More differences of a kind are only counted.
constexpr std::size_t kMostRows = 200;

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

/// All differences of the records of one kind.
class KindTable {
 public:
  explicit KindTable(const catalogue::Kind& kind) : kind_(&kind) {}

  const catalogue::Kind& kind() const { return *kind_; }

  void add(const RecordPair& pair, const RecordDifference& difference) {
    const auto add = [&](MergedRows::Texts texts) { merged_.add(pair, std::move(texts)); };
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
  Json json(const RecordWords& words) const {
    const std::size_t count = merged_.rows().size();
    if (count == 0) return nullptr;
    std::string caption = fmt::format("{}: {}", kind_->name, kind_->content);
    if (count > kMostRows) {
      caption += fmt::format(" ({} are not shown)", counted(count - kMostRows, "more row"));
    }
    return table(caption, {"Member", "A", "B", "Difference", "Records"},
                 rowsFor(merged_.most(kMostRows), words));
  }

 private:
  const catalogue::Kind* kind_;
  MergedRows merged_;
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

  Json json(const RecordWords& words) {
    Json tables = Json::array();
    for (const KindTable& kind : kinds_) {
      if (Json json = kind.json(words); !json.is_null()) tables.push_back(std::move(json));
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

/// "64 of 91 records differ, 24 are only in A"
std::string answerFor(std::map<Outcome, std::size_t>& outcomes, std::size_t count) {
  std::string text;
  const auto add = [&](Outcome outcome, const char* one, const char* several) {
    const std::size_t part = outcomes[outcome];
    if (part == 0) return;
    text += text.empty() ? fmt::format("{} of {} ", part, counted(count, "record"))
                         : fmt::format(", {} ", part);
    text += part == 1 ? one : several;
  };
  add(Outcome::kDifferent, "differs", "differ");
  add(Outcome::kOnlyInA, "is only in A", "are only in A");
  add(Outcome::kOnlyInB, "is only in B", "are only in B");
  return text.empty() ? fmt::format("All {} are the same", counted(count, "record")) : text;
}

Json pairView(const Capture& a, const Capture& b, const RecordPair& pair, Ids& ids) {
  return comparedView(readRecord(a.path, *pair.a), readRecord(b.path, *pair.b), ids);
}

}  // namespace

void forEachDifference(const Capture& a, const Capture& b, Ids& ids,
                       const std::function<void(const Json& group)>& use) {
  const auto pairs = pairRecords(Selection().of(filesOf(a)), Selection().of(filesOf(b)));
  std::vector<const RecordPair*> pictured;
  DifferenceTables differences;
  ChangeSummary summary;
  std::map<Outcome, std::size_t> outcomes;
  for (const RecordPair& pair : pairs) {
    const RecordDifference difference = compareRecords(a.path, b.path, pair);
    ++outcomes[difference.outcome];
    if (difference.outcome == Outcome::kSame) continue;
    summary.add(pair, difference);
    differences.add(pair, difference);
    if (pair.a && pair.b && isPictured(*pair.any().parts->kind)) pictured.push_back(&pair);
  }
  const RecordWords words(pairs);
  use({{"groupTitle", answerFor(outcomes, pairs.size())},
       {"views", Json::array()},
       {"tables", summary.tables(a, words)}});
  Json pictures = {
      {"groupTitle", "Side by side"}, {"views", Json::array()}, {"tables", Json::array()}};
  for (const RecordPair* const pair : pictured) {
    Json view = pairView(a, b, *pair, ids);
    if (view["figures"].empty()) continue;
    pictures["views"] = Json::array({std::move(view)});
    use(pictures);
    pictures["groupTitle"] = "";
  }
  Json tables = differences.json(words);
  if (tables.empty()) return;
  use({{"groupTitle", "All differences"}, {"views", Json::array()}, {"tables", std::move(tables)}});
}

}  // namespace simrec::report
