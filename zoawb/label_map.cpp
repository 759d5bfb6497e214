#include "zoawb/label_map.h"

#include <simulation/records.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "core/bytes.h"
#include "core/fatal.h"
#include "core/number_text.h"
#include "core/record_document.h"

namespace simulation {
namespace {

constexpr std::size_t kSize = QSegImageInfo::kStatsSize;

/// Bit i is set where text[i], one of 64 characters, is a blank.
std::uint64_t blanksIn64(const char* text) {
  constexpr std::uint64_t kLow7 = 0x7F7F'7F7F'7F7F'7F7F;
  std::uint64_t blanks = 0;
  for (std::size_t word = 0; word < 8; ++word) {
    const std::uint64_t other = load<std::uint64_t>(text, 8 * word) ^ 0x2020'2020'2020'2020;
    const std::uint64_t tops = ~(((other & kLow7) + kLow7) | other | kLow7);  // 0x80 for a blank
    blanks |= ((tops >> 7) * 0x0102'0408'1020'4080 >> 56) << (8 * word);
  }
  return blanks;
}

/// Takes the labels of one text, each up to its blank.
class LabelReader {
 public:
  LabelReader(std::string_view text, std::uint8_t* map)
      : begin_(text.data()), label_(text.data()), map_(map) {}

  void takeUpTo(const char* blank) {
    const int value = plainLabel(blank);
    const int label = value >= 0 ? value : toInt({label_, size(blank)});
    if (count_ < kSize) map_[count_] = static_cast<std::uint8_t>(label);
    ++count_;
    label_ = blank + 1;
  }

  std::size_t count() const { return count_; }

 private:
  std::size_t size(const char* blank) const { return static_cast<std::size_t>(blank - label_); }

  /// One to three digits, which is all that a dump writes; negative for anything
  /// else. Looks at the last four characters without a branch for each.
  int plainLabel(const char* blank) const {
    const std::size_t digits = size(blank);
    if (digits - 1 > 2 || blank - begin_ < 4) return -1;
    const std::uint32_t word =
        (load<std::uint32_t>(blank - 4) ^ 0x3030'3030) & ~std::uint32_t{0} << (32 - 8 * digits);
    if (((word + 0x7676'7676) & 0x8080'8080) != 0 || (word & 0x8080'8080) != 0) return -1;
    return static_cast<int>((word >> 24) + (word >> 16 & 0xFF) * 10 + (word >> 8 & 0xFF) * 100);
  }

  const char* begin_;
  const char* label_;
  std::uint8_t* map_;
  std::size_t count_ = 0;
};

/// The values of `text`, of which the first kSize go to `map`. Returns their
/// number.
std::size_t parseLabels(std::string_view text, std::uint8_t* map) {
  LabelReader reader(text, map);
  const char* block = text.data();
  const char* const end = block + text.size();
  for (; end - block >= 64; block += 64) {
    for (std::uint64_t blanks = blanksIn64(block); blanks != 0; blanks &= blanks - 1) {
      reader.takeUpTo(block + __builtin_ctzll(blanks));
    }
  }
  for (; block != end; ++block) {
    if (*block == ' ') reader.takeUpTo(block);
  }
  return reader.count();
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
