#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "simrec/report/axes.h"
#include "simrec/report/lens_shading.h"
#include "simrec/report/views.h"
#include "simrec/wording.h"

namespace simrec::report {
namespace {

constexpr double kChartWidth = 320, kChartHeight = 200;

/// A channel this many times beyond the least one would leave nothing to see of the others.
constexpr double kWild = 10;

double magnitudeOf(const std::vector<double>& values) {
  const Extremes extremes = extremesOf(values);
  return std::max(std::fabs(extremes.low), std::fabs(extremes.high));
}

/// The lists that share a scale: a wild one has nothing of the others' size.
std::vector<bool> sharers(const std::vector<const std::vector<double>*>& lists) {
  double least = std::numeric_limits<double>::infinity();
  for (const auto* const list : lists) {
    if (const double magnitude = magnitudeOf(*list); magnitude > 0) {
      least = std::min(least, magnitude);
    }
  }
  std::vector<bool> share;
  share.reserve(lists.size());
  for (const auto* const list : lists) share.push_back(magnitudeOf(*list) <= kWild * least);
  return share;
}

/// From the lowest to the highest of those that share a scale.
Range rangeOf(const std::vector<const std::vector<double>*>& lists,
              const std::vector<bool>& share) {
  std::vector<double> all;
  for (std::size_t i = 0; i < lists.size(); ++i) {
    if (share[i]) all.insert(all.end(), lists[i]->begin(), lists[i]->end());
  }
  const Extremes extremes = extremesOf(all);
  return {extremes.low, extremes.high};
}

/// A sign around a point for each channel, since lines that lie on each other differ in nothing.
constexpr const char* kSigns[] = {"m-4,0a4,4 0 1,0 8,0a4,4 0 1,0 -8,0z", "m-3.5,-3.5h7v7h-7z",
                                  "m0,-5l5,9h-10z", "m0,-5l5,5l-5,5l-5,-5z"};

struct Line {
  std::string points, signs;
  double end;  ///< how far down its last point is
};

/// Each line has its signs, every fourth point, at other points than the others.
Line lineOf(const std::vector<double>& values, const Axis& up, std::size_t which) {
  Line line = {};
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!std::isfinite(values[i])) continue;
    line.end = up.length - up.at(values[i]);
    const std::string point = fmt::format(
        "{:.1f},{:.1f}",
        kChartWidth * static_cast<double>(i) / static_cast<double>(values.size() - 1), line.end);
    line.points += (line.points.empty() ? "" : " ") + point;
    if (i % std::size(kSigns) == which) line.signs += "M" + point + kSigns[which];
  }
  return line;
}

/// Names stand where lines end, one below the other where these end at one place.
void placeNames(Json& lines) {
  constexpr double kNameHeight = 13;
  std::vector<Json*> order;
  for (Json& line : lines) order.push_back(&line);
  const auto down = [](const Json* line) { return line->at("nameDown").get<double>(); };
  std::stable_sort(order.begin(), order.end(),
                   [&](const Json* a, const Json* b) { return down(a) < down(b); });
  double free = 0, most = kChartHeight - kNameHeight * static_cast<double>(order.size() - 1);
  for (Json* const line : order) {
    const double place = std::clamp(down(line), free, std::max(free, most));
    (*line)["nameDown"] = place;
    free = place + kNameHeight;
    most += kNameHeight;
  }
}

/// Of each point of the diagonal, from the centre.
std::vector<double> distancesOf(std::size_t steps) {
  std::vector<double> distances;
  for (std::size_t i = 0; i <= steps; ++i) {
    distances.push_back(std::fabs(2 * static_cast<double>(i) / static_cast<double>(steps) - 1));
  }
  return distances;
}

