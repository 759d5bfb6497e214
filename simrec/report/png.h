// Pictures as PNG. No state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "simrec/report/colors.h"

namespace simrec::report {

/// One colour of the palette for each pixel, row by row.
struct Picture {
  std::size_t width = 0, height = 0;
  std::vector<std::uint8_t> pixels;
  const Palette* palette = nullptr;
};

/// The file's bytes.
std::string pngOf(const Picture& picture);

/// The same of red, green and blue of each pixel.
std::string pngOf(std::size_t width, std::size_t height, const std::vector<Color>& pixels);

}  // namespace simrec::report
