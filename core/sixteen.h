// Sixteen characters of text at once, as a vector of the compilers' own making: the
// same source is SSE2 on a workstation and Neon on the device. Loops over single
// characters, which compilers may or may not turn into such code, are no substitute:
// where g++ looks at sixteen, clang looks at eight and widens each to a word.
#pragma once

#include <cstdint>

#include "core/bytes.h"

namespace simulation {

using Sixteen = std::uint8_t __attribute__((vector_size(16)));
using SixteenSigned = std::int8_t __attribute__((vector_size(16)));
using EightWords = std::uint16_t __attribute__((vector_size(16)));

/// What a comparison of two lanes gives: all bits or none.
using Lanes = Sixteen;

inline Sixteen loadSixteen(const char* text) { return load<Sixteen>(text); }

inline Lanes isDigit(Sixteen text) { return reinterpret_cast<Lanes>(text - '0' < 10); }
inline Lanes isEqual(Sixteen text, char character) {
  return reinterpret_cast<Lanes>(text == static_cast<std::uint8_t>(character));
}

/// Whether any bit of any lane is set.
inline bool hasBits(Sixteen lanes) {
  return (load<std::uint64_t>(&lanes) | load<std::uint64_t>(&lanes, 8)) != 0;
}

/// A bit for each lane, the first one's lowest. Each lane keeps a bit of its own, and
/// a product adds up those of eight lanes in its highest byte.
inline std::uint64_t bitsOf(Lanes lanes) {
  constexpr std::uint64_t kBitOfEach = 0x8040'2010'0804'0201;
  constexpr std::uint64_t kSum = 0x0101'0101'0101'0101;
  const std::uint64_t low = (load<std::uint64_t>(&lanes) & kBitOfEach) * kSum >> 56;
  const std::uint64_t high = (load<std::uint64_t>(&lanes, 8) & kBitOfEach) * kSum >> 56;
  return low | high << 8;
}

}  // namespace simulation