/// The gains along the diagonal, relative to those at the centre.
Json chartOf(const std::vector<ShadingChannel>& channels, Numbers& numbers) {
  std::vector<const std::vector<double>*> diagonals;
  diagonals.reserve(channels.size());
  for (const ShadingChannel& channel : channels) diagonals.push_back(&channel.diagonal);
  const std::vector<bool> share = sharers(diagonals);
  const Range range = rangeOf(diagonals, share);
  if (!(range.low < range.high)) return false;
  const Axis across = {
      "distance from the centre (corner: 1)",
      {-1, 1},
      kChartWidth,
      {{-1, "top left"}, {-0.5, "0.5"}, {0, "0"}, {0.5, "0.5"}, {1, "bottom right"}}};
  const Axis up = {"gain (centre: 1)", range, kChartHeight};
  Json lines = Json::array();
  std::string lists = "distance", wild;
  std::size_t steps = 1;
  for (std::size_t i = 0; i < channels.size(); ++i) {
    const ShadingChannel& channel = channels[i];
    if (channel.diagonal.size() < 2) continue;
    if (!share[i]) wild += (wild.empty() ? "" : ", ") + std::string(channel.name);
    if (!share[i] || extremesOf(channel.diagonal).count == 0) continue;
    numbers.add(channel.name, tokensOf(channel.diagonal));
    lists += " " + std::string(channel.name);
    steps = channel.diagonal.size() - 1;
    const Line line = lineOf(channel.diagonal, up, i);
    lines.push_back({{"lineName", channel.name},
                     {"points", line.points},
                     {"signs", line.signs},
                     {"sign", kSigns[i]},
                     {"nameAcross", kChartWidth + 8},
                     {"nameDown", line.end}});
  }
  placeNames(lines);
  numbers.add("distance", tokensOf(distancesOf(steps)));
  return {{"lines", lines},
          {"axes", axesOf(across, up, 40)},
          {"chartNumbers", numbers.id()},
          {"chartLists", lists},
          {"chartWild", wild.empty() ? Json(false) : Json(wild)},
          {"chartStep", kChartWidth / static_cast<double>(steps)},
          {"chartHeight", kChartHeight},
          {"chartLow", rounded(range.low)},
          {"chartHigh", rounded(range.high)}};
}

Json fallOffTable(const std::vector<ShadingChannel>& channels) {
  Json rows = Json::array();
  for (const ShadingChannel& channel : channels) {
    if (!channel.gains.isDrawable()) continue;
    std::vector<Json> cells = {cell(rounded(channel.center))};
    for (const double corner : channel.corners) cells.push_back(cell(rounded(corner)));
    cells.push_back(cell(rounded(channel.meanCorner() / channel.center)));
    cells.push_back(cell(std::isfinite(channel.lost()) ? percentage(channel.lost()) : "none"));
    rows.push_back(row(channel.name, std::move(cells)));
  }
  return table("Fall-off: gains at the centre and in the corners",
               {"Channel", "Centre", "Top left", "Top right", "Bottom left", "Bottom right",
                "Mean corner over centre", "Light lost in the corners"},
               std::move(rows));
}

}  // namespace

Json shadingView(const Record& record, Ids& ids) {
  Json view = newView(record.file, record.problems);
  const std::vector<ShadingChannel> channels = shadingOf(record.values);
  if (channels.empty()) return view;
  Numbers numbers(ids);
  for (const Value& value : record.values) {
    if (value.list() != nullptr) numbers.add(value);
  }
  std::vector<const std::vector<double>*> gains;
  gains.reserve(channels.size());
  for (const ShadingChannel& channel : channels) gains.push_back(&channel.gains.values);
  const std::vector<bool> share = sharers(gains);
  const Range range = rangeOf(gains, share);
  for (std::size_t i = 0; i < channels.size(); ++i) {
    const ShadingChannel& channel = channels[i];
    Map map = {fmt::format("{} gain", channel.name), "",
               fmt::format("the gain of channel {} over the frame", channel.name), channel.member};
    if (share[i]) map.range = range;
    view["figures"].push_back(figure(map, channel.gains, numbers));
  }
  view["tables"].push_back(fallOffTable(channels));
  view["chart"] = chartOf(channels, numbers);
  view["dataSets"].push_back(numbers.json());
  return view;
}

}  // namespace simrec::report
