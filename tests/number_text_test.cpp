// Every number function against the standard way.
#include "core/number_text.h"

#include <cmath>
#include <cstring>
#include <random>
#include <sstream>

#include "tests/support/camera_data.h"
#include "tests/support/comma_locale.h"

using namespace simulation;

namespace {

constexpr int kRandomNumbers = SIMULATION_SLOW_TESTS ? 10000 : 100000;
constexpr int kStep = SIMULATION_SLOW_TESTS ? 17 : 1;  // where all numbers are tried

template <typename Value>
std::string written(char* (*write)(char*, Value), Value value) {
  char out[64];
  return std::string(out, write(out, value));
}

std::string streamed(double value, int precision, bool fixed) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
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

/// What our functions, or the standard ones, read in one text.
std::string readings(const std::string& text, bool ours) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out << std::hexfloat;
  const auto list = [&](auto value) {  // the values that repeated extraction finds
    std::istringstream in(text);
    in.imbue(std::locale::classic());
    const char* cursor = text.c_str();
    while (ours ? extract(cursor, text.c_str() + text.size(), value) : !!(in >> value)) {
      out << value << ' ';
    }
    out << '|';
  };
  const auto convert = [&](auto conversion) {
    try {
      out << '|' << conversion();
    } catch (const std::logic_error& error) {
      out << typeid(error).name() << error.what();
    }
  };
  list(std::uint64_t());
  list(std::uint16_t());
#ifndef _LIBCPP_VERSION  // whose streams differ in odd floats: see OddFloatLists
  list(float());
#endif
  float value = 77;
  const char* const begin = text.c_str();
  out << (ours ? scanFloat(begin, value) : std::sscanf(begin, "%f", &value) == 1) << value;
  convert([&] { return ours ? toInt(text) : std::stoi(text); });
  convert([&] { return ours ? toLongLong(text) : std::stoll(text); });
  convert([&] { return ours ? toFloat(text) : std::stof(text); });
  return out.str();
}

/// Alone, and with room behind it for what looks ahead.
void checkReading(const std::string& text) {
  for (const std::string& all : {text, text + std::string(20, ' ')}) {
    ASSERT_EQ(readings(all, true), readings(all, false)) << all;
  }
}

void checkFloat(float value) {
  static int count = 0;
  checkWriting(value);
  if (++count % 3 != 0) return;  // reading takes the standard way long
  const int precision = count % 10 == 0 ? 17 : count % 10;
  checkReading(streamed(value, precision, std::fabs(value) < 1e9F));
}

void checkInteger(std::uint64_t value) {
  const std::string text = std::to_string(value);
  const auto both = static_cast<std::int64_t>(value);
  const auto low = static_cast<std::uint16_t>(value);
  ASSERT_EQ(written(writeUnsigned, value), text);
  ASSERT_EQ(written<std::uint64_t>(writeItem, value), text + ' ');
  ASSERT_EQ(written<std::uint16_t>(writeItem, low), std::to_string(low) + ' ');
  ASSERT_EQ(written(writeSigned, both), std::to_string(both));
  checkReading(text + ' ' + std::to_string(both));
}

TEST(NumberText, Integers) {
  for (std::uint64_t value = 0; value < 65536; value += kStep) checkInteger(value);
  std::vector<std::uint8_t> bytes;
  std::string items;
  for (unsigned int value = 0; value < 300; ++value) {
    bytes.push_back(static_cast<std::uint8_t>(value));
    items += std::to_string(value % 256) + ' ';
  }
  std::string text(bytes.size() * kByteItemRoom, '\0');
  const char* const end = writeItems(text.data(), bytes.data(), bytes.size());
  EXPECT_EQ(std::string_view(text.data(), static_cast<std::size_t>(end - text.data())), items);
  std::mt19937_64 random(1);
  for (unsigned i = 0; i < kRandomNumbers / 4; ++i) checkInteger(random() >> (i % 64));
  for (std::uint64_t ten = 1; ten < 10000000000000000000U; ten *= 10) {
    for (const std::uint64_t value : {ten - 1, ten, ten + 1, 0 - ten}) checkInteger(value);
  }
  checkInteger(std::uint64_t{1} << 63);
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
  for (float value = 0.5F; value < 0.9F; value += kStep * 0.000123F) {
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
    checkWriting(value);
  }
}

TEST(NumberText, OddTokensWhateverTheLocaleOfTheProcess) {
  Names texts, expected;
  std::istringstream tokens(golden("odd_numbers.txt"));
  for (std::string token; std::getline(tokens, token, '|');) {
    for (const char* tail : {"", " ", "x", " 12 ", ".", "-"}) texts.push_back(token + tail);
  }
  for (const std::string& text : texts) {
    checkReading(text);
    expected.push_back(readings(text, true));
  }
  const CommaLocale comma;
  EXPECT_EQ(std::atof("1,5"), comma.inC ? 1.5 : 1.0);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_EQ(readings(texts[i], true), expected[i]) << texts[i];
  }
  for (const float value : {1234.5F, 1.5e-30F, 1.5e30F}) checkWriting(value);
}

// Floats are those of libstdc++ with every standard library. In the file: a text
// and what is read in it, each in a line.
TEST(NumberText, OddFloatLists) {
  std::istringstream rows(golden("odd_float_lists.txt"));
  for (std::string text, expected; std::getline(rows, text) && std::getline(rows, expected);) {
    std::string values = "=";
    const char* cursor = text.c_str();
    for (float value; extract(cursor, text.c_str() + text.size(), value);) {
      values += ' ' + streamed(value, 6, false);
    }
    EXPECT_EQ(values, expected) << text;
  }
}

}  // namespace
