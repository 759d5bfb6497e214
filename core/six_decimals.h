// A number below ten with six digits behind the point, as nearly every gain is dumped:
// its eight characters are one word, and all of them are checked and joined at once.
#pragma once

#include <cstdint>

#include "core/bytes.h"
#include "core/eight_digits.h"

namespace simulation {

/// What the eight characters at `text` are.
struct SixDecimals {
  explicit SixDecimals(const char* text) {
    constexpr std::uint64_t kZeros = 0x3030'3030'3030'2E30;  // "0.000000"
    const std::uint64_t word = load<std::uint64_t>(text) ^ kZeros;
    // Only digits, which are 9 at most, and nothing where the point was stay below.
    const std::uint64_t odd = ((word + 0x7676'7676'7676'7F76) | word) & 0x8080'8080'8080'8080;
    valid = odd == 0;
    millionths = joinDigits((word & ~std::uint64_t{0xFFFF}) | (word & 0xFF) << 8);
  }
  bool valid;
  std::uint32_t millionths;  ///< when valid
};

}  // namespace simulation
