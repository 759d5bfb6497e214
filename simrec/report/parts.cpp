#include "simrec/report/parts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "simrec/report/encoding.h"
#include "simrec/text.h"

namespace simrec::report {
namespace {

std::string withUnit(const std::string& text, const std::string& unit) {
  return unit.empty() ? text : text + " " + unit;
}

std::string summaryOf(const Map& map, const Field& field, const Extremes& extremes) {
  const std::size_t none = field.values.size() - extremes.count;
  if (extremes.count == 0) return "No place has a value.";
  std::string text;
  if (extremes.isFlat()) {
    text = fmt::format("All {} values are {}: there is nothing to draw.", extremes.count,
                       withUnit(rounded(extremes.low), map.unit));
  } else {
    text = fmt::format(
        "Highest {} at {}; lowest {} at {}; mean {}.", withUnit(rounded(extremes.high), map.unit),
        placeOf(extremes.highAt, field.columns), withUnit(rounded(extremes.low), map.unit),
        placeOf(extremes.lowAt, field.columns), rounded(extremes.mean));
  }
  if (none > 0)
    text +=
        fmt::format(" {} {} no value (grey).", counted(none, "place"), none == 1 ? "has" : "have");
  return text;
}

/// A palette from its low to its high end.
std::string scaleImage(const Palette& palette) {
  Picture picture = {palette.size(), 1, {}, &palette};
  for (std::size_t i = 0; i < palette.size(); ++i) {
    picture.pixels.push_back(static_cast<std::uint8_t>(i));
  }
  return base64(pngOf(picture));
}

/// The range of all values but the utmost at both ends; that of all where these are nearly one.
Range usualRange(std::vector<double> values, const Extremes& extremes) {
  constexpr double kUtmost = 0.02;
  const Range all = {extremes.low, extremes.high};
  values.erase(std::remove_if(values.begin(), values.end(),
                              [](double each) { return !std::isfinite(each); }),
               values.end());
  std::sort(values.begin(), values.end());
  const auto last = static_cast<double>(values.size() - 1);
  const Range usual = {values[static_cast<std::size_t>(kUtmost * last)],
                       values[static_cast<std::size_t>(std::ceil((1 - kUtmost) * last))]};
  return usual.low < usual.high ? usual : all;
}

/// Less than `least` counts as that.
Field logarithmOf(Field field, double least) {
  for (double& value : field.values) {
    if (std::isfinite(value)) value = std::log(std::max(value, least));
  }
  return field;
}

Range logarithmOf(const Range& range) { return {std::log(range.low), std::log(range.high)}; }

/// An end beyond which there are values has a sign, where they read otherwise.
Json scaleOf(const Range& range, const Extremes& extremes, const Map& map, bool logarithmic) {
  const double middle =
      logarithmic ? std::sqrt(range.low * range.high) : (range.low + range.high) / 2;
  const char* const below = extremes.low < range.low && rounded(extremes.low) != rounded(range.low)
                                ? "\xE2\x89\xA4 "
                                : "";
  const char* const above =
      extremes.high > range.high && rounded(extremes.high) != rounded(range.high) ? "\xE2\x89\xA5 "
                                                                                  : "";
  return {{"scaleImage", scaleImage(*map.palette)},
          {"low", below + rounded(range.low)},
          {"middle", rounded(middle) + (logarithmic ? " (log)" : "")},
          {"high", above + withUnit(rounded(range.high), map.unit)}};
}

Json bareFigure(const Map& map, const Field& shape, const std::string& summary) {
  return {{"title", map.title}, {"unit", map.unit},  {"columns", shape.columns},
          {"rows", shape.rows}, {"what", map.what},  {"summary", summary},
          {"png", false},       {"scale", false},    {"overlay", false},
          {"lists", map.lists}, {"numbersId", false}};
}

}  // namespace

Json cell(std::string text, bool marked) {
  constexpr std::size_t kOneLine = 24;  // numbers and a few words
  std::string looks = marked ? "marked" : "";
  if (text.size() > kOneLine) looks += looks.empty() ? "long" : " long";
  return {{"cellText", std::move(text)}, {"cellClass", std::move(looks)}};
}

Json row(std::string name, std::vector<Json> cells, const std::string& swatch) {
  return {{"rowName", std::move(name)},
          {"cells", std::move(cells)},
          {"swatch", swatch.empty() ? Json(false) : Json(swatch)}};
}

Json table(std::string caption, const std::vector<std::string>& head, Json rows) {
  return {{"caption", std::move(caption)}, {"head", head}, {"tableRows", std::move(rows)}};
}

void Numbers::add(const std::string& name, std::string_view tokens) {
  text_ += name;
  text_ += '\t';
  text_ += tokens;
  text_ += '\n';
}

void Numbers::add(const Value& value) {
  std::string tokens;
  appendNumbers(tokens, *value.list());
  add(value.member->name, std::string_view(tokens).substr(1, tokens.size() - 2));
}

Json Numbers::json() const { return {{"dataId", id_}, {"data", packed(text_)}}; }

std::string placeOf(std::size_t index, std::size_t columns) {
  if (columns == 0) return fmt::format("number {}", index);
  return fmt::format("column {}, row {} (number {})", index % columns, index / columns, index);
}

Range rangeOf(const Map& map, const Field& field) {
  const Extremes extremes = extremesOf(field.values);
  return map.isRatio && extremes.count > 0 ? usualRange(field.values, extremes)
                                           : Range{extremes.low, extremes.high};
}

Json figure(const Map& map, const Field& field, const Numbers& numbers) {
  const Extremes extremes = extremesOf(field.values);
  Json json = bareFigure(map, field, summaryOf(map, field, extremes));
  if (!field.isDrawable() || extremes.isFlat()) return json;
  const Range range = map.range.value_or(rangeOf(map, field));
  const bool logarithmic = map.isRatio && range.low > 0;
  json["png"] =
      base64(logarithmic ? pngOf(logarithmOf(field, range.low), logarithmOf(range), *map.palette)
                         : pngOf(field, range, *map.palette));
  json["scale"] = scaleOf(range, extremes, map, logarithmic);
  json["numbersId"] = numbers.id();
  return json;
}

Json plainFigure(const Map& map, std::size_t columns, std::size_t rows, const std::string& png,
                 const std::string& summary, const Numbers& numbers) {
  Json json = bareFigure(map, {columns, rows, {}}, summary);
  json["png"] = base64(png);
  json["numbersId"] = numbers.id();
  return json;
}

std::string thumbnailOf(const Field& red, const Field& green, const Field& blue) {
  const auto isThere = [](const Field& field) { return extremesOf(field.values).count > 0; };
  if (!green.isDrawable() || !isThere(red) || !isThere(green) || !isThere(blue)) return "";
  const double brightest = extremesOf(green.values).high;
  // Balanced to grey, and as bright as a screen wants it.
  const auto scaled = [&](const Field& field) {
    const double mean = extremesOf(field.values).mean;
    return mean > 0 ? extremesOf(green.values).mean / mean / brightest : 0;
  };
  const double scales[] = {scaled(red), scaled(green), scaled(blue)};
  const auto shade = [](double value) {
    const double part = std::isfinite(value) ? std::clamp(value, 0.0, 1.0) : 0;
    return static_cast<std::uint8_t>(std::lround(255 * std::pow(part, 1 / 2.2)));
  };
  std::vector<Color> pixels;
  pixels.reserve(green.values.size());
  for (std::size_t i = 0; i < green.values.size(); ++i) {
    pixels.push_back({shade(red.values[i] * scales[0]), shade(green.values[i] * scales[1]),
                      shade(blue.values[i] * scales[2])});
  }
  return base64(pngOf(green.columns, green.rows, pixels));
}

}  // namespace simrec::report
