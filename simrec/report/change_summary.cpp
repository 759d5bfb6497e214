#include "simrec/report/change_summary.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "simrec/expected_values.h"
#include "simrec/report/bayer_grid.h"
#include "simrec/report/label_map.h"
#include "simrec/report/lens_shading.h"
#include "simrec/text.h"
#include "simrec/wording.h"

namespace simrec::report {
namespace {

constexpr std::size_t kMost = 8;
constexpr std::string_view kShadingKind = "LSC", kLabelKind = "AWB_QsegImageData";

/// " (8 of 23)"; empty where all are shown.
std::string partOf(std::size_t shown, std::size_t all) {
  return shown < all ? fmt::format(" ({} of {})", shown, all) : "";
}

/// "AWB_QsegImageData.qsegInstInfos" of one that is in an item of an array.
std::string nameOf(const catalogue::Kind& kind, const std::string& member) {
  return fmt::format("{}.{}", kind.name, member.substr(0, member.find('[')));
}

/// In a row of the picture that has this list's numbers; 0: there is none.
std::size_t columnsOf(const Record& record, std::size_t count) {
  const catalogue::Kind& kind = *record.file.parts->kind;
  if (isBayerGrid(kind)) {
    const BayerGrid grid = bayerGridOf(record.values);
    return grid.regions == count ? grid.columns : 0;
  }
  if (kind.name == kShadingKind) {
    const auto channels = shadingOf(record.values);
    if (channels.empty() || channels[0].gains.values.size() != count) return 0;
    return channels[0].gains.columns;
  }
  if (kind.name == kLabelKind) {
    const auto map = labelMapOf(record.values);
    return map && map->shapeIsTold && map->labels.size() == count ? map->columns : 0;
  }
  return 0;
}

std::string placeText(std::size_t index, std::size_t columns) {
  return columns == 0 ? fmt::format("[{}]", index)
                      : fmt::format("column {}, row {}", index % columns, index / columns);
}

/// Of labels, which are no quantities, from where to where.
std::string wordsForPlace(const ListDifference& list, bool labels, std::size_t columns) {
  if (list.maxAbsolute && !labels) {
    return fmt::format("most by {} at {}", roughly(*list.maxAbsolute),
                       placeText(list.maxAt, columns));
  }
  const std::string first = placeText(list.first, columns);
  return list.first == list.last
             ? "at " + first
             : fmt::format("from {} to {}", first, placeText(list.last, columns));
}

}  // namespace

std::string numberText(const std::optional<Number>& number) {
  return number ? textOf(*number) : "missing";
}

double ChangeSummary::List::share() const {
  return static_cast<double>(difference.differing) / static_cast<double>(difference.count());
}

void ChangeSummary::add(const RecordPair& pair, const RecordDifference& difference) {
  if (!pair.a || !pair.b) {
    alone_.push_back(row(printable(pair.any().name), {cell(pair.a ? "A" : "B")}));
    return;
  }
  addMembers(pair, difference);
  addLists(pair, difference);
}

/// Without flags: of these no part of a number changes.
void ChangeSummary::addMembers(const RecordPair& pair, const RecordDifference& difference) {
  const catalogue::Kind& kind = *pair.any().parts->kind;
  for (const MemberDifference& member : difference.members) {
    if (!member.absolute || !std::isfinite(member.relative) || member.isFlag) continue;
    MergedRows::Texts texts = {fmt::format("{}.{}", kind.name, member.name), numberText(member.a),
                               numberText(member.b), percentage(member.relative)};
    if (member.name.find('[') == std::string::npos) {
      members_.add(pair, std::move(texts), member.relative);
      continue;
    }
    MergedRows::Row& most = repeated_[nameOf(kind, member.name)];
    if (most.texts == texts) {
      most.records.push_back(&pair);
    } else if (most.records.empty() || member.relative > most.rank) {
      most = {std::move(texts), {&pair}, member.relative};
    }
  }
}

void ChangeSummary::addLists(const RecordPair& pair, const RecordDifference& difference) {
  const catalogue::Kind& kind = *pair.any().parts->kind;
  for (const ListDifference& list : difference.lists) {
    if (list.count() == 0) continue;
    List added = {&pair, list, !difference.labels.empty()};
    const auto [found, isNew] = listPlaces_.try_emplace(nameOf(kind, list.name), lists_.size());
    if (isNew) {
      lists_.push_back(std::move(added));
      continue;
    }
    List& worst = lists_[found->second];
    if (std::pair(added.share(), list.rms) > std::pair(worst.share(), worst.difference.rms)) {
      worst = std::move(added);
    }
  }
}

/// The first ones, and always the labels and the gains: they are what is looked for.
std::vector<MergedRows::Row> ChangeSummary::listRows(const Capture& a) const {
  std::vector<const List*> shown;
  for (const List& list : lists_) shown.push_back(&list);
  const auto byShare = [](const List* x, const List* y) { return x->share() > y->share(); };
  std::stable_sort(shown.begin(), shown.end(), byShare);
  const auto others = std::stable_partition(shown.begin(), shown.end(), [](const List* list) {
    const std::string_view kind = list->pair->any().parts->kind->name;
    return kind == kShadingKind || list->hasLabels;
  });
  const auto always = static_cast<std::size_t>(others - shown.begin());
  shown.resize(std::min(shown.size(), std::max(always, kMost)));
  std::stable_sort(shown.begin(), shown.end(), byShare);
  std::vector<MergedRows::Row> rows;
  for (const List* const list : shown) {
    const ListDifference& each = list->difference;
    const std::string name = fmt::format("{}.{}", list->pair->any().parts->kind->name, each.name);
    std::string words = "in one of them";
    if (each.a && each.b) {
      const std::size_t columns = columnsOf(readRecord(a.path, *list->pair->a), each.count());
      words =
          fmt::format("{} of {} ({}), ", each.differing, each.count(), percentage(list->share()));
      words += wordsForPlace(each, list->hasLabels, columns);
    }
    rows.push_back({{name, words}, {list->pair}});
  }
  return rows;
}

Json ChangeSummary::tables(const Capture& a, const RecordWords& words) {
  for (const auto& [name, row] : repeated_) {
    for (const RecordPair* const record : row.records) members_.add(*record, row.texts, row.rank);
  }
  repeated_.clear();
  Json tables = Json::array();
  const auto put = [&](Json rows, const std::string& caption,
                       const std::vector<std::string>& head) {
    if (!rows.empty()) tables.push_back(table(caption, head, std::move(rows)));
  };
  const auto members = members_.most(kMost);
  put(rowsFor(members, words),
      "Numbers that changed most, relative to the larger one" +
          partOf(members.size(), members_.rows().size()),
      {"Member", "A", "B", "Change", "Records"});
  const auto lists = listRows(a);
  put(rowsFor(lists, words),
      "Lists and pictures of which most changed, and where" + partOf(lists.size(), lists_.size()),
      {"List", "Numbers that differ", "Record"});
  put(std::move(alone_), "Records that only one of them has", {"Record", "Only in"});
  return tables;
}

}  // namespace simrec::report
