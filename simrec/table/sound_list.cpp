#include "simrec/table/sound_list.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>
#include <vector>

#include "core/eight_digits.h"

namespace simrec {
namespace {

using catalogue::Type;
using simulation::load;

/// The eight characters at `text`, digits as their values.
std::uint64_t wordAt(const char* text) {
  return load<std::uint64_t>(text) ^ simulation::kZeroDigits;
}

/// The highest bits of those characters that are no digits.
std::uint64_t othersIn(std::uint64_t word) {
  return ((word + 0x7676'7676'7676'7676) | word) & 0x8080'8080'8080'8080;
}

/// Reads a list from its beginning.
template <typename Item>
class SoundList {
 public:
  SoundList(std::string_view text, std::vector<Item>& items)
      : at_(text.data()),
        end_(at_ + text.size()),
        item_(items.data()),
        last_(item_ + items.size()) {}

  /// What follows the last item's blank; null where anything else is in the way.
  const char* end() {
    while (item_ != last_) {
      takeShort();
      if (item_ != last_ && !takeAny()) return nullptr;
    }
    return all_ <= std::numeric_limits<Item>::max() ? at_ : nullptr;
  }

 private:
  /// Numbers of up to eight digits, not near the end of the text. Neighbours mostly have as many
  /// digits as each other: where the next one begins is known then before this one is read.
  void takeShort() {
    while (item_ != last_ && end_ - at_ >= kNear) {
      const std::uint64_t others = othersIn(wordAt(at_));
      const int digits = others == 0 ? 8 : __builtin_ctzll(others) / 8;
      if (digits == 0 || at_[digits] != ' ') return;
      takeRun(digits);
    }
  }

  /// Numbers of so many digits, one at least.
  void takeRun(int digits) {
    const int shift = 64 - 8 * digits;
    const std::ptrdiff_t most = std::min((end_ - at_ - kNear) / (digits + 1) + 1, last_ - item_);
    const char* at = at_;
    Item* item = item_;
    Item* const last = item + most;
    while (item != last && at[digits] == ' ') {
      const std::uint64_t word = wordAt(at) << shift;
      if (othersIn(word) != 0) break;
      const std::uint32_t value = simulation::joinDigits(word);
      all_ |= value;
      *item++ = static_cast<Item>(value);
      at += digits + 1;
    }
    at_ = at;
    item_ = item;
  }

  bool takeAny() {
    const auto [stop, error] = std::from_chars(at_, end_, *item_);
    if (error != std::errc() || stop == end_ || *stop != ' ') return false;
    at_ = stop + 1;
    ++item_;
    return true;
  }

  static constexpr std::ptrdiff_t kNear = 9;  // eight digits and a blank

  const char* at_;
  const char* end_;
  Item* item_;
  Item* last_;
  std::uint64_t all_ = 0;  // bits that any short number has
};

template <typename Item>
const char* readAll(std::string_view text, std::size_t wanted, NumberList::Values& values) {
  std::vector<Item> items(wanted);
  const char* const end = SoundList<Item>(text, items).end();
  if (end != nullptr) values = std::move(items);
  return end;
}

}  // namespace

const char* readSoundList(std::string_view text, Type type, std::size_t wanted,
                          NumberList::Values& values) {
  switch (type) {
    case Type::kUint8:
      return readAll<std::uint8_t>(text, wanted, values);
    case Type::kUint16:
      return readAll<std::uint16_t>(text, wanted, values);
    case Type::kUint32:
    case Type::kInt32:
      return readAll<std::uint32_t>(text, wanted, values);
    case Type::kUint64:
      return readAll<std::uint64_t>(text, wanted, values);
    case Type::kFloat:
      break;
  }
  return nullptr;
}

}  // namespace simrec
