// Names and texts from disk, made fit to be shown. No state.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace simrec {

/// `text` with U+FFFD for each byte that is not UTF-8.
std::string asUtf8(std::string_view text);

bool isUtf8(std::string_view text);

/// The same in one line and without anything that a terminal would obey: control
/// characters stand as \n, \t or \x1b, U+0080 to U+009F and what turns the direction of text as
/// \u{...}.
std::string printable(std::string_view text);

/// The same of a text that may be long: cut, with "..." behind it.
std::string shortened(std::string_view text);

/// Two lower-case digits for each byte.
std::string hex(std::string_view bytes);

/// A size as people read it: "312 B", "1.2 MB" (powers of 1024).
std::string sizeText(std::uint64_t bytes);

/// Nanoseconds since 1970 in local time, "2026-03-01 14:05:09", and in RFC 3339 in UTC,
/// "2026-03-01T13:05:09.250Z".
std::string localTime(std::int64_t nanoseconds);
std::string utcTime(std::int64_t nanoseconds);

/// "1 file", "3 files".
std::string counted(std::uint64_t count, std::string_view what);

}  // namespace simrec
