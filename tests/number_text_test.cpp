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

constexpr int kRandomNumbers = 100000;

/// Separated by '|', for blanks of all kinds are among them.
Names oddTokens() {
  Names tokens;
  std::istringstream in(golden("odd_numbers.txt"));
  for (std::string token; std::getline(in, token, '|');) tokens.push_back(token);
  return tokens;
}

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
class Readings {
 public:
  Readings(const std::string& text, bool ours) : text_(text) {
    out_.imbue(std::locale::classic());
    out_ << std::hexfloat;
    list<std::uint64_t>(ours);
    list<std::uint16_t>(ours);
#ifndef _LIBCPP_VERSION  // whose streams differ in odd floats: see OddFloatLists
    list<float>(ours);
#endif
    float value = 77;
    const char* const begin = text.c_str();
    out_ << (ours ? scanFloat(begin, value) : std::sscanf(begin, "%f", &value) == 1) << value;
    convert([&] { return ours ? toInt(text) : std::stoi(text); });
    convert([&] { return ours ? toLongLong(text) : std::stoll(text); });
    convert([&] { return ours ? toFloat(text) : std::stof(text); });
  }
  std::string all() const { return out_.str(); }

 private:
  /// The values that repeated extraction finds.
  template <typename Value>
  void list(bool ours) {
    std::istringstream in(text_);
    in.imbue(std::locale::classic());
    const char* cursor = text_.c_str();
    const char* const end = cursor + text_.size();
    for (Value value; ours ? extract(cursor, end, value) : !!(in >> value);) out_ << value << ' ';
    out_ << '|';
  }
  template <typename Convert>
  void convert(Convert conversion) {
    try {
      out_ << '|' << conversion();
    } catch (const std::invalid_argument& error) {
      out_ << "invalid " << error.what();
    } catch (const std::out_of_range& error) {
      out_ << "range " << error.what();
    }
  }

  const std::string text_;
  std::ostringstream out_;
};

void checkReading(const std::string& text) {
  ASSERT_EQ(Readings(text, true).all(), Readings(text, false).all()) << text;
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
  ASSERT_EQ(written<std::uint64_t>(writeItem, value), std::to_string(value) + ' ');
  ASSERT_EQ(written(writeSigned, both), std::to_string(both));
  checkReading(std::to_string(value) + ' ' + std::to_string(both));
}

TEST(NumberText, Integers) {
  for (std::uint64_t value = 0; value < 65536; ++value) {
    checkReading(std::to_string(value));
    ASSERT_EQ(written<std::uint16_t>(writeItem, static_cast<std::uint16_t>(value)),
              std::to_string(value) + ' ');
  }
  std::vector<std::uint8_t> bytes(300);
  std::iota(bytes.begin(), bytes.end(), 0);
  std::string items;
  for (const std::uint8_t byte : bytes) items += std::to_string(byte) + ' ';
  std::string text(bytes.size() * kByteItemRoom, '\0');
  text.resize(
      static_cast<std::size_t>(writeItems(text.data(), bytes.data(), bytes.size()) - text.data()));
  ASSERT_EQ(text, items);
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
    checkWriting(value);
  }
}

TEST(NumberText, OddTokens) {
  for (const std::string& token : oddTokens()) {
    for (const char* tail : {"", " ", "x", " 12 ", ".", "-"}) checkReading(token + tail);
  }
}

TEST(NumberText, OddFloatLists) {
  // Floats are those of libstdc++ with every standard library.
  constexpr const char* kRows[][2] = {
      {"1.5abc 2", "1.5 "},
      {"1.5.5 -.25", "1.5 0.5 -0.25 "},
      {"1e5e5", "100000 "},
      {"1-2+3", "1 -2 3 "},
      {"1,5", "1 "},
      {"0x10", "0 "},
      {"4 inf", "4 "},
      {"4 -NAN", "4 "},
      {"4 1e+ 2", "4 "},
      {"4 . 2", "4 "},
      {"4 e5", "4 "},
      {"3.4028236e38 1", ""},
      {"5. 1e-46 2", "5 0 2 "},
  };
  for (const auto& [text, expected] : kRows) {
    std::string values;
    const char* cursor = text;
    for (float value; extract(cursor, text + std::strlen(text), value);) {
      values += streamed(value, 6, false) + ' ';
    }
    EXPECT_EQ(values, expected) << text;
  }
}

TEST(NumberText, NoLocaleOfTheProcessMatters) {
  const Names tokens = oddTokens();
  Names expected;
  for (const auto& token : tokens) expected.push_back(Readings(token, false).all());
  const CommaLocale comma;
  EXPECT_EQ(std::atof("1,5"), comma.inC ? 1.5 : 1.0);
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    EXPECT_EQ(Readings(tokens[i], true).all(), expected[i]) << tokens[i];
  }
  for (const float value : {1234.5F, 1.5e-30F, 1.5e30F}) checkWriting(value);
}

}  // namespace
