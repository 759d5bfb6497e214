// A run of one label. Real segmentations are made of runs, and a run is text that
// repeats the text one label before it: nothing of it need be read as a number. No
// state, no locks.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/bytes.h"
#include "core/sixteen.h"

namespace simulation {

/// How many of the characters from `text` to `end` repeat those `period` before them,
/// up to the first that doesn't; of the last seven none may be looked at.
inline std::size_t repeated(const char* text, const char* end, std::size_t period) {
  constexpr int kStep = 64;
  const char* at = text;
  const auto differs = [&at, period](int i) {
    return loadSixteen(at + i) ^ loadSixteen(at + i - period);
  };
  while (end - at >= kStep && !hasBits(differs(0) | differs(16) | differs(32) | differs(48))) {
    at += kStep;
  }
  for (; end - at >= 8; at += 8) {
    const std::uint64_t word = load<std::uint64_t>(at) ^ load<std::uint64_t>(at - period);
    if (word != 0) return static_cast<std::size_t>(at - text + __builtin_ctzll(word) / 8);
  }
  return static_cast<std::size_t>(at - text);
}

}  // namespace simulation
