// Any text as numbers, and any bytes as numbers to be written: the results must
// be those of the standard conversions and streams.
#include <algorithm>
#include <cstdio>
#include <sstream>
#include <stdexcept>

#include "core/number_text.h"
#include "fuzz/support/fuzz.h"

const char* const fuzz::kRecordFiles[] = {nullptr};

namespace {

template <typename Value>
std::string bytesOf(const Value& value) {
  return {reinterpret_cast<const char*>(&value), sizeof value};
}

/// The bytes of what `convert` returns, or which exception it throws.
template <typename Convert>
std::string outcomeOf(Convert convert) {
  try {
    return "value " + bytesOf(convert());
  } catch (const std::invalid_argument&) {
    return "invalid";
  } catch (const std::out_of_range&) {
    return "range";
  }
}

void compareConversions(std::string_view text) {
  const std::string copy(text);
  fuzz::require(outcomeOf([&] { return simulation::toInt(text); }) ==
                    outcomeOf([&] { return std::stoi(copy); }),
                "toInt is stoi");
  fuzz::require(outcomeOf([&] { return simulation::toLongLong(text); }) ==
                    outcomeOf([&] { return std::stoll(copy); }),
                "toLongLong is stoll");
  fuzz::require(outcomeOf([&] { return simulation::toFloat(text); }) ==
                    outcomeOf([&] { return std::stof(copy); }),
                "toFloat is stof");
  float ours = 4.5F, theirs = 4.5F;
  const bool found = std::sscanf(copy.c_str(), "%f", &theirs) == 1;
  fuzz::require(simulation::scanFloat(copy.c_str(), ours) == found, "scanFloat finds what %f does");
  fuzz::require(bytesOf(ours) == bytesOf(theirs), "scanFloat reads what %f does");
}

/// Value after value, until there is none.
template <typename Value>
void compareExtraction(std::string_view text) {
  std::istringstream stream{std::string(text)};
  const char* cursor = text.data();
  const char* const end = cursor + text.size();
  for (;;) {
    Value ours{}, theirs{};
    const bool more = static_cast<bool>(stream >> theirs);
    fuzz::require(simulation::extract(cursor, end, ours) == more, "as many values as a stream has");
    if (!more) return;
    fuzz::require(bytesOf(ours) == bytesOf(theirs), "the values of a stream");
    const std::ptrdiff_t left = std::max<std::streamsize>(stream.rdbuf()->in_avail(), 0);
    fuzz::require(end - cursor == left, "the place of a stream");
  }
}

template <typename Value>
Value valueIn(std::string_view bytes) {
  Value value{};
  bytes.copy(reinterpret_cast<char*>(&value), sizeof value);
  return value;
}

template <typename Write, typename Value>
void compareWriting(Write write, Value value, const std::string& expected) {
  std::string text(64, '\0');
  text.resize(static_cast<std::size_t>(write(text.data(), value) - text.data()));
  fuzz::require(text == expected, "a number is written as the standard library writes it");
}

std::string printed(const char* format, double value) {
  std::string text(64, '\0');
  const int length = std::snprintf(text.data(), text.size(), format, value);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void compareWriters(std::string_view bytes) {
  const float value = valueIn<float>(bytes);
  std::ostringstream plain, fixed;
  plain << value;
  fixed << std::fixed << value;
  compareWriting(simulation::writeStreamFloat, value, plain.str());
  compareWriting(simulation::writeFixedFloat, value, fixed.str());
  compareWriting(simulation::writeXmlFloat, value, printed("%.8g", static_cast<double>(value)));
  compareWriting(simulation::writeUnsigned, valueIn<std::uint64_t>(bytes),
                 std::to_string(valueIn<std::uint64_t>(bytes)));
  compareWriting(simulation::writeSigned, valueIn<std::int64_t>(bytes),
                 std::to_string(valueIn<std::int64_t>(bytes)));
  const auto item = [](char* out, auto number) { return simulation::writeItem(out, number); };
  compareWriting(item, valueIn<std::uint64_t>(bytes),
                 std::to_string(valueIn<std::uint64_t>(bytes)) + ' ');
  compareWriting(item, valueIn<std::uint16_t>(bytes),
                 std::to_string(valueIn<std::uint16_t>(bytes)) + ' ');
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // A block of its own: what is read behind the text is seen.
  const std::vector<char> block(data, data + size);
  const std::string_view text(block.data(), block.size());
  compareConversions(text);
  compareExtraction<std::uint64_t>(text);
  compareExtraction<std::uint16_t>(text);
  compareExtraction<float>(text);
  compareWriters(text);
  return 0;
}
