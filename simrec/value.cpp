#include "simrec/value.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

#include <fast_float/fast_float.h>

namespace simrec {
namespace {

template <typename Item>
bool isNan(Item value) {
  if constexpr (std::is_same_v<Item, float>) return std::isnan(value);
  (void)value;
  return false;
}

template <typename Item>
Summary summaryOfAll(const std::vector<Item>& values) {
  Item least = 0, most = 0;
  bool any = false;
  double sum = 0;
  for (const Item value : values) {
    sum += static_cast<double>(value);
    if (isNan(value)) continue;
    least = any ? std::min(least, value) : value;
    most = any ? std::max(most, value) : value;
    any = true;
  }
  if constexpr (std::is_same_v<Item, float>) {
    if (!any && !values.empty()) least = most = std::numeric_limits<float>::quiet_NaN();
  }
  const double mean = values.empty() ? 0 : sum / static_cast<double>(values.size());
  return {values.size(), numberOf(least), numberOf(most), mean};
}

}  // namespace

const Value* find(const Values& values, std::string_view name) {
  const auto found = std::find_if(values.begin(), values.end(),
                                  [&](const Value& value) { return value.member->name == name; });
  return found != values.end() ? &*found : nullptr;
}

Summary summaryOf(const NumberList& list) {
  return std::visit([](const auto& values) { return summaryOfAll(values); }, list.values);
}

double shortestDecimal(float value) {
  if (!std::isfinite(value)) return static_cast<double>(value);
  const std::string text = fmt::format("{}", value);
  double decimal = 0;
  fast_float::from_chars(text.data(), text.data() + text.size(), decimal);
  return decimal;
}

}  // namespace simrec
