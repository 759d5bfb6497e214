// Numbers as text and text as numbers, with the results that the standard
// streams and conversions have in the classic locale, whatever locale the host
// process uses. No state, no locks.
//
// Everything common is computed exactly in integers or with one exact double
// operation; what that can't prove right goes to the C library's own functions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "core/eight_digits.h"

namespace simulation {

/// @name Writing
/// Each function writes at `out` and returns the end of the text, which gets no
/// NUL. The constants tell the room that a call may use.
/// @{

inline constexpr std::size_t kUnsignedRoom = 20;
inline constexpr std::size_t kSignedRoom = 20;
inline constexpr std::size_t kByteItemRoom = 4;
inline constexpr std::size_t kStreamFloatRoom = 12;
inline constexpr std::size_t kXmlFloatRoom = 14;
inline constexpr std::size_t kFixedFloatRoom = 47;

char* writeUnsigned(char* out, std::uint64_t value);
char* writeSigned(char* out, std::int64_t value);

/// Six significant digits, as a stream writes a float by default.
char* writeStreamFloat(char* out, float value);

/// Eight significant digits, as tinyxml2 writes a float.
char* writeXmlFloat(char* out, float value);

/// Exactly six digits after the point, as a stream with std::fixed writes a float.
char* writeFixedFloat(char* out, float value);

/// What stands behind each number of a list.
inline char* writeBlank(char* out) {
  *out = ' ';
  return out + 1;
}

/// A number of a long list and its blank, in kUnsignedRoom + 1: quick for numbers
/// below 10^8.
inline char* writeItem(char* out, std::uint64_t value) {
  if (value >= kTenTo8) return writeBlank(writeUnsigned(out, value));
  return writeBlank(writeUpTo8(out, static_cast<std::uint32_t>(value)));
}

/// The same: quick for numbers below 10^4.
inline char* writeItem(char* out, std::uint16_t value) {
  return value < 10000 ? writeUpTo4Item(out, value) : writeBlank(writeUnsigned(out, value));
}

/// Numbers of a very long list, with their blanks.
char* writeItems(char* out, const std::uint8_t* values, std::size_t count);
/// @}

/// @name Stream extraction
/// What `stream >> value` does: blanks are skipped, then as much as can belong
/// to a number is taken. Moves `cursor` behind what was taken; false, with
/// `value` as it was, when that is no number or out of range. A negative text is
/// negated modulo 2^N into an unsigned; a float too small for its type is zero.
/// @{
bool extract(const char*& cursor, const char* end, std::uint64_t& value);
bool extract(const char*& cursor, const char* end, std::uint16_t& value);
bool extract(const char*& cursor, const char* end, float& value);
/// @}

/// @name The standard conversions
/// std::stoi, std::stoll (both base 10) and std::stof: what follows the number is
/// ignored; std::invalid_argument and std::out_of_range leave as they do there.
/// @{
int toInt(std::string_view text);
long long toLongLong(std::string_view text);
float toFloat(std::string_view text);
/// @}

/// The quick part of the above for long lists: takes a number of the common form
/// 1234.5678 and returns where the blank behind it is. Null, and nothing done, for
/// any other text and near the `end`.
const char* takeListedFloat(const char* text, const char* end, float& value);

/// What sscanf's "%f" finds in `text`, which is how tinyxml2 reads a float. False,
/// with `value` as it was, when that is nothing.
bool scanFloat(const char* text, float& value);

}  // namespace simulation
