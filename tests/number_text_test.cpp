// Every number function against the standard way.
#include "core/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <sstream>
#include <type_traits>

#include "tests/support/comma_locale.h"

using namespace simulation;

namespace {

constexpr int kRandomNumbers = 100000;

/// Separated by '|'.
constexpr char kOddTokens[] =
    "| |\t\n\v\f\r 7|+7|-7|+-7|- 7|--7|-|+|.|-.|.5|5.|+.5e1|1.5abc|1.5.5|1e|1e+|1e5|1E-5|1e5e5|"
    "1e5.5|e5|.e5|1.e5|0x10|0x1.8p1|0X|inf|-INF|infinity|nan|nan(1)|-nan|1,5|1,234|00012|"
    "000000000000000000000000000000000007|1 2\t3\n4 x 5|255 256 65535 65536|-65535 1|-65536|-1|"
    "18446744073709551615|18446744073709551616|-18446744073709551615|184467440737095516150|"
    "99999999999999999999999|2147483647|2147483648|-2147483648|-2147483649|9223372036854775807|"
    "9223372036854775808|-9223372036854775808|-9223372036854775809|3.4028235e38|3.4028236e38|"
    "-3.5e38|1e39|1e-37|1e-38|1.17549435e-38|1e-45|1e-46|-1e-99|0e-999|16777217|0.000000|-0|"
    "16777217.0000000001|16777218.999999999999999999|0.1000000014901161193847656249|"
    "9007199254740993|"
    "1.40129846432481707092372958328991613128026194187651577175706828388979108268586060149e-45";

std::vector<std::string> oddTokens() {
  std::vector<std::string> tokens;
  std::istringstream in(kOddTokens);
  for (std::string token; std::getline(in, token, '|');) tokens.push_back(token);
  return tokens;
}

template <typename Value>
std::string written(char* (*write)(char*, Value), Value value) {
  char out[64];
  return std::string(out, write(out, value));
}

std::ostringstream classicStream() {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  return out;
}

template <typename Value>
std::string streamed(Value value, int precision, bool fixed) {
  auto out = classicStream();
  if (fixed) out << std::fixed;
  out.precision(precision);
  out << value;
  return out.str();
}

void checkWriting(float value) {
  ASSERT_EQ(written(writeStreamFloat, value), streamed(value, 6, false));
  ASSERT_EQ(written(writeXmlFloat, value), streamed(value, 8, false));
  ASSERT_EQ(written(writeFixedFloat, value), streamed(value, 6, true));
}

/// The values that repeated extraction finds.
template <typename Value, typename Extract>
std::string listOf(Extract next) {
  auto list = classicStream();
  for (Value value; next(value);) list << std::hexfloat << value << ' ';
  return list.str();
}

template <typename Value>
std::string ourList(const std::string& text) {
  const char* cursor = text.c_str();
  const char* end = cursor + text.size();
  return listOf<Value>([&](Value& value) { return extract(cursor, end, value); });
}

/// Floats are those of libstdc++ everywhere. Its rival's streams refuse a float
/// that letters follow or that is denormal, and take hexadecimal ones.
#ifdef _LIBCPP_VERSION
template <typename Value>
constexpr bool kStreamsAgree = !std::is_same_v<Value, float>;
#else
template <typename Value>
constexpr bool kStreamsAgree = true;
#endif

template <typename Value>
void checkList(const std::string& text) {
  if (!kStreamsAgree<Value>) return;
  std::istringstream in(text);
  in.imbue(std::locale::classic());
  ASSERT_EQ(ourList<Value>(text), listOf<Value>([&](Value& value) { return !!(in >> value); }))
      << text;
}

/// The value, or the exception, of a conversion.
template <typename Convert>
std::string outcome(Convert convert, const std::string& text) {
  try {
    return (classicStream() << std::hexfloat << convert(text)).str();
  } catch (const std::invalid_argument& error) {
    return std::string("invalid ") + error.what();
  } catch (const std::out_of_range& error) {
    return std::string("range ") + error.what();
  }
}

/// What `scan` and `convert` make of a float.
template <typename Scan, typename Convert>
std::string floatOutcome(Scan scan, Convert convert, const std::string& text) {
  float value = 77;
  const bool found = scan(text.c_str(), value);
  return (classicStream() << found << std::hexfloat << value).str() + outcome(convert, text);
}
std::string ourFloat(const std::string& text) { return floatOutcome(scanFloat, toFloat, text); }
std::string standardFloat(const std::string& text) {
  const auto scan = [](const char* t, float& value) { return std::sscanf(t, "%f", &value) == 1; };
  return floatOutcome(
      scan, [](auto& t) { return std::stof(t); }, text);
}

void checkReading(const std::string& text) {
  checkList<std::uint64_t>(text);
  checkList<std::uint16_t>(text);
  checkList<float>(text);
  ASSERT_EQ(outcome(toInt, text), outcome([](auto& t) { return std::stoi(t); }, text));
  ASSERT_EQ(outcome(toLongLong, text), outcome([](auto& t) { return std::stoll(t); }, text));
  ASSERT_EQ(ourFloat(text), standardFloat(text)) << text;
}

void checkFloat(float value) {
  static int count = 0;
  constexpr int kPrecisions[] = {6, 8, 9, 17};
  checkWriting(value);
  if (++count % 3 != 0) return;  // reading takes the standard way long
  checkReading(streamed(value, kPrecisions[count % 4], std::fabs(value) < 1e9F));
}

void checkInteger(std::uint64_t value) {
  const auto both = static_cast<std::int64_t>(value);
  ASSERT_EQ(written(writeUnsigned, value), std::to_string(value));
  ASSERT_EQ(written(writeSigned, both), std::to_string(both));
  checkReading(std::to_string(value) + ' ' + std::to_string(both));
}

TEST(NumberText, Integers) {
  for (int value = 0; value < 256; ++value) {
    EXPECT_EQ(written(writeByteItem, static_cast<std::uint8_t>(value)),
              std::to_string(value) + " ");
  }
  for (std::uint64_t value = 0; value < 65536; ++value) checkReading(std::to_string(value));
  std::mt19937_64 random(1);
  for (unsigned i = 0; i < kRandomNumbers / 4; ++i) checkInteger(random() >> (i % 64));
  for (std::uint64_t ten = 1; ten < 10000000000000000000U; ten *= 10) {
    for (const std::uint64_t value : {ten - 1, ten, ten + 1, 0 - ten}) checkInteger(value);
  }
  for (const std::int64_t value : {INT64_MIN, INT64_MAX}) {
    checkInteger(static_cast<std::uint64_t>(value));
  }
}

TEST(NumberText, Floats) {
  std::mt19937 random(1);
  for (int i = 0; i < kRandomNumbers && !HasFatalFailure(); ++i) {
    const auto bits = static_cast<std::uint32_t>(random());
    float value;
    std::memcpy(&value, &bits, sizeof value);
    checkFloat(value);
    checkFloat(std::ldexp(static_cast<float>(bits >> 8), static_cast<int>(bits % 48) - 40));
  }
  // Just beside the middle of two floats, by less than a double can tell.
  for (float value = 0.5F; value < 0.9F; value += 0.000123F) {
    const double middle = (static_cast<double>(value) + std::nextafterf(value, 1)) / 2;
    for (const int precision : {15, 16, 17, 18}) checkReading(streamed(middle, precision, true));
  }
  for (int power = -46; power <= 38; ++power) {
    const float ten = std::strtof(("1e" + std::to_string(power)).c_str(), nullptr);
    for (const float factor : {1.0F, -0.5F, 2.5F, 9.999995F, 9.9999995F}) {
      const float value = factor * ten;
      for (const float limit : {0.0F, value, INFINITY}) checkFloat(std::nextafterf(value, limit));
    }
  }
  for (const float value : {INFINITY, -INFINITY, NAN, -NAN, 0.0F, -0.0F, 0x1p-149F, 0x1.fffffep127F,
                            0.0000005F, -0.0000004F, 0.5F, 999999.5F, 9.2e9F, 9e9F}) {
    checkFloat(value);
  }
}

TEST(NumberText, OddTokens) {
  for (const std::string& token : oddTokens()) {
    for (const char* tail : {"", " ", "x", " 12 ", ".", "-"}) checkReading(token + tail);
  }
}

TEST(NumberText, ListsOfOddFloats) {
  const struct {
    const char* text;
    std::vector<float> values;
  } rows[] = {
      {"1.5abc 2", {1.5F}},
      {"7x", {7}},
      {"5.", {5}},
      {"1.5.5 -.25", {1.5F, 0.5F, -0.25F}},
      {"1e5e5", {1e5F}},
      {"1e5.5", {1e5F, 0.5F}},
      {"1-2+3", {1, -2, 3}},
      {"1,5", {1}},
      {"0x10", {0}},
      {"0x1.8p1", {0}},
      {"4 inf", {4}},
      {"4 -INF", {4}},
      {"4 nan(1)", {4}},
      {"4 1e", {4}},
      {"4 1e+ 2", {4}},
      {"4 - 2", {4}},
      {"4 . 2", {4}},
      {"4 e5", {4}},
      {"3.4028235e38 3.4028236e38", {3.4028235e38F}},
      {"1e-38 1e-45 1e-46 -0 2", {1e-38F, 0x1p-149F, 0, -0.0F, 2}},
  };
  for (const auto& row : rows) {
    auto next = row.values.begin();
    const auto expected = [&](float& value) {
      return next != row.values.end() && (value = *next++, true);
    };
    EXPECT_EQ(ourList<float>(row.text), listOf<float>(expected)) << row.text;
    checkList<float>(row.text);
  }
}

TEST(NumberText, NoLocaleOfTheProcessMatters) {
  std::vector<std::string> expected;
  for (const auto& token : oddTokens()) expected.push_back(standardFloat(token));
  const CommaLocale comma;
  EXPECT_EQ(std::atof("1,5"), comma.inC ? 1.5 : 1.0);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const std::string token = oddTokens()[i];
    EXPECT_EQ(ourFloat(token), expected[i]) << token;
    checkList<float>(token);
  }
  for (const float value : {1234.5F, 1.5e-30F, 1.5e30F}) checkWriting(value);
}

}  // namespace
