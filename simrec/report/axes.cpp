#include "simrec/report/axes.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace simrec::report {
namespace {

/// Room for the numbers, the titles and half a line.
constexpr double kLeft = 60, kTop = 8, kBottom = 44;

/// What large numbers are told in, and from where on.
struct Prefix {
  double from, unit;
  const char* name;
};

Prefix prefixFor(double largest) {
  constexpr Prefix kPrefixes[] = {
      {1e15, 1, ""}, {1e12, 1e12, " T"}, {1e9, 1e9, " G"}, {1e6, 1e6, " M"}, {1e4, 1e3, " k"}};
  for (const Prefix& prefix : kPrefixes) {
    if (largest >= prefix.from) return prefix;
  }
  return {0, 1, ""};
}

std::string coordinate(double value) { return fmt::format("{:.1f}", value); }

Json ticksOf(const Axis& axis, bool up) {
  Json ticks = Json::array();
  for (const Tick& tick : axis.ticks) {
    const double at = up ? axis.length - axis.at(tick.value) : axis.at(tick.value);
    ticks.push_back({{"tickAt", coordinate(at)}, {"tickText", tick.text}});
  }
  return ticks;
}

}  // namespace

std::vector<Tick> roundTicks(const Range& range) {
  constexpr double kMost = 5;
  const double span = range.high - range.low;
  const double power = std::pow(10, std::floor(std::log10(span / kMost)));
  double step = power;
  for (const double factor : {2, 5, 10}) {
    if (span / step > kMost) step = factor * power;
  }
  // Enough digits to tell one from the next.
  const double largest = std::max(std::fabs(range.low), std::fabs(range.high));
  const int digits = std::clamp(static_cast<int>(std::log10(largest / step)) + 2, 6, 17);
  const Prefix prefix = prefixFor(largest);
  std::vector<Tick> ticks;
  const double first = std::ceil(range.low / step);
  for (double i = 0; i <= kMost && (first + i) * step <= range.high; ++i) {
    const double value = (first + i) * step + 0.0;  // -0 becomes 0
    ticks.push_back({value, fmt::format("{:.{}g}{}", value / prefix.unit, digits,
                                        value == 0 ? "" : prefix.name)});
  }
  return ticks;
}

Json axesOf(const Axis& across, const Axis& up, double right) {
  const Json columns = ticksOf(across, false), rows = ticksOf(up, true);
  std::string grid;
  for (const Json& tick : columns) {
    grid += fmt::format("M{} 0V{}", tick["tickAt"].get_ref<const std::string&>(), up.length);
  }
  for (const Json& tick : rows) {
    grid += fmt::format("M0 {}H{}", tick["tickAt"].get_ref<const std::string&>(), across.length);
  }
  return {{"viewBox", fmt::format("{} {} {} {}", -kLeft, -kTop, kLeft + across.length + right,
                                  kTop + up.length + kBottom)},
          {"frameWidth", across.length},
          {"frameHeight", up.length},
          {"frameMiddle", across.length / 2},
          {"grid", grid},
          {"acrossTicks", columns},
          {"acrossTitle", across.title},
          {"acrossTicksAt", up.length + 18},
          {"acrossTitleAt", up.length + 37},
          {"upTicks", rows},
          {"upTitle", up.title},
          {"upTitleMiddle", -up.length / 2}};
}

}  // namespace simrec::report
