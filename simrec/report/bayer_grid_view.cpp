#include <fmt/format.h>

#include <cmath>

#include "simrec/report/axes.h"
#include "simrec/report/bayer_grid.h"
#include "simrec/report/views.h"
#include "simrec/text.h"

namespace simrec::report {
namespace {

/// Every region as a dot of one path.
std::string dotsOf(const BayerGrid& grid, const Axis& across, const Axis& up) {
  std::string path;
  for (std::size_t i = 0; i < grid.regions; ++i) {
    const double red = grid.redness.values[i], blue = grid.blueness.values[i];
    if (!std::isfinite(red) || !std::isfinite(blue)) continue;
    path += fmt::format("M{:.1f} {:.1f}h0", across.at(red), up.length - up.at(blue));
  }
  return path;
}

Json scatterOf(const BayerGrid& grid, const Numbers& numbers) {
  const Extremes x = extremesOf(grid.redness.values), y = extremesOf(grid.blueness.values);
  if (x.isFlat() || y.isFlat()) return false;
  const Axis across = {"R/G", {x.low, x.high}, 250}, up = {"B/G", {y.low, y.high}, 190};
  return {
      {"dots", dotsOf(grid, across, up)},
      {"axes", axesOf(across, up)},
      {"scatterNumbers", numbers.id()},
      {"scatterColumns", grid.columns},
      {"scatterSummary",
       fmt::format("{}: R/G from {} to {}, B/G from {} to {}; of all samples R/G {}, B/G {}.",
                   counted(grid.regions, "region"), rounded(x.low), rounded(x.high), rounded(y.low),
                   rounded(y.high), rounded(grid.meanRedness), rounded(grid.meanBlueness))}};
}

constexpr char kRegionLists[] =
    " RSum RCount GRorGSum GRorGCount GBSum GBCount BSum BCount YSum YCount";

std::string factsOf(const BayerGrid& grid) {
  if (grid.columns == 0) {
    return fmt::format("{}; the file does not tell how they lie, so there are no maps.",
                       counted(grid.regions, "region"));
  }
  std::string text =
      fmt::format("{} regions, {} in a row and {} rows", grid.regions, grid.columns, grid.rows);
  if (grid.left.values.empty()) return text + ".";
  const Extremes left = extremesOf(grid.left.values);
  text += "; with saturation information: ";
  return text + (left.isFlat() ? "every region has the same number of samples in its sums."
                               : "some regions have fewer samples in their sums than others.");
}

}  // namespace

Json bayerGridView(const Record& record, Ids& ids) {
  Json view = newView(record.file, record.problems);
  const BayerGrid grid = bayerGridOf(record.values);
  if (grid.regions == 0) return view;
  Numbers numbers(ids);
  for (const Value& value : record.values) {
    if (value.list() != nullptr && value.member->carrier == catalogue::Carrier::kElement) {
      numbers.add(value);
    }
  }
  numbers.add("level", tokensOf(grid.level.values));
  numbers.add("R/G", tokensOf(grid.redness.values));
  numbers.add("B/G", tokensOf(grid.blueness.values));
  view["viewFacts"] = factsOf(grid);
  const auto add = [&](const char* title, const char* list, const char* what, const Field& field) {
    Map map = {title, "", what, std::string(list) + kRegionLists};
    map.isRatio = &field == &grid.redness || &field == &grid.blueness;
    view["figures"].push_back(figure(map, field, numbers));
  };
  add("Mean level", "level", "the mean of all samples of each region", grid.level);
  add("R/G", "R/G", "red over green of each region", grid.redness);
  add("B/G", "B/G", "blue over green of each region", grid.blueness);
  if (!grid.left.values.empty() && !extremesOf(grid.left.values).isFlat()) {
    numbers.add("left-out", tokensOf(grid.left.values));
    add("Samples left out as saturated", "left-out",
        "the part of the samples that no sum has, in each region", grid.left);
  }
  view["scatter"] = scatterOf(grid, numbers);
  view["dataSets"].push_back(numbers.json());
  return view;
}

}  // namespace simrec::report
