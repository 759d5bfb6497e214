#include "zoawb/label_map.h"

#include <simulation/records.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "core/fatal.h"
#include "core/number_text.h"
#include "core/record_document.h"

namespace simulation {
namespace {

constexpr std::size_t kSize = QSegImageInfo::kStatsSize;

/// One to three digits before a blank, which is all that a dump writes.
/// Returns where the blank is, or null for anything else. `text` ends with a
/// character that is neither.
const char* readPlainLabel(const char* text, unsigned int& value) {
  const auto digit = [text](int i) { return static_cast<unsigned int>(text[i]) - '0'; };
  value = digit(0);
  if (value > 9) return nullptr;
  for (int i = 1; i < 4; ++i) {
    if (text[i] == ' ') return text + i;
    if (digit(i) > 9) return nullptr;
    value = value * 10 + digit(i);
  }
  return nullptr;
}

/// The values of `text`, of which the first kSize go to `map`.
std::size_t parseLabels(std::string_view text, std::uint8_t* map) {
  const char* cursor = text.data();
  const char* const end = cursor + text.size();
  for (std::size_t count = 0;; ++count) {
    unsigned int value = 0;
    const char* blank = readPlainLabel(cursor, value);
    if (blank == nullptr) {
      blank = std::find(cursor, end, ' ');
      if (blank == end) return count;
      value = static_cast<unsigned int>(toInt({cursor, static_cast<std::size_t>(blank - cursor)}));
    }
    if (count < kSize) map[count] = static_cast<std::uint8_t>(value);
    cursor = blank + 1;
  }
}

}  // namespace

void writeLabelMap(XmlPrinter& printer, const void* map) {
  printer.pushBytes(static_cast<const std::uint8_t*>(map), kSize);
}

void readLabelMap(const tinyxml2::XMLElement& element, void* map) {
  const std::unique_ptr<std::uint8_t[]> labels(new std::uint8_t[kSize]);
  const std::size_t count = parseLabels(textOf(element), labels.get());
  if (count > kSize || (count > 0 && map == nullptr)) fatal();
  if (count == 0) return;
  std::memcpy(map, labels.get(), count);
}

}  // namespace simulation
