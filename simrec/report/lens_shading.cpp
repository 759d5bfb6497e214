#include "simrec/report/lens_shading.h"

#include <algorithm>
#include <cmath>

namespace simrec::report {
namespace {

/// Between the four gains around the place; `across` and `down` are parts of the whole.
double gainAt(const Field& field, double across, double down) {
  const double column = across * static_cast<double>(field.columns - 1);
  const double row = down * static_cast<double>(field.rows - 1);
  const auto left = static_cast<std::size_t>(column), top = static_cast<std::size_t>(row);
  const std::size_t right = std::min(left + 1, field.columns - 1);
  const std::size_t bottom = std::min(top + 1, field.rows - 1);
  const double x = column - std::floor(column), y = row - std::floor(row);
  const auto at = [&](std::size_t atRow, std::size_t atColumn) {
    return field.values[atRow * field.columns + atColumn];
  };
  return (at(top, left) * (1 - x) + at(top, right) * x) * (1 - y) +
         (at(bottom, left) * (1 - x) + at(bottom, right) * x) * y;
}

void measure(ShadingChannel& channel) {
  const Field& gains = channel.gains;
  if (!gains.isDrawable()) return;
  channel.center = gainAt(gains, 0.5, 0.5);
  channel.corners = {gainAt(gains, 0, 0), gainAt(gains, 1, 0), gainAt(gains, 0, 1),
                     gainAt(gains, 1, 1)};
  const std::size_t steps = std::max(gains.columns, gains.rows);
  for (std::size_t i = 0; i < steps; ++i) {
    const double part = steps > 1 ? static_cast<double>(i) / static_cast<double>(steps - 1) : 0;
    channel.diagonal.push_back(gainAt(gains, part, part) / channel.center);
  }
}

}  // namespace

double ShadingChannel::meanCorner() const {
  return (corners[0] + corners[1] + corners[2] + corners[3]) / 4;
}

std::vector<ShadingChannel> shadingOf(const Values& values) {
  constexpr std::pair<const char*, const char*> kChannels[] = {
      {"rGain", "R"}, {"grGain", "Gr"}, {"gbGain", "Gb"}, {"bGain", "B"}};
  const std::size_t columns = integerOf(values, "width"), rows = integerOf(values, "height");
  std::vector<ShadingChannel> channels;
  for (const auto& [member, name] : kChannels) {
    const Value* const value = find(values, member);
    if (value == nullptr) continue;
    ShadingChannel channel = {};
    channel.member = member;
    channel.name = name;
    channel.gains = {columns, rows, valuesOf(*value->list())};
    const bool fits = columns <= channel.gains.values.size() && rows <= channel.gains.values.size();
    if (!fits) channel.gains.columns = 0;
    measure(channel);
    channels.push_back(std::move(channel));
  }
  return channels;
}

}  // namespace simrec::report
