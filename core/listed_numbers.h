// The quick part of extract() for long lists of whole numbers: where the numbers end
// is found for 64 characters at once, and each is one load. No state, no locks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

#include "core/eight_digits.h"
#include "core/sixteen.h"

namespace simulation {

/// How many characters are looked at together, and the most numbers in them.
inline constexpr int kListedStep = 64;
inline constexpr std::size_t kMostListed = kListedStep / 2;

/// The blanks among the next characters as bits, the first one's lowest. False where
/// there is anything but digits and blanks.
inline bool findBlanks(const char* text, std::uint64_t& blanks) {
  Lanes known = ~Lanes{};
  blanks = 0;
  for (int i = 0; i < kListedStep; i += 16) {
    const Sixteen characters = loadSixteen(text + i);
    const Lanes blank = isEqual(characters, ' ');
    known &= isDigit(characters) | blank;
    blanks |= bitsOf(blank) << i;
  }
  return !hasBits(~known);
}

/// Takes numbers of up to eight digits, a blank behind each, and gives them to `put`.
/// Stops before the first that is none or out of range, near the `end`, and after
/// so many that kMostListed more could be above `most`. Moves `cursor` behind the last
/// number or its blank.
template <typename Unsigned, typename Put>
void takeListedNumbers(const char*& cursor, const char* end, std::size_t most, Put put) {
  constexpr int kLookAhead = 1 + 8;  // a blank in front, a load that begins at the last blank
  std::uint64_t blanks;
  while (most >= kMostListed && end - cursor >= kListedStep + kLookAhead) {
    if (*cursor == ' ') ++cursor;
    if (!findBlanks(cursor, blanks)) return;
    const char* const text = cursor;
    for (; blanks != 0; blanks &= blanks - 1, --most) {
      const char* const blank = text + __builtin_ctzll(blanks);
      const auto digits = static_cast<unsigned int>(blank - cursor);
      if (digits - 1 >= 8) return;
      const std::uint32_t value =
          joinDigits((load<std::uint64_t>(cursor) ^ kZeroDigits) << (64 - 8 * digits));
      if (value > std::numeric_limits<Unsigned>::max()) return;
      put(static_cast<Unsigned>(value));
      cursor = blank + 1;
    }
    if (cursor == text) return;
  }
}

}  // namespace simulation
