#include "simrec/number.h"

#include <fast_float/fast_float.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

#include "core/listed_numbers.h"
#include "core/number_text.h"
#include "simrec/text.h"

namespace simrec {
namespace {

using catalogue::Type;

bool isBlank(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string quoted(std::string_view text) { return '"' + shortened(text) + '"'; }

std::string noNumber(std::string_view text) {
  return text.empty() ? "there is no number" : quoted(text) + " is no number";
}

std::string beyond(std::string_view text, Type type) {
  const char* const what = type == Type::kFloat    ? "a float's range"
                           : type == Type::kInt32  ? "32 bits with a sign"
                           : type == Type::kUint8  ? "8 bits"
                           : type == Type::kUint16 ? "16 bits"
                           : type == Type::kUint32 ? "32 bits"
                                                   : "64 bits";
  return quoted(text) + " is beyond " + what;
}

std::string_view withoutPlus(std::string_view text) {
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  return text;
}

template <typename Integer>
std::variant<Number, std::string> parseInteger(std::string_view text, Type type) {
  Integer value = 0;
  const std::string_view digits = withoutPlus(text);
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value);
  if (error == std::errc::result_out_of_range && stop == end) return beyond(text, type);
  if (error != std::errc() || stop != end) {
    const bool negative =
        std::is_unsigned_v<Integer> && !digits.empty() && digits[0] == '-' && digits.size() > 1 &&
        std::all_of(digits.begin() + 1, digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    return negative ? beyond(text, type) : noNumber(text);
  }
  Number number;
  number.type = type;
  number.integer = static_cast<std::uint64_t>(value);
  return number;
}

std::variant<Number, std::string> parseFloat(std::string_view text) {
  Number number;
  const std::string_view digits = withoutPlus(text);
  const char* const end = digits.data() + digits.size();
  const auto whole = fast_float::from_chars(digits.data(), end, number.decimal);
  if (whole.ec != std::errc() || whole.ptr != end) return noNumber(text);
  fast_float::from_chars(digits.data(), end, number.single);
  if (std::isinf(number.single) && digits.find_first_of("iI") == std::string_view::npos) {
    return beyond(text, Type::kFloat);
  }
  return number;
}

/// One number of a list by the library's own reader; floats that it leaves to the standard
/// conversions (nan, inf) by those.
bool takeNumber(const char*& cursor, const char* end, float& value) {
  while (cursor != end && isBlank(*cursor)) ++cursor;
  if (const char* const blank = simulation::takeListedFloat(cursor, end, value)) {
    cursor = blank;
    return true;
  }
  const char* const stop = std::find_if(cursor, end, isBlank);
  const auto number = parseFloat({cursor, static_cast<std::size_t>(stop - cursor)});
  if (!std::holds_alternative<Number>(number)) return false;
  value = std::get<Number>(number).single;
  cursor = stop;
  return true;
}

template <typename Integer>
bool takeNumber(const char*& cursor, const char* end, Integer& value) {
  std::uint64_t number = 0;
  while (cursor != end && isBlank(*cursor)) ++cursor;
  if (cursor == end || *cursor == '-' || !simulation::extract(cursor, end, number)) return false;
  value = static_cast<Integer>(number);
  return number <= std::numeric_limits<Integer>::max() && (cursor == end || isBlank(*cursor));
}

template <typename Item>
NumberList takeAll(std::string_view text, std::size_t most, std::string& problem) {
  std::vector<Item> values;
  values.reserve(std::min(most, text.size() / 2 + 1));  // a digit and a blank each
  const char* cursor = text.data();
  const char* end = cursor + text.size();
  while (end != cursor && isBlank(end[-1])) --end;
  while (cursor != end) {
    if constexpr (std::is_integral_v<Item>) {
      simulation::takeListedNumbers<Item>(cursor, end, most - values.size(),
                                          [&](Item value) { values.push_back(value); });
    }
    if (values.size() == most) {
      problem = "what follows number " + std::to_string(most) + " was not looked at";
      break;
    }
    const char* const begin = cursor;
    Item value;
    if (!takeNumber(cursor, end, value)) {
      const std::string_view rest = trimmed({begin, static_cast<std::size_t>(end - begin)});
      const auto stop = std::find_if(rest.begin(), rest.end(), isBlank);
      problem = quoted(rest.substr(0, static_cast<std::size_t>(stop - rest.begin()))) +
                " is no number of this list (at number " + std::to_string(values.size()) + ")";
      break;
    }
    values.push_back(value);
  }
  return {std::move(values), text, cursor == end};
}

template <typename Integer>
Number integerIn(const char* bytes, Type type) {
  Integer value;
  std::memcpy(&value, bytes, sizeof value);
  Number number;
  number.type = type;
  number.integer = static_cast<std::uint64_t>(value);
  return number;
}

}  // namespace

std::variant<Number, std::string> parseNumber(std::string_view text, Type type) {
  text = trimmed(text);
  switch (type) {
    case Type::kUint8:
      return parseInteger<std::uint8_t>(text, type);
    case Type::kUint16:
      return parseInteger<std::uint16_t>(text, type);
    case Type::kUint32:
      return parseInteger<std::uint32_t>(text, type);
    case Type::kUint64:
      return parseInteger<std::uint64_t>(text, type);
    case Type::kInt32:
      return parseInteger<std::int32_t>(text, type);
    case Type::kFloat:
      break;
  }
  return parseFloat(text);
}

NumberList parseList(std::string_view text, Type type, std::size_t most, std::string& problem) {
  switch (type) {
    case Type::kUint8:
      return takeAll<std::uint8_t>(text, most, problem);
    case Type::kUint16:
      return takeAll<std::uint16_t>(text, most, problem);
    case Type::kUint32:
    case Type::kInt32:
      return takeAll<std::uint32_t>(text, most, problem);
    case Type::kUint64:
      return takeAll<std::uint64_t>(text, most, problem);
    case Type::kFloat:
      break;
  }
  return takeAll<float>(text, most, problem);
}

std::vector<double> decimalsOf(const NumberList& list) {
  std::vector<double> decimals;
  decimals.reserve(list.size());
  if (list.text.empty()) {
    for (const float value : std::get<std::vector<float>>(list.values)) {
      decimals.push_back(shortestDecimal(value));
    }
    return decimals;
  }
  const char* at = list.text.data();
  const char* const end = at + list.text.size();
  while (decimals.size() < list.size()) {
    at = std::find_if_not(at, end, isBlank);
    if (at != end && *at == '+') ++at;
    at = fast_float::from_chars(at, end, decimals.emplace_back()).ptr;
  }
  return decimals;
}

Number numberInBytes(const char* bytes, Type type) {
  switch (type) {
    case Type::kUint8:
      return integerIn<std::uint8_t>(bytes, type);
    case Type::kUint16:
      return integerIn<std::uint16_t>(bytes, type);
    case Type::kUint32:
      return integerIn<std::uint32_t>(bytes, type);
    case Type::kUint64:
      return integerIn<std::uint64_t>(bytes, type);
    case Type::kInt32:
      return integerIn<std::int32_t>(bytes, type);
    case Type::kFloat:
      break;
  }
  Number number;
  std::memcpy(&number.single, bytes, sizeof number.single);
  number.decimal = shortestDecimal(number.single);
  return number;
}

}  // namespace simrec
