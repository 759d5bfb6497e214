// What a readback should make of an XML record, by the parser alone and the
// standard conversions: what it stores, and what it throws.
#pragma once

#include <tinyxml2.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/support/fuzz.h"

namespace fuzz {

/// A place that no record has: where a table's items past the last one go.
inline constexpr std::size_t kNowhere = std::numeric_limits<std::size_t>::max() / 2;

template <typename Value>
void put(std::string& record, std::size_t offset, Value value) {
  if (offset >= record.size()) throw Fatal();
  record.replace(offset, sizeof value, reinterpret_cast<const char*>(&value), sizeof value);
}

/// A child element, by its name, and what its content becomes.
struct PlainField {
  const char* name;
  std::size_t offset;
  void (*replay)(const tinyxml2::XMLElement& element, std::string& record, std::size_t offset);
};

template <std::size_t Count>
void replayFields(const tinyxml2::XMLNode& parent, const PlainField (&fields)[Count],
                  std::string& record, std::size_t offset) {
  for (const PlainField& field : fields) {
    const tinyxml2::XMLElement* element = parent.FirstChildElement(field.name);
    if (element != nullptr) field.replay(*element, record, offset + field.offset);
  }
}

/// Children of any name, one for each item.
template <std::size_t Count>
void replayItems(const tinyxml2::XMLNode& parent, const PlainField (&item)[Count],
                 std::size_t items, std::size_t itemSize, std::string& record, std::size_t offset) {
  std::size_t i = 0;
  for (const auto* child = parent.FirstChildElement(); child != nullptr; ++i) {
    replayFields(*child, item, record, i < items ? offset + i * itemSize : kNowhere);
    child = child->NextSiblingElement();
  }
}

inline std::string plainText(const tinyxml2::XMLElement& element) {
  return element.GetText() != nullptr ? element.GetText() : "";
}

/// What `convert` makes of each part of a text that a blank ends.
template <typename Convert>
auto convertParts(const std::string& text, Convert convert) {
  std::vector<decltype(convert(text))> values;
  std::size_t begin = 0;
  for (std::size_t blank; (blank = text.find(' ', begin)) != text.npos; begin = blank + 1) {
    values.push_back(convert(text.substr(begin, blank - begin)));
  }
  return values;
}

/// @name Contents of fields
/// @{
inline void replayInt(const tinyxml2::XMLElement& element, std::string& record,
                      std::size_t offset) {
  put(record, offset, std::stoi(plainText(element)));
}

inline void replayFloat(const tinyxml2::XMLElement& element, std::string& record,
                        std::size_t offset) {
  put(record, offset, std::stof(plainText(element)));
}

template <typename Word>
void replayLowBits(const tinyxml2::XMLElement& element, std::string& record, std::size_t offset) {
  put(record, offset, static_cast<Word>(std::stoll(plainText(element))));
}

inline void replayQueried(const tinyxml2::XMLElement& element, std::string& record,
                          std::size_t offset) {
  float value = 0;
  if (element.QueryFloatText(&value) == tinyxml2::XML_SUCCESS) put(record, offset, value);
}
/// @}

}  // namespace fuzz
