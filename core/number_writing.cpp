// Numbers to text.
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "core/bytes.h"
#include "core/classic_locale.h"
#include "core/eight_digits.h"
#include "core/exact_double.h"
#include "core/number_text.h"
#include "core/powers_of_ten.h"

namespace simulation {

namespace {

/// The items of all bytes. In one word is the text, in its low four bytes, and
/// the length: all is had with one look.
constexpr auto kByteItems = [] {
  std::array<std::uint64_t, 256> items = {};
  for (unsigned int value = 0; value < items.size(); ++value) {
    std::uint64_t text = ' ';
    std::uint64_t length = 1;
    for (unsigned int rest = value; rest != 0 || length == 1; rest /= 10, ++length) {
      text = text << 8 | ('0' + rest % 10);
    }
    items[value] = length << 32 | text;
  }
  return items;
}();

char* writeByteItem(char* out, std::uint8_t value) {
  const std::uint64_t item = kByteItems[value];
  const auto text = static_cast<std::uint32_t>(item);
  std::memcpy(out, &text, sizeof text);
  return out + (item >> 32);
}

constexpr auto kDigitPairs = [] {
  std::array<char, 200> pairs = {};
  for (std::size_t value = 0; value < 100; ++value) {
    pairs[2 * value] = static_cast<char>('0' + value / 10);
    pairs[2 * value + 1] = static_cast<char>('0' + value % 10);
  }
  return pairs;
}();

/// Writes the last `count` digits of `value`.
char* writeDigits(char* out, std::uint64_t value, int count) {
  char* digit = out + count;
  while (digit - out >= 2) {
    digit -= 2;
    std::memcpy(digit, &kDigitPairs[value % 100 * 2], 2);
    value /= 100;
  }
  if (digit != out) *out = static_cast<char>('0' + value % 10);
  return out + count;
}

char* writeEight(char* out, std::uint32_t value) {
  const std::uint64_t text = spreadDigits(value) | kZeroDigits;
  std::memcpy(out, &text, sizeof text);
  return out + sizeof text;
}

/// d.dddddd: the first of eight digits makes room for the point.
char* writeSevenDigits(char* out, std::uint64_t millionths) {
  const std::uint64_t digits = spreadDigits(static_cast<std::uint32_t>(millionths)) | kZeroDigits;
  const std::uint64_t text = (digits & ~std::uint64_t{0xFFFF}) | '.' << 8 | (digits >> 8 & 0xFF);
  std::memcpy(out, &text, sizeof text);
  return out + sizeof text;
}

/// Half to even, as printf rounds. `value` is below 2^52 and exact.
std::uint64_t roundToInteger(double value) {
  const auto whole = static_cast<std::uint64_t>(value);
  const double rest = value - exactDouble(whole);
  const bool up = rest > 0.5 || (rest == 0.5 && whole % 2 == 1);
  return whole + (up ? 1 : 0);
}

/// The slow way, right for every value.
char* print(char* out, const char* format, float value) {
  char text[64];
  const ClassicLocale classic;
  const int length = std::snprintf(text, sizeof text, format, static_cast<double>(value));
  std::memcpy(out, text, static_cast<std::size_t>(length));
  return out + length;
}

/// A positive float with Precision significant digits: digits x 10^(exponent + 1 - Precision).
/// No digits when the fast way can't tell them.
struct Significant {
  std::uint64_t digits;
  int exponent;
};

/// A float has 24 bits and 5^12 has 28, so a float times 10^0 to 10^12 is exact
/// in the 53 bits of a double, and rounding that product is the only rounding.
template <int Precision>
Significant significantDigits(float value) {
  constexpr auto kLimit = static_cast<std::uint64_t>(kPowersOfTen[Precision]);
  constexpr double kSmallest = Precision == 6 ? 1e-6 : 1e-4;  // 10^(Precision - 12)
  if (!(value >= static_cast<float>(kSmallest) && value < static_cast<float>(kLimit))) {
    return {0, 0};
  }
  int binaryExponent = std::ilogb(value);
  int exponent = (binaryExponent * 1233) >> 12;  // floor(log10(2^binaryExponent)): one low at most
  double scaled = value * kPowersOfTen[Precision - 1 - exponent];
  if (scaled >= kPowersOfTen[Precision]) {
    ++exponent;
    scaled = value * kPowersOfTen[Precision - 1 - exponent];
  }
  const std::uint64_t digits = roundToInteger(scaled);
  if (digits == kLimit) return {kLimit / 10, exponent + 1};
  return {digits, exponent};
}

char* copyDigits(char* out, const char* digits, int count) {
  std::memcpy(out, digits, static_cast<std::size_t>(count));
  return out + count;
}

/// d.ddde-05
char* writeScientific(char* out, const char* digits, int count, int exponent) {
  *out++ = digits[0];
  if (count > 1) *out++ = '.';
  out = copyDigits(out, digits + 1, count - 1);
  *out++ = 'e';
  *out++ = exponent < 0 ? '-' : '+';
  return writeDigits(out, static_cast<std::uint64_t>(std::abs(exponent)), 2);
}

/// 0.000ddd
char* writeBelowOne(char* out, const char* digits, int count, int exponent) {
  out = copyDigits(out, "0.000", 1 - exponent);
  return copyDigits(out, digits, count);
}

/// ddd or ddd.ddd
char* writePlain(char* out, const char* digits, int count, int exponent) {
  out = copyDigits(out, digits, exponent + 1);
  if (count <= exponent + 1) return out;
  *out++ = '.';
  return copyDigits(out, digits + exponent + 1, count - exponent - 1);
}

/// printf's "%.{Precision}g".
template <int Precision>
char* writeGeneral(char* out, float value, const char* format) {
  if (std::signbit(value)) *out++ = '-';
  const float magnitude = std::fabs(value);
  if (magnitude == 0.0F) return copyDigits(out, "0", 1);
  const auto [significant, exponent] = significantDigits<Precision>(magnitude);
  if (significant == 0) return print(out, format, magnitude);

  char digits[Precision];
  writeDigits(digits, significant, Precision);
  int count = Precision;
  while (digits[count - 1] == '0') --count;
  if (exponent < -4 || exponent >= Precision) {
    return writeScientific(out, digits, count, exponent);
  }
  return exponent < 0 ? writeBelowOne(out, digits, count, exponent)
                      : writePlain(out, digits, count, exponent);
}

}  // namespace

char* writeUnsigned(char* out, std::uint64_t value) {
  if (value < kTenTo8) return writeUpTo8(out, static_cast<std::uint32_t>(value));
  const std::uint64_t high = value / kTenTo8;
  if (high < kTenTo8) {
    out = writeUpTo8(out, static_cast<std::uint32_t>(high));
  } else {
    out = writeUpTo8(out, static_cast<std::uint32_t>(high / kTenTo8));
    out = writeEight(out, static_cast<std::uint32_t>(high % kTenTo8));
  }
  return writeEight(out, static_cast<std::uint32_t>(value % kTenTo8));
}

char* writeSigned(char* out, std::int64_t value) {
  auto magnitude = static_cast<std::uint64_t>(value);
  if (value < 0) {
    *out++ = '-';
    magnitude = 0 - magnitude;
  }
  return writeUnsigned(out, magnitude);
}

char* writeItems(char* out, const std::uint8_t* values, std::size_t count) {
  std::size_t i = 0;
  for (; count - i >= 8; i += 8) {
    std::uint64_t eight = load<std::uint64_t>(values + i);
    for (int byte = 0; byte < 8; ++byte, eight >>= 8) {
      out = writeByteItem(out, static_cast<std::uint8_t>(eight));
    }
  }
  for (; i < count; ++i) out = writeByteItem(out, values[i]);
  return out;
}

char* writeStreamFloat(char* out, float value) { return writeGeneral<6>(out, value, "%.6g"); }

char* writeXmlFloat(char* out, float value) { return writeGeneral<8>(out, value, "%.8g"); }

char* writeFixedFloat(char* out, float value) {
  // A float has 24 bits and 5^6 has 14: the product is exact, and below 2^52 an
  // integer of it is, too.
  const double scaled = std::fabs(static_cast<double>(value)) * 1e6;
  if (!(scaled < 4.5e15)) return print(out, "%.6f", value);
  if (std::signbit(value)) *out++ = '-';
  const std::uint64_t millionths = roundToInteger(scaled);
  if (millionths < kTenTo8 / 10) return writeSevenDigits(out, millionths);
  out = writeUnsigned(out, millionths / 1000000);
  *out++ = '.';
  return writeDigits(out, millionths % 1000000, 6);
}

}  // namespace simulation
