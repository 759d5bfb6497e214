#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "simrec/report/lens_shading.h"
#include "simrec/report/views.h"
#include "simrec/wording.h"

namespace simrec::report {
namespace {

constexpr double kChartWidth = 360, kChartHeight = 200;

/// One scale for all channels.
Range rangeOf(const std::vector<ShadingChannel>& channels) {
  std::vector<double> all;
  for (const ShadingChannel& channel : channels) {
    all.insert(all.end(), channel.gains.values.begin(), channel.gains.values.end());
  }
  const Extremes extremes = extremesOf(all);
  return {extremes.low, extremes.high};
}

std::string pointsOf(const std::vector<double>& values, const Range& range) {
  std::string points;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!std::isfinite(values[i])) continue;
    points +=
        fmt::format("{}{:.1f},{:.1f}", points.empty() ? "" : " ",
                    kChartWidth * static_cast<double>(i) / static_cast<double>(values.size() - 1),
                    kChartHeight * (range.high - values[i]) / (range.high - range.low));
  }
  return points;
}

/// The gains along the diagonal, relative to those at the centre.
Json chartOf(const std::vector<ShadingChannel>& channels, Numbers& numbers) {
  std::vector<double> all;
  for (const ShadingChannel& channel : channels) {
    all.insert(all.end(), channel.diagonal.begin(), channel.diagonal.end());
  }
  const Extremes extremes = extremesOf(all);
  if (extremes.isFlat()) return false;
  const Range range = {extremes.low, extremes.high};
  Json lines = Json::array();
  std::string lists;
  std::size_t steps = 1;
  for (const ShadingChannel& channel : channels) {
    if (channel.diagonal.size() < 2) continue;
    numbers.add(channel.name, tokensOf(channel.diagonal));
    lists += (lists.empty() ? "" : " ") + std::string(channel.name);
    steps = channel.diagonal.size() - 1;
    lines.push_back({{"lineName", channel.name}, {"points", pointsOf(channel.diagonal, range)}});
  }
  return {{"lines", lines},
          {"chartNumbers", numbers.id()},
          {"chartLists", lists},
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
    cells.push_back(cell(percentage(channel.lost())));
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
  const Range range = rangeOf(channels);
  for (const ShadingChannel& channel : channels) {
    Map map = {fmt::format("{} gain", channel.name), "",
               fmt::format("the gain of channel {} over the frame", channel.name), channel.member};
    map.range = range;
    view["figures"].push_back(figure(map, channel.gains, numbers));
  }
  view["tables"].push_back(fallOffTable(channels));
  view["chart"] = chartOf(channels, numbers);
  view["dataSets"].push_back(numbers.json());
  return view;
}

}  // namespace simrec::report
