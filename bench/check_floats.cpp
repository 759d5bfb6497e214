// Compares the library's float texts with those of the C library and of streams,
// over millions of random bit patterns and decimal texts, both ways. Every
// difference is printed; status 1 when there is one. The argument is the number
// of patterns (2000000).
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>

#include "core/bytes.h"
#include "core/number_text.h"

namespace {

using namespace simulation;

unsigned long differences = 0;

void expectSame(const char* what, const std::string& input, const std::string& actual,
                const std::string& expected) {
  if (actual == expected) return;
  if (++differences <= 20) {
    std::printf("%s of %s: \"%s\", expected \"%s\"\n", what, input.c_str(), actual.c_str(),
                expected.c_str());
  }
}

std::string printed(const char* format, double value) {
  char text[64];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

std::string written(char* (*write)(char*, float), float value) {
  char text[64];
  return std::string(text, write(text, value));
}

std::string streamed(float value, bool fixed) {
  std::ostringstream text;
  if (fixed) text << std::fixed;
  text << value;
  return text.str();
}

/// The bits; all NaNs are one.
std::string shown(float value) {
  return std::isnan(value) ? "nan" : printed("%a", static_cast<double>(value));
}

template <typename Convert>
std::string outcome(Convert convert, const std::string& text) {
  try {
    return shown(convert(text));
  } catch (const std::invalid_argument&) {
    return "invalid";
  } catch (const std::out_of_range&) {
    return "out of range";
  }
}

std::string scanned(bool found, float value) { return found ? shown(value) : "nothing"; }

/// Every reader of floats against the function that it stands for.
void checkReading(const std::string& text, bool withStream) {
  expectSame("toFloat", text, outcome([](const std::string& t) { return toFloat(t); }, text),
             outcome([](const std::string& t) { return std::stof(t); }, text));
  float actual = 0;
  float expected = 0;
  const bool found = scanFloat(text.c_str(), actual);
  const bool foundInText = std::sscanf(text.c_str(), "%f", &expected) == 1;
  expectSame("scanFloat", text, scanned(found, actual), scanned(foundInText, expected));
  if (!withStream) return;
  std::istringstream stream(text);
  const bool streamedIn = static_cast<bool>(stream >> expected);
  // With and without room behind it for the quick way.
  for (const std::string& tail : {std::string(), std::string(20, ' ')}) {
    const std::string all = text + tail;
    const char* cursor = all.data();
    const bool extracted = extract(cursor, all.data() + all.size(), actual);
    expectSame("extract", all, scanned(extracted, actual), scanned(streamedIn, expected));
  }
}

void checkWriting(float value, bool withStream) {
  const auto wide = static_cast<double>(value);
  const std::string input = printed("%a", wide);
  const std::string xml = written(writeXmlFloat, value);
  const std::string fixed = written(writeFixedFloat, value);
  expectSame("writeXmlFloat", input, xml, printed("%.8g", wide));
  expectSame("writeStreamFloat", input, written(writeStreamFloat, value), printed("%.6g", wide));
  expectSame("writeFixedFloat", input, fixed, printed("%.6f", wide));
  if (withStream) {
    expectSame("stream", input, written(writeStreamFloat, value), streamed(value, false));
    expectSame("fixed stream", input, fixed, streamed(value, true));
  }
  checkReading(xml, withStream);
  checkReading(fixed, withStream);
}

/// Digits of any count with a point, an exponent, signs and blanks at random.
std::string randomDecimal(std::mt19937_64& random) {
  const auto pick = [&random](unsigned int count) {
    return static_cast<unsigned int>(random() % count);
  };
  std::string text = pick(8) == 0 ? " " : "";
  if (pick(4) == 0) text += pick(2) == 0 ? '-' : '+';
  const unsigned int digits = 1 + pick(pick(4) == 0 ? 40 : 12);
  const unsigned int point = pick(digits + 3);
  for (unsigned int i = 0; i < digits; ++i) {
    if (i == point) text += '.';
    text += static_cast<char>('0' + pick(10));
  }
  if (pick(4) == 0) text += "e" + std::to_string(static_cast<int>(pick(100)) - 50);
  if (pick(16) == 0) text += "x e+.-"[pick(6)];
  return text;
}

/// The decimal half-way between a float and the next: exact, a trifle above, or cut
/// at 16 digits, which a double can't tell from half-way.
std::string halfWay(float value, unsigned int kind) {
  const auto next = static_cast<double>(std::nextafter(value, 2 * value));
  const double middle = (static_cast<double>(value) + next) / 2;
  std::string text = printed(kind == 2 ? "%.16g" : "%.40g", middle);
  if (kind == 1 && text.find('.') != std::string::npos) text += "00000001";
  return text;
}

float floatOf(std::uint32_t bits) { return load<float>(&bits); }

}  // namespace

int main(int argc, char** argv) {
  const long count = argc > 1 ? std::strtol(argv[1], nullptr, 10) : 2000000;
  if (count <= 0) {
    std::fprintf(stderr, "%s: the number of patterns must be positive\n", argv[1]);
    return 2;
  }
  std::mt19937_64 random(20);
  std::uniform_real_distribution<float> gain(0, 5000);
  for (long i = 0; i < count; ++i) {
    const bool withStream = i % 8 == 0;
    checkWriting(floatOf(static_cast<std::uint32_t>(random())), withStream);
    checkWriting(gain(random), withStream);
    checkReading(randomDecimal(random), withStream);
    checkReading(halfWay(gain(random), static_cast<unsigned int>(i % 3)), withStream);
    if (i % 500000 == 0) std::fprintf(stderr, "%ld of %ld\n", i, count);
  }
  std::printf("%ld patterns, %lu differences\n", count, differences);
  return differences == 0 ? 0 : 1;
}
