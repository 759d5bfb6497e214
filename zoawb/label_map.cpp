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
#include "zoawb/label_run.h"
#include "zoawb/plain_labels.h"

namespace simulation {
namespace {

constexpr std::size_t kSize = QSegImageInfo::kStatsSize;

/// Behind a run the next one is looked for soon, elsewhere seldom.
constexpr std::size_t kChunkBehindRun = 128;
constexpr std::size_t kChunk = kMostPlain;
constexpr std::size_t kShortestRun = 16;

/// Takes the labels of one text, each up to its blank.
class LabelReader {
 public:
  explicit LabelReader(std::string_view text)
      : begin_(text.data()),
        at_(begin_),
        end_(begin_ + text.size()),
        labels_(new std::uint8_t[kSize + kChunk]) {}

  /// Takes them all; their number, of which the first kSize are kept.
  std::size_t read() {
    std::size_t chunk = kChunkBehindRun;
    while (takeOne()) {
      if (takeRun() >= kShortestRun) {
        chunk = kChunkBehindRun;
      } else {
        takeChunk(chunk);
        chunk = kChunk;
      }
    }
    return count_;
  }

  const std::uint8_t* labels() const { return labels_.get(); }

 private:
  std::size_t left() const { return static_cast<std::size_t>(end_ - at_); }
  std::uint8_t* place() const { return labels_.get() + std::min(count_, kSize); }

  /// Takes a label, whatever it is. False at the end: a label without a blank is none.
  bool takeOne() {
    const char* const blank = std::find(at_, end_, ' ');
    if (blank == end_) return false;
    last_ = static_cast<std::uint8_t>(toInt({at_, static_cast<std::size_t>(blank - at_)}));
    period_ = static_cast<std::size_t>(blank + 1 - at_);
    *place() = last_;
    ++count_;
    at_ = blank + 1;
    return true;
  }

  /// Takes what repeats the last label. Returns how many characters these were.
  std::size_t takeRun() {
    const std::size_t times = repeated(at_, end_, period_) / period_;
    std::memset(place(), last_, std::min(times, kSize - std::min(count_, kSize)));
    count_ += times;
    at_ += times * period_;
    return times * period_;
  }

  /// Takes the labels that end in the next `size` characters: one by one where there
  /// are others than plain ones.
  void takeChunk(std::size_t size) {
    const char* const stop = at_ + std::min(size, left());
    if (left() >= size && at_ - begin_ >= 3) {
      const std::size_t count = takePlainLabels(at_, size, place());
      if (count != 0) {
        count_ += count;
        at_ = stop;
        while (at_[-1] != ' ') --at_;
        return;
      }
    }
    while (at_ < stop && takeOne()) continue;
  }

  const char* const begin_;
  const char* at_;  ///< behind a blank, or where the text begins
  const char* const end_;
  std::unique_ptr<std::uint8_t[]> labels_;
  std::size_t count_ = 0;
  std::uint8_t last_ = 0;   ///< the label that was taken last,
  std::size_t period_ = 0;  ///< and its characters with the blank
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
