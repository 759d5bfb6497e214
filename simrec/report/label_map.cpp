#include "simrec/report/label_map.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>

#include "simrec/report/field.h"
#include "simrec/text.h"
#include "simrec/wording.h"

namespace simrec::report {
namespace {

constexpr std::size_t kUsualColumns = 640;

void setShape(const Values& values, LabelMap& map) {
  const std::uint64_t columns = integerOf(values, "horizontalRegionCount");
  const std::uint64_t rows = integerOf(values, "verticalRegionCount");
  const std::uint64_t size = map.labels.size();
  map.places = size;
  if (columns > 0 && columns <= size && rows <= size && columns * rows == size) {
    map.columns = static_cast<std::size_t>(columns);
    map.rows = static_cast<std::size_t>(rows);
    return;
  }
  map.shapeIsTold = false;
  // More than any map has are nobody's frame.
  const std::size_t most = find(values, "qsegStatsInfo")->member->count;
  if (columns * rows <= most) map.places = std::max(size, columns * rows);
  map.columns = std::min<std::size_t>(kUsualColumns, map.labels.size());
  map.rows = map.labels.size() / map.columns;
  map.labels.resize(map.columns * map.rows);
}

}  // namespace

std::optional<LabelMap> labelMapOf(const Values& values) {
  const Value* const value = find(values, "qsegStatsInfo");
  if (value == nullptr || value->list() == nullptr || value->list()->size() == 0) {
    return std::nullopt;
  }
  LabelMap map;
  map.labels = std::get<std::vector<std::uint8_t>>(value->list()->values);
  for (const std::uint8_t label : map.labels) ++map.counts[label];
  setShape(values, map);
  return map;
}

double LabelMap::shareOf(std::size_t label) const {
  return static_cast<double>(counts[label]) / static_cast<double>(places);
}

bool LabelMap::isFlat() const {
  return std::count_if(counts.begin(), counts.end(),
                       [](std::uint64_t count) { return count > 0; }) == 1;
}

std::string LabelMap::png() const { return pngOf({columns, rows, labels, &labelPalette()}); }

LabelMap LabelMap::reduced(std::size_t mostColumns) const {
  const std::size_t step = (columns + mostColumns - 1) / mostColumns;
  LabelMap map;
  map.columns = (columns + step - 1) / step;
  map.rows = (rows + step - 1) / step;
  for (std::size_t row = 0; row < rows; row += step) {
    for (std::size_t column = 0; column < columns; column += step) {
      map.labels.push_back(labels[row * columns + column]);
    }
  }
  return map;
}

std::string LabelMap::wordsForMissing() const {
  const std::uint64_t has = std::accumulate(counts.begin(), counts.end(), std::uint64_t{0});
  const std::uint64_t missing = places - has;
  if (missing == 0) return "";
  return fmt::format("{} of {} {} no label", missing, counted(places, "place"),
                     missing == 1 ? "has" : "have");
}

std::string LabelMap::sentence() const {
  const auto used = static_cast<std::uint64_t>(
      std::count_if(counts.begin(), counts.end(), [](std::uint64_t count) { return count > 0; }));
  const auto most =
      static_cast<std::size_t>(std::max_element(counts.begin(), counts.end()) - counts.begin());
  const std::string missing = wordsForMissing();
  return fmt::format("{}; the most frequent one is {} with {} of the frame{}.",
                     counted(used, "label"), most, percentage(shareOf(most)),
                     missing.empty() ? "" : "; " + missing);
}

}  // namespace simrec::report
