// Decimal digits eight at a time, as the bytes of one word: the first digit in
// the lowest byte, as it stands in memory.
#pragma once

#include <cstdint>

#include "core/bytes.h"

namespace simulation {

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "so are the records, too");

inline constexpr std::uint64_t kZeroDigits = 0x3030'3030'3030'3030;
inline constexpr std::uint64_t kTenTo8 = 100'000'000;

/// The digits (0 to 9) of a value below 10^8, zeros in front: split in halves,
/// pairs and single digits, all lanes at once.
inline std::uint64_t spreadDigits(std::uint32_t value) {
  const std::uint64_t halves = value / 10000 | std::uint64_t{value % 10000} << 32;
  const std::uint64_t hundreds = (halves * 10486 >> 20) & 0x0000'007F'0000'007F;
  const std::uint64_t pairs = hundreds | (halves - 100 * hundreds) << 16;
  const std::uint64_t tens = (pairs * 103 >> 10) & 0x000F'000F'000F'000F;
  return tens | (pairs - 10 * tens) << 8;
}

/// Writes a value below 10^8 without zeros in front. Eight characters are written
/// over all the same.
inline char* writeUpTo8(char* out, std::uint32_t value) {
  const std::uint64_t digits = spreadDigits(value);
  const int zeroBits = __builtin_ctzll(digits | std::uint64_t{1} << 56) & ~7;
  store(out, 0, (digits | kZeroDigits) >> zeroBits);
  return out + 8 - zeroBits / 8;
}

/// The same for a value below 10^4 and the blank behind it.
inline char* writeUpTo4Item(char* out, std::uint32_t value) {
  const std::uint32_t hundreds = value * 10486 >> 20;
  const std::uint32_t pairs = hundreds | (value - 100 * hundreds) << 16;
  const std::uint32_t tens = (pairs * 103 >> 10) & 0x000F'000F;
  const std::uint64_t digits = tens | (pairs - 10 * tens) << 8;
  const int zeroBits = __builtin_ctzll(digits | std::uint64_t{1} << 24) & ~7;
  constexpr std::uint64_t kBlank = std::uint64_t{' '} << 32;
  store(out, 0, (digits | (kZeroDigits >> 32) | kBlank) >> zeroBits);
  return out + 5 - zeroBits / 8;
}

/// The value of eight digits (0 to 9); the reverse of the above.
inline std::uint32_t joinDigits(std::uint64_t digits) {
  digits = (digits * 10 + (digits >> 8)) & 0x00FF'00FF'00FF'00FF;
  digits = (digits * 100 + (digits >> 16)) & 0x0000'FFFF'0000'FFFF;
  return static_cast<std::uint32_t>(digits * 10000 + (digits >> 32));
}

/// How many of the eight characters at `text` are digits before the first that
/// is none, and their value.
struct LeadingDigits {
  explicit LeadingDigits(const char* text) {
    const std::uint64_t word = load<std::uint64_t>(text) ^ kZeroDigits;
    const std::uint64_t odd =
        ((word + 0x7676'7676'7676'7676) | word) & 0x8080'8080'8080'8080;  // above 9
    count = odd == 0 ? 8 : __builtin_ctzll(odd) / 8;
    value = count == 0 ? 0 : joinDigits(word << (64 - 8 * count));
  }
  int count;
  std::uint32_t value;
};

}  // namespace simulation
