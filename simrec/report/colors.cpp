#include "simrec/report/colors.h"

#include <fmt/format.h>

#include "simrec/report/color_tables.h"

namespace simrec::report {
namespace {

std::uint8_t digitOf(char digit) {
  return static_cast<std::uint8_t>(digit <= '9' ? digit - '0' : digit - 'a' + 10);
}

std::uint8_t byteAt(const char* digits) {
  return static_cast<std::uint8_t>(digitOf(digits[0]) * 16 + digitOf(digits[1]));
}

Color colorAt(const char* digits) {
  return {byteAt(digits), byteAt(digits + 2), byteAt(digits + 4)};
}

Palette paletteFrom(const char* table) {
  Palette palette;
  for (std::size_t i = 0; i < palette.size(); ++i) palette[i] = colorAt(table + 6 * i);
  return palette;
}

// Okabe and Ito, "Color Universal Design", 2008 (with a dark grey for black), then the muted and
// the pale scheme of P. Tol, "Colour Schemes", 2021, as far as they are others.
constexpr char kLabels[] =
    "404040e69f0056b4e9009e73f0e4420072b2d55e00cc79a7"
    "882255332288ddcc77117733aa4499bbccee999933eecccc";
constexpr std::size_t kLabelColors = (sizeof kLabels - 1) / 6;
static_assert(kLabelColors == 16);

/// Of the way from `from` to `to`.
std::uint8_t between(std::uint8_t from, int to, std::size_t part, std::size_t parts) {
  const auto steps = static_cast<int>(part), all = static_cast<int>(parts);
  return static_cast<std::uint8_t>(from + (to - from) * steps / all);
}

/// The sixteen colours again and again, every other time nearer to white, or to black.
Color labelColor(std::size_t label) {
  const Color base = colorAt(kLabels + 6 * (label % kLabelColors));
  const std::size_t round = label / kLabelColors;
  const int to = round % 2 == 0 ? 255 : 0;
  const std::size_t part = (round + 1) / 2;
  constexpr std::size_t kParts = 11;
  return {between(base.red, to, part, kParts), between(base.green, to, part, kParts),
          between(base.blue, to, part, kParts)};
}

}  // namespace

const Palette& sequentialPalette() {
  static const Palette palette = paletteFrom(kViridis);
  return palette;
}

const Palette& divergingPalette() {
  static const Palette palette = paletteFrom(kCoolWarm);
  return palette;
}

const Palette& greyPalette() {
  static const Palette palette = [] {
    Palette greys;
    for (std::size_t i = 0; i < greys.size(); ++i) {
      const auto level = static_cast<std::uint8_t>(i);
      greys[i] = {level, level, level};
    }
    return greys;
  }();
  return palette;
}

const Palette& labelPalette() {
  static const Palette palette = [] {
    Palette labels;
    for (std::size_t i = 0; i < labels.size(); ++i) labels[i] = labelColor(i);
    return labels;
  }();
  return palette;
}

std::string hexOf(Color color) {
  return fmt::format("#{:02x}{:02x}{:02x}", color.red, color.green, color.blue);
}

}  // namespace simrec::report
