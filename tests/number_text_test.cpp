// Every number function against the standard way, in the classic locale and
// while the process and the streams use a comma.
#include "core/number_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <sstream>

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

template <typename Number>
std::string written(char* (*write)(char*, Number), Number value) {
  char out[64];
  return std::string(out, write(out, value));
}

std::ostringstream classicStream() {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  return out;
}

template <typename Number>
std::string streamed(Number value) {
  auto out = classicStream();
  out << value;
  return out.str();
}

std::string printed(float value, int precision, bool fixed) {
  auto out = classicStream();
  if (fixed) out << std::fixed;
  out.precision(precision);
  out << value;
  return out.str();
}

void checkFloat(float value) {
  ASSERT_EQ(written(writeStreamFloat, value), printed(value, 6, false));
  ASSERT_EQ(written(writeXmlFloat, value), printed(value, 8, false));
  ASSERT_EQ(written(writeFixedFloat, value), printed(value, 6, true));
}

void forEachFloat(const std::function<void(float)>& check) {
  std::mt19937 random(1);
  for (int i = 0; i < kRandomNumbers; ++i) {
    const auto bits = static_cast<std::uint32_t>(random());
    float value;
    std::memcpy(&value, &bits, sizeof value);
    check(value);
    check(std::ldexp(static_cast<float>(bits >> 8), static_cast<int>(bits % 48) - 40));
    if (testing::Test::HasFatalFailure()) return;
  }
  for (int power = -46; power <= 38; ++power) {
    const float ten = std::strtof(("1e" + std::to_string(power)).c_str(), nullptr);
    for (const float factor : {1.0F, 0.5F, 2.5F, 9.999995F, 9.9999995F}) {
      const float value = factor * ten;
      for (const float near :
           {std::nextafterf(value, 0), value, std::nextafterf(value, INFINITY)}) {
        check(near);
        check(-near);
      }
    }
  }
  for (const float value : {INFINITY, -INFINITY, NAN, -NAN, 0.0F, -0.0F, 0x1p-149F, 0x1.fffffep127F,
                            0.0000005F, 0.5F, 1.0F / 3, 999999.5F, 9.2e9F, 9e9F}) {
    check(value);
  }
}

/// The values that repeated extraction finds, as text.
template <typename Number, typename Extract>
std::string listOf(Extract next) {
  auto list = classicStream();
  for (Number value; next(value);) list << std::hexfloat << value << ' ';
  return list.str();
}

