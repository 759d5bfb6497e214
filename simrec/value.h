// The values of a record, as its file has them: integers exact, floats as decimals. What the
// members are is the catalogue's to say.
#pragma once

#include <cstdint>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "catalogue/member.h"

namespace simrec {

/// One number. Of an integer type `integer` holds its bits (sign-extended); of kFloat `decimal`
/// is what the text says, and `single` the float that it stands for. `text` is what an XML file
/// has, in the document of the record that the number belongs to; else empty.
struct Number {
  catalogue::Type type = catalogue::Type::kFloat;
  std::uint64_t integer = 0;
  double decimal = 0;
  float single = 0;
  std::string_view text = {};

  bool isSigned() const { return type == catalogue::Type::kInt32; }
  bool isFloat() const { return type == catalogue::Type::kFloat; }
  /// Near enough for a picture or a mean.
  double approximately() const {
    if (isFloat()) return decimal;
    return isSigned() ? static_cast<double>(static_cast<std::int64_t>(integer))
                      : static_cast<double>(integer);
  }
};

/// The decimal that is meant by a float whose text is not at hand: the shortest that stands for
/// no other float.
double shortestDecimal(float value);

/// A float without its text, or an unsigned integer.
template <typename Item>
Number numberOf(Item value) {
  if constexpr (std::is_same_v<Item, float>) {
    return {catalogue::Type::kFloat, 0, shortestDecimal(value), value, {}};
  } else {
    static_assert(std::is_unsigned_v<Item>);
    return {catalogue::Type::kUint64, value};
  }
}

/// Numbers of one type. `text` is what the file has, in the document of the record that the list
/// belongs to; empty for binary files.
struct NumberList {
  using Values =
      std::variant<std::vector<std::uint8_t>, std::vector<std::uint16_t>,
                   std::vector<std::uint32_t>, std::vector<std::uint64_t>, std::vector<float>>;
  Values values;
  std::string_view text = {};
  bool whole = true;  ///< all that the file has: none of it was too odd, or too much

  std::size_t size() const {
    return std::visit([](const auto& list) { return list.size(); }, values);
  }
};

/// The member that is missing from the file, or no value of its type, has no Value at all.
struct Value {
  const catalogue::Member* member = nullptr;
  /// A number, a list, the members of a group, or the items of an array with the members of
  /// each.
  std::variant<Number, NumberList, std::vector<Value>, std::vector<std::vector<Value>>> is = {};

  const Number* number() const { return std::get_if<Number>(&is); }
  const NumberList* list() const { return std::get_if<NumberList>(&is); }
  const std::vector<Value>* members() const { return std::get_if<std::vector<Value>>(&is); }
  const std::vector<std::vector<Value>>* items() const {
    return std::get_if<std::vector<std::vector<Value>>>(&is);
  }
};

using Values = std::vector<Value>;

/// The value called `name`; null where there is none.
const Value* find(const Values& values, std::string_view name);

/// What people ask of a list first. Numbers that are nan count in no extreme (without any other
/// the extremes are nan), but make the mean nan. Of no numbers, all are 0.
struct Summary {
  std::size_t count = 0;
  Number min, max;
  double mean = 0;
};
Summary summaryOf(const NumberList& list);

}  // namespace simrec
