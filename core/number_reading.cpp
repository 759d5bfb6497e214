// Text to numbers.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

#include "core/bytes.h"
#include "core/classic_locale.h"
#include "core/eight_digits.h"
#include "core/exact_double.h"
#include "core/number_text.h"
#include "core/powers_of_ten.h"
#include "core/six_decimals.h"

namespace simulation {
namespace {

bool isBlank(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

const char* skipBlanks(const char* text, const char* end) {
  while (text != end && isBlank(*text)) ++text;
  return text;
}

/// The digit, or a number above 9 for any other character.
unsigned int digitOf(char character) {
  return static_cast<unsigned int>(static_cast<unsigned char>(character)) - '0';
}

bool isSign(char character) { return character == '-' || character == '+'; }

constexpr std::uint64_t kWholePowersOfTen[] = {1,      10,      100,      1000,   10000,
                                               100000, 1000000, 10000000, kTenTo8};

/// Digits without sign, point and exponent.
struct Digits {
  std::uint64_t value = 0;
  int count = 0;
};

/// What was in `value` must fit, with these digits, into 19 of them.
const char* takeDigits(const char* text, const char* end, Digits& digits, int most) {
  while (digits.count + 8 <= most && end - text >= 8) {
    const LeadingDigits leading(text);
    digits.value = digits.value * kWholePowersOfTen[leading.count] + leading.value;
    digits.count += leading.count;
    text += leading.count;
    if (text == end || digitOf(*text) > 9) return text;
  }
  for (; text != end && digits.count < most; ++text, ++digits.count) {
    const unsigned int digit = digitOf(*text);
    if (digit > 9) break;
    digits.value = digits.value * 10 + digit;
  }
  return text;
}

/// The float nearest to digits / 10^power; false when that isn't certain. Both
/// sides of the division are exact doubles, so the quotient is the double nearest
/// to the decimal. Narrowing it rounds a second time, which matters only where
/// the quotient is half-way between two floats: bit 28 alone set below a float's.
bool nearestFloat(const Digits& digits, int power, float& value) {
  constexpr std::uint64_t kBelowFloat = (1U << 29) - 1;
  constexpr std::uint64_t kHalfWay = 1U << 28;
  if (digits.value >= kTwoTo52) return false;
  const double quotient = exactDouble(digits.value) / kPowersOfTen[power];
  if ((load<std::uint64_t>(&quotient) & kBelowFloat) == kHalfWay) return false;
  value = static_cast<float>(quotient);
  return true;
}

/// Takes a number that every reader of floats takes alike: no exponent, up to 19
/// digits, and nothing but a blank behind it. Returns its end, or null.
const char* takePlainFloat(const char* text, const char* end, float& value) {
  constexpr int kMostDigits = 19;
  text = skipBlanks(text, end);
  if (const char* const stop = takeListedFloat(text, end, value)) return stop;
  const bool negative = text != end && *text == '-';
  if (text != end && isSign(*text)) ++text;
  Digits digits;
  text = takeDigits(text, end, digits, kMostDigits);
  const int whole = digits.count;
  if (text != end && *text == '.') text = takeDigits(text + 1, end, digits, kMostDigits);
  if (digits.count == 0 || (text != end && !isBlank(*text))) return nullptr;
  float magnitude;
  if (!nearestFloat(digits, digits.count - whole, magnitude)) return nullptr;
  value = negative ? -magnitude : magnitude;
  return text;
}

/// The end of what a stream takes for a float: it stops where no valid text goes
/// on, yet keeps an exponent that turns out to have no digits.
const char* endOfFloat(const char* text, const char* end) {
  bool mantissa = false;
  bool point = false;
  bool exponent = false;
  if (text != end && isSign(*text)) ++text;
  for (; text != end; ++text) {
    if (digitOf(*text) <= 9) {
      mantissa = true;
    } else if (*text == '.' && !point && !exponent) {
      point = true;
    } else if ((*text == 'e' || *text == 'E') && mantissa && !exponent) {
      exponent = true;
      if (text + 1 != end && isSign(text[1])) ++text;
    } else {
      break;
    }
  }
  return text;
}

bool extractSlowly(const char*& cursor, const char* end, float& value) {
  const char* begin = skipBlanks(cursor, end);
  cursor = endOfFloat(begin, end);
  const std::string token(begin, cursor);
  char* stop = nullptr;
  const ClassicLocale classic;
  const float number = std::strtof(token.c_str(), &stop);
  if (token.empty() || *stop != '\0' || std::isinf(number)) return false;
  value = number;
  return true;
}

/// Takes all digits; false when there are none or their number is beyond `most`.
bool extractDigits(const char*& cursor, const char* end, std::uint64_t most, std::uint64_t& value) {
  Digits digits;
  cursor = takeDigits(cursor, end, digits, 19);
  bool fits = digits.count != 0;
  for (; cursor != end && digitOf(*cursor) <= 9; ++cursor) {
    fits = fits && !__builtin_mul_overflow(digits.value, 10U, &digits.value) &&
           !__builtin_add_overflow(digits.value, digitOf(*cursor), &digits.value);
  }
  value = digits.value;
  return fits && value <= most;
}

template <typename Unsigned>
bool extractUnsigned(const char*& cursor, const char* end, Unsigned& value) {
  cursor = skipBlanks(cursor, end);
  const bool negative = cursor != end && *cursor == '-';
  if (cursor != end && isSign(*cursor)) ++cursor;
  std::uint64_t magnitude;
  if (!extractDigits(cursor, end, std::numeric_limits<Unsigned>::max(), magnitude)) return false;
  value = static_cast<Unsigned>(negative ? 0 - magnitude : magnitude);
  return true;
}

/// A number of up to MostDigits digits; false for any other text.
template <int MostDigits, typename Signed>
bool takePlainInteger(std::string_view text, Signed& value) {
  const char* const end = text.data() + text.size();
  const char* begin = skipBlanks(text.data(), end);
  const bool negative = begin != end && *begin == '-';
  if (begin != end && isSign(*begin)) ++begin;
  Digits digits;
  const char* stop = takeDigits(begin, end, digits, MostDigits);
  if (digits.count == 0 || (stop != end && digitOf(*stop) <= 9)) return false;
  value = static_cast<Signed>(digits.value);
  if (negative) value = -value;
  return true;
}

}  // namespace

bool extract(const char*& cursor, const char* end, std::uint64_t& value) {
  return extractUnsigned(cursor, end, value);
}

bool extract(const char*& cursor, const char* end, std::uint16_t& value) {
  return extractUnsigned(cursor, end, value);
}

bool extract(const char*& cursor, const char* end, float& value) {
  const char* plainEnd = takePlainFloat(cursor, end, value);
  if (plainEnd == nullptr) return extractSlowly(cursor, end, value);
  cursor = plainEnd;
  return true;
}

int toInt(std::string_view text) {
  int value;
  if (takePlainInteger<9>(text, value)) return value;
  const ClassicLocale classic;
  return std::stoi(std::string(text));
}

long long toLongLong(std::string_view text) {
  long long value;
  if (takePlainInteger<18>(text, value)) return value;
  const ClassicLocale classic;
  return std::stoll(std::string(text));
}

const char* takeListedFloat(const char* text, const char* end, float& value) {
  if (end - text < 18) return nullptr;
  if (const SixDecimals number(text); number.valid && text[8] == ' ') {
    return nearestFloat({number.millionths, 0}, 6, value) ? text + 8 : nullptr;
  }
  const LeadingDigits whole(text);
  const char* stop = text + whole.count;
  if (whole.count == 0 || *stop != '.') return nullptr;
  const LeadingDigits fraction(stop + 1);
  stop += 1 + fraction.count;
  const Digits digits = {whole.value * kWholePowersOfTen[fraction.count] + fraction.value, 0};
  return *stop == ' ' && nearestFloat(digits, fraction.count, value) ? stop : nullptr;
}

float toFloat(std::string_view text) {
  float value;
  if (takePlainFloat(text.data(), text.data() + text.size(), value) != nullptr) return value;
  const ClassicLocale classic;
  return std::stof(std::string(text));
}

bool scanFloat(const char* text, float& value) {
  if (takePlainFloat(text, text + std::strlen(text), value) != nullptr) return true;
  const ClassicLocale classic;
  return std::sscanf(text, "%f", &value) == 1;
}

}  // namespace simulation