template <typename Number>
void checkList(const std::string& text) {
  std::istringstream in(text);
  in.imbue(std::locale::classic());
  const char* cursor = text.c_str();
  const char* end = cursor + text.size();
  ASSERT_EQ(listOf<Number>([&](Number& value) { return extract(cursor, end, value); }),
            listOf<Number>([&](Number& value) { return !!(in >> value); }))
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

std::string scanned(const std::string& text) {
  float value = 77;
  const bool found = scanFloat(text.c_str(), value);
  return (classicStream() << found << std::hexfloat << value).str();
}

/// What the C library makes of `text`; to be called in the classic locale.
std::string plainly(const std::string& text) {
  float value = 77;
  const bool found = std::sscanf(text.c_str(), "%f", &value) == 1;
  return (classicStream() << found << std::hexfloat << value).str() +
         outcome([](auto& t) { return std::stof(t); }, text);
}

void checkText(const std::string& text) {
  checkList<std::uint64_t>(text);
  checkList<std::uint16_t>(text);
  checkList<float>(text);
  ASSERT_EQ(outcome(toInt, text), outcome([](auto& t) { return std::stoi(t); }, text)) << text;
  ASSERT_EQ(outcome(toLongLong, text), outcome([](auto& t) { return std::stoll(t); }, text))
      << text;
  ASSERT_EQ(scanned(text) + outcome(toFloat, text), plainly(text)) << text;
}

TEST(NumberText, Bytes) {
  for (int value = 0; value < 256; ++value) {
    EXPECT_EQ(written(writeByteItem, static_cast<std::uint8_t>(value)), streamed(value) + " ");
  }
}

TEST(NumberText, IntegersThereAndBack) {
  std::mt19937_64 random(1);
  for (int i = 0; i < kRandomNumbers; ++i) {
    const std::uint64_t value = random() >> (i % 64);
    const auto both = static_cast<std::int64_t>(value);
    ASSERT_EQ(written(writeUnsigned, value), streamed(value));
    ASSERT_EQ(written(writeSigned, both), streamed(both));
    if (i % 16 == 0) checkText(streamed(value) + ' ' + streamed(both));
  }
  for (std::uint32_t value = 0; value < 65536; ++value) checkText(streamed(value));
  for (const std::int64_t value : {INT64_MIN, INT64_MIN + 1, std::int64_t{-1}, INT64_MAX}) {
    EXPECT_EQ(written(writeSigned, value), streamed(value));
  }
  for (std::uint64_t ten = 1; ten < 10000000000000000000U; ten *= 10) {
    for (const std::uint64_t value : {ten - 1, ten, ten + 1}) {
      EXPECT_EQ(written(writeUnsigned, value), streamed(value));
    }
  }
  EXPECT_EQ(written(writeUnsigned, UINT64_MAX), streamed(UINT64_MAX));
}

TEST(NumberText, FloatsToText) { forEachFloat(checkFloat); }

TEST(NumberText, FloatsFromText) {
  int count = 0;
  forEachFloat([&](float value) {
    for (const int precision : {6, 8, 9, 17}) {
      if (++count % 4 == 0) checkText(printed(value, precision, std::fabs(value) < 1e9F));
    }
  });
}

TEST(NumberText, OddTokens) {
  for (const std::string& token : oddTokens()) {
    for (const char* tail : {"", " ", "x", " 12 ", ".", "-"}) checkText(token + tail);
  }
}

TEST(NumberText, BuilderHoldsWhatItWasSizedFor) {
  TextBuilder text(2 * (kXmlFloatRoom + 1));
  EXPECT_TRUE(text.empty());
  for (int i = 0; i < 2; ++i) {
    text.append(writeXmlFloat, -1.1754944e-38F);
    text.append(' ');
  }
  EXPECT_STREQ(text.c_str(), "-1.1754944e-38 -1.1754944e-38 ");
}

/// While it lives, the C library and new streams write and expect decimal commas.
class CommaLocale {
 public:
  CommaLocale() {
    struct Punctuation : std::numpunct<char> {
      char do_decimal_point() const override { return ','; }
      char do_thousands_sep() const override { return '.'; }
      std::string do_grouping() const override { return "\3"; }
    };
    std::locale::global(std::locale(std::locale::classic(), new Punctuation));
    const char* compile = "localedef -i de_DE -f UTF-8 /data/vendor/camera/de_DE.UTF-8 2>/dev/null";
    if (std::system(compile) != 0) return;
    setenv("LOCPATH", "/data/vendor/camera", 1);
    inC = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
  }
  ~CommaLocale() {
    std::setlocale(LC_ALL, "C");
    std::locale::global(std::locale::classic());
    unsetenv("LOCPATH");
  }

  bool inC = false;  ///< otherwise the system has no such locale
};

TEST(NumberText, NoLocaleOfTheProcessMatters) {
  std::vector<std::string> expected;
  for (const auto& token : oddTokens()) expected.push_back(plainly(token));
  const CommaLocale comma;
  EXPECT_EQ(std::atof("1,5"), comma.inC ? 1.5 : 1.0);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const std::string token = oddTokens()[i];
    EXPECT_EQ(scanned(token) + outcome(toFloat, token), expected[i]) << token;
    checkList<float>(token);
  }
  for (const float value : {1234.5F, 1.5e-30F, 1.5e30F}) checkFloat(value);
}

}  // namespace
