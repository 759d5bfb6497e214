// The colours of pictures. No state.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace simrec::report {

struct Color {
  std::uint8_t red, green, blue;

  bool operator==(const Color& other) const {
    return red == other.red && green == other.green && blue == other.blue;
  }
};

using Palette = std::array<Color, 256>;

/// From low to high: perceptually uniform, and told apart by colour-blind people.
const Palette& sequentialPalette();

/// From below through none to above.
const Palette& divergingPalette();

/// From black to white.
const Palette& greyPalette();

/// A colour of its own for each label. Those of labels 0 to 15 are far from each other for
/// colour-blind people, too.
const Palette& labelPalette();

/// Where there is no value.
inline constexpr Color kNoValue = {0x80, 0x80, 0x80};

/// "#rrggbb"
std::string hexOf(Color color);

}  // namespace simrec::report
