// The members of a record: how each is named in the file, what it means, and where
// it lies in the live record. Constant data; rows are made by the functions below.
#pragma once

#include <cstddef>
#include <cstdint>

#include "catalogue/rows.h"

namespace catalogue {

enum class Type { kUint8, kUint16, kInt32, kUint32, kUint64, kFloat };

/// Bytes of a value in the live record and in a binary file.
std::size_t sizeOf(Type type);

enum class Shape {
  kNumber,
  kList,   ///< numbers, a blank behind each, as one text
  kGroup,  ///< an element with members of its own
  kArray,  ///< an element with `count` like items, each with members of its own
};

/// What carries a member in the file.
enum class Carrier {
  kElement,
  kAttribute,  ///< of the element that carries the members around it
  kBytes,      ///< in a binary file, which is the live record byte for byte
};

/// How a float is written: in eight significant digits, in six, or with six digits
/// after the point. Other floats that a record had are not in its file.
enum class Digits { kEight, kSix, kSixDecimals };

/// What a readback does with a member.
enum class Replay {
  kReplaced,
  kLive,         ///< the live value stays
  kFirstByte,    ///< one byte of the live value is replaced
  kWholeNumber,  ///< the fraction is lost; a negative number becomes a large one
  kOnlyReplaced  ///< replaced from a file that has it, but a dump leaves it out
};

struct Meaning {
  std::int64_t value;
  const char* text;
};

struct Member {
  const char* name;  ///< as in the file
  Shape shape;
  Type type = Type::kFloat;
  Carrier carrier = Carrier::kElement;
  /// In the live record, or in the group or item around it.
  std::size_t offset = 0;
  /// Of a list, the numbers that it may hold; of an array, its items.
  std::size_t count = 1;
  /// From one number or item to the next in the live record.
  std::size_t stride = 0;
  Rows<Member> members = {};   ///< of a group, or of each item of an array
  const char* item = nullptr;  ///< of an array: the element of each item
  Replay replay = Replay::kReplaced;
  Digits digits = Digits::kEight;
  const char* unit = "";
  const char* what = "";
  Rows<Meaning> meanings = {};
  std::uint64_t most = static_cast<std::uint64_t>(-1);  ///< of an unsigned integer

  /// @name The same row, with one thing said
  /// @{
  constexpr Member in(const char* itsUnit) const {
    Member row = *this;
    row.unit = itsUnit;
    return row;
  }
  constexpr Member is(const char* itsContent) const {
    Member row = *this;
    row.what = itsContent;
    return row;
  }
  constexpr Member on(Replay itsReplay) const {
    Member row = *this;
    row.replay = itsReplay;
    return row;
  }
  constexpr Member as(Digits itsDigits) const {
    Member row = *this;
    row.digits = itsDigits;
    return row;
  }
  constexpr Member upTo(std::uint64_t itsMost) const {
    Member row = *this;
    row.most = itsMost;
    return row;
  }
  constexpr Member means(Rows<Meaning> itsMeanings) const {
    Member row = *this;
    row.meanings = itsMeanings;
    return row;
  }
  /// @}
};

using Members = Rows<Member>;

constexpr Member number(const char* name, Type type, std::size_t offset) {
  return {name, Shape::kNumber, type, Carrier::kElement, offset};
}

constexpr Member attribute(const char* name, Type type, std::size_t offset) {
  return {name, Shape::kNumber, type, Carrier::kAttribute, offset};
}

constexpr Member bytes(const char* name, Type type, std::size_t offset) {
  return {name, Shape::kNumber, type, Carrier::kBytes, offset};
}

constexpr Member list(const char* name, Type type, std::size_t offset, std::size_t count,
                      std::size_t stride, Carrier carrier = Carrier::kElement) {
  return {name, Shape::kList, type, carrier, offset, count, stride};
}

constexpr Member group(const char* name, std::size_t offset, Members members) {
  return {name, Shape::kGroup, Type::kFloat, Carrier::kElement, offset, 1, 0, members};
}

constexpr Member array(const char* name, const char* item, std::size_t offset, std::size_t count,
                       std::size_t stride, Members members) {
  return {name,   Shape::kArray, Type::kFloat, Carrier::kElement, offset, count,
          stride, members,       item};
}

}  // namespace catalogue
