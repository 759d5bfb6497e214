#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "simrec/report/encoding.h"
#include "simrec/report/label_map.h"
#include "simrec/report/views.h"
#include "simrec/text.h"
#include "simrec/wording.h"

namespace simrec::report {
namespace {

/// A rectangle drawn over the map; null: it has no area.
Json rectangleOf(const Values& sides) {
  if (integerOf(sides, "width") == 0 || integerOf(sides, "height") == 0) return nullptr;
  return {{"left", integerOf(sides, "left")},
          {"top", integerOf(sides, "top")},
          {"rectWidth", integerOf(sides, "width")},
          {"rectHeight", integerOf(sides, "height")}};
}

/// The names of instances, each in the corner of its own frame, or on from there where another
/// name already is.
class Names {
 public:
  explicit Names(const LabelMap& map)
      : columns_(static_cast<double>(map.columns)), rows_(static_cast<double>(map.rows)) {}

  /// In labels of the map, as all sizes here.
  double size() const { return 0.034 * columns_; }

  /// Names that touch would read as one number.
  double gap() const { return 0.5 * size(); }

  void add(const Json& frame, const std::string& name) {
    const double left = frame["left"].get<double>(), top = frame["top"].get<double>();
    if (left >= columns_ || top >= rows_) return;  // beyond the map
    const double width = 0.7 * size() * static_cast<double>(name.size());
    const Place first = {std::min(left + 0.2 * size(), columns_ - width), top + size(), width};
    // Within the frame, as long as a name is not wider.
    const double right =
        std::min(columns_, std::max(left + frame["rectWidth"].get<double>(), first.across + width));
    Place place = first;
    for (int tried = 0; !isFree(place); ++tried) {
      place.across += 0.2 * size();
      if (place.across + width > right) place = {first.across, place.down + size(), width};
      if (place.down > rows_ || tried == kMostTried) {  // there is no room
        place = first;
        break;
      }
    }
    taken_.push_back(place);
    shown_.push_back({{"nameAcross", fmt::format("{:.1f}", place.across)},
                      {"nameDown", fmt::format("{:.1f}", place.down)},
                      {"nameText", name}});
  }

  const Json& shown() const { return shown_; }

 private:
  static constexpr int kMostTried = 1000;

  struct Place {
    double across, down, width;
  };

  bool isFree(const Place& place) const {
    return std::none_of(taken_.begin(), taken_.end(), [&](const Place& each) {
      return place.across < each.across + each.width + gap() &&
             each.across < place.across + place.width + gap() &&
             std::fabs(place.down - each.down) < size();
    });
  }

  const double columns_, rows_;
  std::vector<Place> taken_;
  Json shown_ = Json::array();
};

/// The valid instances and their parts; false: there are none, or nobody knows where they lie.
Json overlayOf(const Values& values, const LabelMap& map) {
  if (!map.shapeIsTold) return false;
  Json rectangles = Json::array(), parts = Json::array();
  Names names(map);
  const Value* const instances = find(values, "qsegInstInfos");
  if (instances == nullptr || instances->items() == nullptr) return false;
  const std::size_t count =
      std::min<std::size_t>(integerOf(values, "qsegInstCount"), instances->items()->size());
  for (std::size_t i = 0; i < count; ++i) {
    const Values& instance = (*instances->items())[i];
    const Value* const frame = find(instance, "roi");
    if (frame != nullptr && frame->members() != nullptr) {
      if (Json rectangle = rectangleOf(*frame->members()); !rectangle.is_null()) {
        names.add(rectangle, std::to_string(i));
        rectangles.push_back(std::move(rectangle));
      }
    }
    const Value* const list = find(instance, "partROIs");
    if (list == nullptr || list->items() == nullptr) continue;
    for (const Values& each : *list->items()) {
      if (Json part = rectangleOf(each); !part.is_null()) parts.push_back(std::move(part));
    }
  }
  if (rectangles.empty() && parts.empty()) return false;
  const bool hasFrames = !rectangles.empty(), hasParts = !parts.empty();
  return {{"rectangles", std::move(rectangles)},
          {"parts", std::move(parts)},
          {"names", names.shown()},
          {"nameSize", names.size()},
          {"hasFrames", hasFrames},
          {"hasParts", hasParts}};
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
  const std::string missing = map.wordsForMissing();
  return table(missing.empty() ? "Share of each label" : "Share of each label; " + missing,
               {"Label", "Share of the frame", "Places"}, std::move(rows));
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
  if (!map->shapeIsTold)
    facts += " (as many as there are; the file tells another shape, so there are no frames)";
  if (const Value* const valid = find(record.values, "isQSegInfoValid")) {
    if (valid->number()->integer == 0) facts += "; the segmentation is not valid";
  }
  view["viewFacts"] = facts + ".";
  Map look = {"Label map", "", "labels in colours, with frames around instances and their parts",
              "qsegStatsInfo"};
  Json shown = plainFigure(look, map->columns, map->rows, map->png(), map->sentence(), numbers);
  shown["overlay"] = overlayOf(record.values, *map);
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
