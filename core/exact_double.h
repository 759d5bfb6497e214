// Whole numbers as doubles without a conversion, which leaves a part of its register as it was on
// x86-64: there it waits for the number before, where the compiler does not see that.
#pragma once

#include <cstdint>

#include "core/bytes.h"

namespace simulation {

inline constexpr std::uint64_t kTwoTo52 = std::uint64_t{1} << 52;

/// Of a value below 2^52, which are the bits behind those of the double 2^52.
inline double exactDouble(std::uint64_t value) {
  constexpr auto kBase = static_cast<double>(kTwoTo52);
  const std::uint64_t bits = load<std::uint64_t>(&kBase) | value;
  return load<double>(&bits) - kBase;
}

}  // namespace simulation
