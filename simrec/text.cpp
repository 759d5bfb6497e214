#include "simrec/text.h"

#include <fmt/format.h>

#include <array>
#include <ctime>

namespace simrec {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// One character of a text: its code point and its bytes; a byte that is not UTF-8 has no
/// code point.
struct Character {
  std::int32_t code;
  std::size_t size;
};

constexpr std::int32_t kNone = -1;

std::size_t sizeFrom(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

/// Forms that are too long, surrogates and what is beyond U+10FFFF are not UTF-8.
bool isValid(std::int32_t code, std::size_t size) {
  constexpr std::array<std::int32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  return code >= kLeast[size] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

Character characterAt(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
  const std::size_t size = sizeFrom(byte(0));
  if (size == 0 || at + size > text.size()) return {kNone, 1};
  if (size == 1) return {byte(0), 1};
  std::int32_t code = byte(0) & (0xFF >> (size + 1));
  for (std::size_t i = 1; i < size; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return {kNone, 1};
    code = code << 6 | (byte(i) & 0x3F);
  }
  return isValid(code, size) ? Character{code, size} : Character{kNone, 1};
}

/// Line separators and what turns the direction of text.
bool misleads(std::int32_t code) {
  return (code >= 0x80 && code < 0xA0) || code == 0x061C || (code >= 0x200E && code <= 0x200F) ||
         (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

std::string shown(std::string_view bytes, std::int32_t code) {
  if (code == kNone) return std::string(kReplacement);
  if (code == '\n') return "\\n";
  if (code == '\t') return "\\t";
  if (code == '\r') return "\\r";
  if (code < 0x20 || code == 0x7F) return fmt::format("\\x{:02x}", code);
  if (misleads(code)) return fmt::format("\\u{{{:x}}}", code);
  return std::string(bytes);
}

template <typename Show>
std::string rewritten(std::string_view text, Show show) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Character character = characterAt(text, at);
    result += show(text.substr(at, character.size), character.code);
    at += character.size;
  }
  return result;
}

constexpr std::int64_t kSecond = 1'000'000'000;

std::tm calendar(std::int64_t nanoseconds, std::tm* (*convert)(const std::time_t*, std::tm*)) {
  const std::time_t seconds =
      nanoseconds / kSecond - (nanoseconds % kSecond < 0 ? 1 : 0);  // before 1970, too
  std::tm time = {};
  convert(&seconds, &time);
  return time;
}

std::string formatted(const std::tm& time, const char* format) {
  std::array<char, 64> text;
  return {text.data(), std::strftime(text.data(), text.size(), format, &time)};
}

}  // namespace

std::string asUtf8(std::string_view text) {
  return rewritten(text, [](std::string_view bytes, std::int32_t code) {
    return code == kNone ? kReplacement : bytes;
  });
}

bool isUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const Character character = characterAt(text, at);
    if (character.code == kNone) return false;
    at += character.size;
  }
  return true;
}

std::string printable(std::string_view text) { return rewritten(text, shown); }

std::string shortened(std::string_view text) {
  constexpr std::size_t kLongest = 40;
  return printable(text.substr(0, kLongest)) + (text.size() > kLongest ? "..." : "");
}

std::string hex(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string digits;
  digits.reserve(2 * bytes.size());
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    digits += kDigits[value >> 4];
    digits += kDigits[value & 0xF];
  }
  return digits;
}

std::string sizeText(std::uint64_t bytes) {
  if (bytes < 1024) return fmt::format("{} B", bytes);
  auto size = static_cast<double>(bytes) / 1024;
  constexpr std::array<const char*, 6> kUnits = {"KB", "MB", "GB", "TB", "PB", "EB"};
  std::size_t unit = 0;
  while (size >= 1023.95 && unit + 1 < kUnits.size()) {
    size /= 1024;
    ++unit;
  }
  return fmt::format("{:.1f} {}", size, kUnits[unit]);
}

std::string localTime(std::int64_t nanoseconds) {
  return formatted(calendar(nanoseconds, localtime_r), "%Y-%m-%d %H:%M:%S");
}

std::string utcTime(std::int64_t nanoseconds) {
  const std::int64_t part = (nanoseconds % kSecond + kSecond) % kSecond;
  return formatted(calendar(nanoseconds, gmtime_r), "%Y-%m-%dT%H:%M:%S") +
         fmt::format(".{:03}Z", part / 1'000'000);
}

std::string counted(std::uint64_t count, std::string_view what) {
  return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

}  // namespace simrec
