#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "simrec/report/axes.h"
#include "simrec/report/views.h"
#include "simrec/wording.h"

namespace simrec::report {
namespace {

constexpr double kBarsWidth = 320, kBarsHeight = 180;

/// As many of the channels as there is room for.
std::vector<Tick> channelTicks(std::size_t channels) {
  constexpr std::size_t kMost = 12;
  const std::size_t step = channels <= kMost ? 1 : 5 * ((channels + 5 * kMost - 1) / (5 * kMost));
  std::vector<Tick> ticks;
  for (std::size_t i = 0; i < channels; i += step) {
    ticks.push_back({static_cast<double>(i), std::to_string(i)});
  }
  return ticks;
}

/// A bar for each channel, with its reading as the file has it.
Json barsOf(const Value& list, Numbers& numbers) {
  const std::vector<double> values = valuesOf(*list.list());
  numbers.add(list);
  const Extremes extremes = extremesOf(values);
  const double top = std::max(extremes.high, 0.0), bottom = std::min(extremes.low, 0.0);
  if (extremes.count == 0 || !(top > bottom)) return false;
  // A channel takes the half before and the half behind its number.
  const double half = 0.5, count = static_cast<double>(values.size());
  const Axis across = {"channel", {-half, count - half}, kBarsWidth, channelTicks(values.size())};
  const Axis up = {"reading", {bottom, top}, kBarsHeight};
  const double step = kBarsWidth / count;
  Json bars = Json::array();
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double value = std::isfinite(values[i]) ? values[i] : 0;
    const double high = up.at(std::max(value, 0.0)), low = up.at(std::min(value, 0.0));
    bars.push_back(
        {{"barLeft", fmt::format("{:.1f}", across.at(static_cast<double>(i)) - 0.4 * step)},
         {"barTop", fmt::format("{:.1f}", kBarsHeight - high)},
         {"barHeight", fmt::format("{:.1f}", high - low)}});
  }
  return {{"barItems", bars},
          {"axes", axesOf(across, up)},
          {"barWidth", 0.8 * step},
          {"barsNumbers", numbers.id()},
          {"barsList", list.member->name},
          {"barsFirst", across.at(0)},
          {"barsStep", step},
          {"barsHeight", kBarsHeight},
          {"barsSummary", fmt::format("{} channels; the highest is channel {} with {}.",
                                      values.size(), extremes.highAt, rounded(extremes.high))}};
}

Json channelTable(const NumberList& list) {
  std::string tokens;
  appendNumbers(tokens, list);
  std::vector<std::string> head = {"Channel"};
  std::vector<Json> cells;
  for (std::size_t at = 1; at + 1 < tokens.size();) {
    const std::size_t end = std::min(tokens.find(',', at), tokens.size() - 1);
    head.push_back(std::to_string(cells.size()));
    cells.push_back(cell(tokens.substr(at, end - at)));
    at = end + 1;
  }
  return table("Readings of the channels", head, Json::array({row("Reading", std::move(cells))}));
}

}  // namespace

Json spectralView(const Record& record, Ids& ids) {
  Json view = newView(record.file, record.problems);
  Json rows = Json::array();
  for (const Value& value : record.values) {
    if (const Number* const number = value.number()) {
      rows.push_back(
          row(value.member->name, {cell(textOf(*number)), cell(remarkOn(*value.member, number))}));
    } else if (value.list() != nullptr && value.list()->size() > 0) {
      Numbers numbers(ids);
      view["bars"] = barsOf(value, numbers);
      view["dataSets"].push_back(numbers.json());
      view["tables"].push_back(channelTable(*value.list()));
    }
  }
  view["tables"].push_back(table("Values", {"Member", "Value", "Meaning"}, std::move(rows)));
  return view;
}

}  // namespace simrec::report
