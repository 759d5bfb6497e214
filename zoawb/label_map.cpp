#include "zoawb/label_map.h"

#include <simulation/records.h>

#include <algorithm>
#include <array>
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

/// Plain labels, of one to three digits, are taken a chunk of text at a time.
constexpr std::size_t kChunk = 512;

/// What stands before each character of a chunk: the low 8 bits of its label.
using Values = std::array<std::uint8_t, kChunk>;

/// False when there is anything but plain labels, one blank behind each, in the
/// chunk at `text`. Three characters before it are looked at: a blank, or digits
/// of a chunk that was plain. Written so that compilers look at many characters
/// at once.
__attribute__((noinline)) bool takeValues(const char* text, Values& values) {
  constexpr std::uint8_t kDigitBit = 0x10;  // in a digit, but not in a blank
  std::uint8_t odd = 0;
  for (std::size_t i = 0; i < kChunk; ++i) {
    const auto here = static_cast<std::uint8_t>(text[i]);
    const auto ones = static_cast<std::uint8_t>(*(text + i - 1));
    const auto tens = static_cast<std::uint8_t>(*(text + i - 2));
    const auto hundreds = static_cast<std::uint8_t>(*(text + i - 3));
    const bool digit = static_cast<std::uint8_t>(here - '0') < 10;
    const bool known = digit | (here == ' ');
    const int fourDigits = here & ones & tens & hundreds & kDigitBit;
    const int noDigits = ~(here | ones) & kDigitBit;
    odd = static_cast<std::uint8_t>(odd | !known | fourDigits | noDigits);
    const int third = (tens & kDigitBit) != 0 ? hundreds & 0xF : 0;
    values[i] = static_cast<std::uint8_t>((ones & 0xF) + 10 * (tens & 0xF) + 100 * third);
  }
  return odd == 0;
}

/// Puts the labels of a plain chunk, and up to one byte more, to `labels`. Returns
/// their number.
std::size_t takeLabels(const char* text, const Values& values, std::uint8_t* labels) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < kChunk; i += 8) {
    std::uint64_t blanks = ~(load<std::uint64_t>(text, i) >> 4) & 0x0101'0101'0101'0101;
    std::uint64_t label = load<std::uint64_t>(values.data(), i);
    for (int character = 0; character < 8; ++character) {
      labels[count] = static_cast<std::uint8_t>(label);
      count += blanks & 1;
      label >>= 8;
      blanks >>= 8;
    }
  }
  return count;
}

/// Takes the labels of one text, each up to its blank.
class LabelReader {
 public:
  explicit LabelReader(std::string_view text)
      : begin_(text.data()),
        end_(begin_ + text.size()),
        labels_(new std::uint8_t[kSize + kChunk]) {}

  /// Takes them all; their number, of which the first kSize are kept.
  std::size_t read() {
    const char* at = begin_;
    while (at != end_) at = takeChunk(at) ? at + kChunk : takeOneByOne(at);
    return count_;
  }

  const std::uint8_t* labels() const { return labels_.get(); }

 private:
  std::uint8_t* place() const { return labels_.get() + std::min(count_, kSize); }

  bool takeChunk(const char* at) {
    Values values;
    const bool fits = at != begin_ && static_cast<std::size_t>(end_ - at) >= kChunk;
    if (!fits || !takeValues(at, values)) return false;
    count_ += takeLabels(at, values, place());
    return true;
  }

  /// Takes labels, whatever they are, until a chunk is behind. Returns where the
  /// next one begins: behind a blank.
  const char* takeOneByOne(const char* at) {
    const char* label = at;
    while (label != begin_ && label[-1] != ' ') --label;
    const char* const stop = at + std::min<std::ptrdiff_t>(end_ - at, kChunk);
    while (label < stop) {
      const char* const blank = std::find(label, end_, ' ');
      if (blank == end_) return end_;
      *place() = static_cast<std::uint8_t>(toInt({label, static_cast<std::size_t>(blank - label)}));
      ++count_;
      label = blank + 1;
    }
    return label;
  }

  const char* const begin_;
  const char* const end_;
  std::unique_ptr<std::uint8_t[]> labels_;
  std::size_t count_ = 0;
};

}  // namespace

void writeLabelMap(XmlPrinter& printer, const void* map) {
  printer.pushBytes(static_cast<const std::uint8_t*>(map), kSize);
}

void readLabelMap(const tinyxml2::XMLElement& element, void* map) {
  LabelReader reader(textOf(element));
  const std::size_t count = reader.read();
  if (count > kSize || (count > 0 && map == nullptr)) fatal();
  if (count == 0) return;
  std::memcpy(map, reader.labels(), count);
}

}  // namespace simulation
