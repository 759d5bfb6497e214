#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "simrec/report/views.h"
#include "simrec/wording.h"

namespace simrec::report {
namespace {

constexpr double kBarsHeight = 160, kBarStep = 24, kBarWidth = 18, kTextHeight = 20;

/// A bar for each channel, with its reading as the file has it.
Json barsOf(const Value& list, Numbers& numbers) {
  const std::vector<double> values = valuesOf(*list.list());
  numbers.add(list);
  const Extremes extremes = extremesOf(values);
  const double top = std::max(extremes.high, 0.0), bottom = std::min(extremes.low, 0.0);
  if (extremes.count == 0 || !(top > bottom)) return false;
  Json bars = Json::array();
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double value = std::isfinite(values[i]) ? values[i] : 0;
    const double high = kBarsHeight * (top - std::max(value, 0.0)) / (top - bottom);
    const double low = kBarsHeight * (top - std::min(value, 0.0)) / (top - bottom);
    bars.push_back({{"barLeft", kBarStep * static_cast<double>(i)},
                    {"barMiddle", kBarStep * static_cast<double>(i) + kBarWidth / 2},
                    {"barTop", fmt::format("{:.1f}", high)},
                    {"barHeight", fmt::format("{:.1f}", low - high)},
                    {"channel", i}});
  }
  return {{"barItems", bars},
          {"barWidth", kBarWidth},
          {"barsNumbers", numbers.id()},
          {"barsList", list.member->name},
          {"barsFirst", kBarWidth / 2},
          {"barsStep", kBarStep},
          {"barsHeight", kBarsHeight},
          {"barsViewWidth", kBarStep * static_cast<double>(values.size()) + 4},
          {"barsViewHeight", kBarsHeight + kTextHeight},
          {"barsTextAt", kBarsHeight + kTextHeight - 6},
          {"barsHigh", rounded(top)},
          {"barsLow", rounded(bottom)},
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
