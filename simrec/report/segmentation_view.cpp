#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "simrec/report/encoding.h"
#include "simrec/report/label_map.h"
#include "simrec/report/views.h"
#include "simrec/text.h"
#include "simrec/wording.h"

namespace simrec::report {
namespace {

/// A rectangle of an instance, drawn over the map; none: it has no area.
Json rectangleOf(const Values& instance, const char* name, const std::string& what) {
  const Value* const value = find(instance, name);
  if (value == nullptr || value->members() == nullptr) return nullptr;
  const Values& sides = *value->members();
  if (integerOf(sides, "width") == 0 || integerOf(sides, "height") == 0) return nullptr;
  return {{"left", integerOf(sides, "left")},
          {"top", integerOf(sides, "top")},
          {"rectWidth", integerOf(sides, "width")},
          {"rectHeight", integerOf(sides, "height")},
          {"rectName", what}};
}

/// A part's members are those of its rectangle themselves.
Json partOf(const Values& part) {
  if (integerOf(part, "width") == 0 || integerOf(part, "height") == 0) return nullptr;
  return {{"left", integerOf(part, "left")},
          {"top", integerOf(part, "top")},
          {"rectWidth", integerOf(part, "width")},
          {"rectHeight", integerOf(part, "height")}};
}

/// The valid instances and their parts.
Json overlayOf(const Values& values) {
  Json overlay = {{"rectangles", Json::array()}, {"parts", Json::array()}};
  const Value* const instances = find(values, "qsegInstInfos");
  if (instances == nullptr || instances->items() == nullptr) return false;
  const std::size_t count =
      std::min<std::size_t>(integerOf(values, "qsegInstCount"), instances->items()->size());
  for (std::size_t i = 0; i < count; ++i) {
    const Values& instance = (*instances->items())[i];
    Json rectangle = rectangleOf(instance, "roi", std::to_string(i));
    if (!rectangle.is_null()) overlay["rectangles"].push_back(std::move(rectangle));
    const Value* const parts = find(instance, "partROIs");
    if (parts == nullptr || parts->items() == nullptr) continue;
    for (const Values& each : *parts->items()) {
      Json part = partOf(each);
      if (!part.is_null()) overlay["parts"].push_back(std::move(part));
    }
  }
  if (overlay["rectangles"].empty() && overlay["parts"].empty()) return false;
  return overlay;
}

Json shareTable(const LabelMap& map) {
  Json rows = Json::array();
  for (std::size_t label = 0; label < map.counts.size(); ++label) {
    if (map.counts[label] == 0) continue;
    rows.push_back(row(fmt::format("Label {}", label),
                       {cell(fmt::format("{:.2f} %", 100 * map.shareOf(label))),
                        cell(std::to_string(map.counts[label]))},
                       hexOf(labelPalette()[label])));
  }
  return table("Share of each label", {"Label", "Share of the frame", "Places"}, std::move(rows));
}

Json instanceTable(const Values& values) {
  Json rows = Json::array();
  const Value* const instances = find(values, "qsegInstInfos");
  if (instances == nullptr || instances->items() == nullptr) return nullptr;
  const std::size_t count =
      std::min<std::size_t>(integerOf(values, "qsegInstCount"), instances->items()->size());
  constexpr std::array<const char*, 5> kMembers = {"ID", "nSegIdx", "nConf", "eTrackStatus",
                                                   "eObjectType"};
  for (std::size_t i = 0; i < count; ++i) {
    std::vector<Json> cells;
    for (const char* const member : kMembers) {
      const Value* const value = find((*instances->items())[i], member);
      cells.push_back(cell(value != nullptr ? textOf(*value->number()) : "missing"));
    }
    rows.push_back(row(std::to_string(i), std::move(cells)));
  }
  if (rows.empty()) return nullptr;
  return table("Instances", {"Instance", "ID", "Segment", "Confidence", "Tracking", "Object type"},
               std::move(rows));
}

}  // namespace

Json segmentationView(const Record& record, Ids& ids) {
  Json view = newView(record.file, record.problems);
  const auto map = labelMapOf(record.values);
  if (!map) return view;
  Numbers numbers(ids);
  numbers.add(*find(record.values, "qsegStatsInfo"));
  std::string facts = fmt::format("{} x {} labels", map->columns, map->rows);
  if (!map->shapeIsTold) facts += " (as many as there are; the file tells another shape)";
  if (const Value* const valid = find(record.values, "isQSegInfoValid")) {
    if (valid->number()->integer == 0) facts += "; the segmentation is not valid";
  }
  view["viewFacts"] = facts + ".";
  Map look = {"Label map", "", "labels in colours, with frames around instances and their parts",
              "qsegStatsInfo"};
  Json shown = plainFigure(look, map->columns, map->rows, map->png(), map->sentence(), numbers);
  shown["overlay"] = overlayOf(record.values);
  if (map->isFlat()) shown["png"] = shown["overlay"] = false;
  view["figures"].push_back(std::move(shown));
  view["tables"].push_back(shareTable(*map));
  if (Json instances = instanceTable(record.values); !instances.is_null()) {
    view["tables"].push_back(std::move(instances));
  }
  view["dataSets"].push_back(numbers.json());
  return view;
}

}  // namespace simrec::report
