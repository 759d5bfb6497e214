#include "zoawb/label_map.h"

#include <simulation/records.h>

#include <cstdint>
#include <cstring>
#include <memory>

#include "core/fatal.h"
#include "core/number_text.h"

namespace simulation {
namespace {

constexpr std::size_t kSize = QSegImageInfo::kStatsSize;

/// One to three digits before a blank, which is all that a dump writes.
/// Returns where the blank is, or null for anything else.
const char* readPlainLabel(const char* text, unsigned int& value) {
  value = 0;
  const char* const limit = text + 3;
  const char* cursor = text;
  while (cursor != limit && *cursor >= '0' && *cursor <= '9') {
    value = value * 10 + static_cast<unsigned int>(*cursor++ - '0');
  }
  return cursor != text && *cursor == ' ' ? cursor : nullptr;
}

/// The values of `text`, of which the first kSize go to `map`.
std::size_t parseLabels(const char* text, std::uint8_t* map) {
  std::size_t count = 0;
  for (;; ++count) {
    unsigned int value = 0;
    const char* blank = readPlainLabel(text, value);
    if (blank == nullptr) {
      blank = std::strchr(text, ' ');
      if (blank == nullptr) return count;
      value = static_cast<unsigned int>(toInt({text, static_cast<std::size_t>(blank - text)}));
    }
    if (count < kSize) map[count] = static_cast<std::uint8_t>(value);
    text = blank + 1;
  }
}

}  // namespace

void writeLabelMap(tinyxml2::XMLElement& element, const void* map) {
  TextBuilder text(kSize * kByteItemRoom);
  const auto* labels = static_cast<const std::uint8_t*>(map);
  for (std::size_t i = 0; i < kSize; ++i) text.append(writeByteItem, labels[i]);
  element.SetText(text.c_str());
}

void readLabelMap(const tinyxml2::XMLElement& element, void* map) {
  const char* text = element.GetText();
  if (text == nullptr) return;
  const std::unique_ptr<std::uint8_t[]> labels(new std::uint8_t[kSize]);
  const std::size_t count = parseLabels(text, labels.get());
  if (count > kSize) fatal();
  std::memcpy(map, labels.get(), count);
}

}  // namespace simulation
