#include "simrec/report/field.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace simrec::report {
namespace {

std::uint8_t shadeOf(double value, const Range& range) {
  const double span = range.high - range.low;
  const double part = span > 0 ? (value - range.low) / span : 0.5;
  return static_cast<std::uint8_t>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
}

}  // namespace

Extremes extremesOf(const std::vector<double>& values) {
  Extremes found;
  double sum = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double value = values[i];
    if (!std::isfinite(value)) continue;
    if (found.count == 0 || value < found.low) {
      found.low = value;
      found.lowAt = i;
    }
    if (found.count == 0 || value > found.high) {
      found.high = value;
      found.highAt = i;
    }
    sum += value;
    ++found.count;
  }
  if (found.count > 0) found.mean = sum / static_cast<double>(found.count);
  return found;
}

std::vector<Color> colorsOf(const Field& field, const Range& range, const Palette& palette) {
  std::vector<Color> colors;
  colors.reserve(field.values.size());
  for (const double value : field.values) {
    colors.push_back(std::isfinite(value) ? palette[shadeOf(value, range)] : kNoValue);
  }
  return colors;
}

std::string pngOf(const Field& field, const Range& range, const Palette& palette) {
  const auto isNone = [](double value) { return !std::isfinite(value); };
  if (std::any_of(field.values.begin(), field.values.end(), isNone)) {
    return pngOf(field.columns, field.rows, colorsOf(field, range, palette));
  }
  Picture picture = {field.columns, field.rows, {}, &palette};
  picture.pixels.reserve(field.values.size());
  for (const double value : field.values) picture.pixels.push_back(shadeOf(value, range));
  return pngOf(picture);
}

std::vector<double> valuesOf(const NumberList& list) {
  return std::visit(
      [](const auto& items) {
        std::vector<double> values;
        values.reserve(items.size());
        for (const auto item : items) values.push_back(static_cast<double>(item));
        return values;
      },
      list.values);
}

std::uint64_t integerOf(const Values& values, std::string_view name) {
  const Value* const value = find(values, name);
  return value != nullptr && value->number() != nullptr ? value->number()->integer : 0;
}

std::vector<double> differenceOf(const std::vector<double>& a, const std::vector<double>& b) {
  std::vector<double> difference(std::min(a.size(), b.size()));
  for (std::size_t i = 0; i < difference.size(); ++i) difference[i] = a[i] - b[i];
  return difference;
}

std::string rounded(double value) {
  if (!std::isfinite(value)) return "none";
  // Large numbers without their fraction, rather than with an exponent.
  const double size = std::fabs(value);
  return size >= 1000 && size < 1e15 ? fmt::format("{:.0f}", value) : fmt::format("{:.4g}", value);
}

std::string tokensOf(const std::vector<double>& values) {
  std::string text;
  for (const double value : values) {
    if (!text.empty()) text += ',';
    text += rounded(value);
  }
  return text;
}

}  // namespace simrec::report
