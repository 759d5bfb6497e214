#include "catalogue/file_name.h"

#include <charconv>

namespace catalogue {
namespace {

constexpr std::string_view kRequestPattern = "RequestID[{index}]_camId[{camera}]";

/// The piece of a pattern up to its first variable part, and that part's name.
struct Piece {
  explicit Piece(std::string_view pattern)
      : literal(pattern.substr(0, pattern.find('{'))),
        part(literal.size() == pattern.size()
                 ? ""
                 : pattern.substr(literal.size(), pattern.find('}') + 1 - literal.size())),
        rest(pattern.substr(literal.size() + part.size())) {}
  std::string_view literal, part, rest;
};

std::optional<int>& numberOf(FileName& parts, std::string_view part) {
  return part == "{camera}" ? parts.camera : part == "{ev}" ? parts.ev : parts.index;
}

/// Takes a number as "%d" shows it: "-0", "+1" and "01" are none.
bool takeNumber(std::string_view& name, int& number) {
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  if (error != std::errc()) return false;
  const auto size = static_cast<std::size_t>(end - name.data());
  if (std::to_string(number) != name.substr(0, size)) return false;
  name.remove_prefix(size);
  return true;
}

bool match(std::string_view pattern, std::string_view name, FileName& parts);

/// The text is as long as it can be: what follows it is matched from the end.
bool matchText(std::string_view rest, std::string_view name, FileName& parts) {
  for (std::size_t size = name.size() + 1; size-- > 0;) {
    if (!match(rest, name.substr(size), parts)) continue;
    parts.text = std::string(name.substr(0, size));
    return true;
  }
  return false;
}

bool match(std::string_view pattern, std::string_view name, FileName& parts) {
  const Piece piece(pattern);
  if (name.substr(0, piece.literal.size()) != piece.literal) return false;
  name.remove_prefix(piece.literal.size());
  if (piece.part.empty()) return name.empty();
  if (piece.part == "{text}") return matchText(piece.rest, name, parts);
  int number = 0;
  if (!takeNumber(name, number) || !match(piece.rest, name, parts)) return false;
  numberOf(parts, piece.part) = number;
  return true;
}

std::string fill(std::string_view pattern, FileName parts) {
  std::string name;
  while (!pattern.empty()) {
    const Piece piece(pattern);
    name += piece.literal;
    if (piece.part == "{text}") {
      name += parts.text.value_or("");
    } else if (!piece.part.empty()) {
      name += std::to_string(numberOf(parts, piece.part).value_or(0));
    }
    pattern = piece.rest;
  }
  return name;
}

}  // namespace

std::string makeFileName(const FileName& parts) {
  return std::string(kRecordPrefix) + fill(parts.kind->pattern, parts);
}

std::optional<FileName> parseFileName(std::string_view name) {
  if (name.substr(0, kRecordPrefix.size()) != kRecordPrefix) return std::nullopt;
  name.remove_prefix(kRecordPrefix.size());
  for (const Kind& kind : kinds()) {
    FileName parts = {&kind};
    if (match(kind.pattern, name, parts)) return parts;
  }
  return std::nullopt;
}

std::string makeRequestFolder(const RequestFolder& parts) {
  return fill(kRequestPattern, {nullptr, parts.camera, {}, {}, parts.request});
}

std::optional<RequestFolder> parseRequestFolder(std::string_view name) {
  FileName parts = {nullptr};
  if (!match(kRequestPattern, name, parts)) return std::nullopt;
  return RequestFolder{*parts.index, *parts.camera};
}

}  // namespace catalogue
