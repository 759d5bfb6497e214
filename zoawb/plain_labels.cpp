#include "zoawb/plain_labels.h"

#include <array>

#include "core/bytes.h"
#include "core/sixteen.h"

namespace simulation {
namespace {

/// In a digit, but not in a blank.
constexpr std::uint8_t kDigitBit = 0x10;

/// What stands before each character of a chunk: the low 8 bits of its label.
using Values = std::array<std::uint8_t, kMostPlain>;

/// Ten times values whose products need 8 bits, or have an empty lane behind them:
/// there are products of two bytes at once, but none of single ones.
Sixteen tenTimes(Sixteen values) {
  return reinterpret_cast<Sixteen>(reinterpret_cast<EightWords>(values) * 10);
}

/// Characters of plain text that are digits, not blanks.
Lanes areDigits(Sixteen plain) {
  return reinterpret_cast<Lanes>(reinterpret_cast<SixteenSigned>(plain) > ' ');
}

/// The values of the labels whose blanks are in `blank`, from the three characters
/// before each. What is before a label must not count: a digit counts only where
/// digits alone are behind it.
Sixteen valuesOf(Sixteen hundreds, Sixteen tens, Sixteen ones) {
  const Sixteen first = hundreds & 0xF & areDigits(tens);
  const Sixteen second = (tenTimes(first) + (tens & 0xF)) & areDigits(ones);
  return tenTimes(second) + (ones & 0xF);
}

/// What is seen of all characters of a chunk.
struct Seen {
  Lanes odd = {};             ///< neither digit nor blank
  Sixteen four = {};          ///< the digit bit: four digits in a row
  Sixteen none = ~Sixteen{};  ///< no digit bit: two blanks in a row
  bool plain() const { return !hasBits(odd | (four & kDigitBit) | (~none & kDigitBit)); }
};

/// The values that stand before sixteen characters.
inline Sixteen valuesAt(const char* text, Seen& seen) {
  const Sixteen here = loadSixteen(text);
  const Sixteen ones = loadSixteen(text - 1);
  const Sixteen tens = loadSixteen(text - 2);
  const Sixteen hundreds = loadSixteen(text - 3);
  seen.odd |= ~(isDigit(here) | isEqual(here, ' '));
  seen.four |= here & ones & tens & hundreds;
  seen.none &= here | ones;
  return valuesOf(hundreds, tens, ones);
}

/// Two vectors a step: a small core, which keeps the order of its instructions, works
/// at one while it waits for the other.
bool takeValues(const char* text, std::size_t size, Values& values) {
  Seen seen;
  for (std::size_t i = 0; i < size; i += kPlainStep) {
    const Sixteen first = valuesAt(text + i, seen);
    const Sixteen second = valuesAt(text + i + 16, seen);
    store(values.data(), i, first);
    store(values.data(), i + 16, second);
  }
  return seen.plain();
}

/// Where blanks stand among eight characters, by which of them are blanks: in bits, in a
/// byte for each of the four that plain labels have at most, and their number above.
constexpr std::array<std::uint64_t, 256> placesOfBlanks() {
  std::array<std::uint64_t, 256> all = {};
  for (std::size_t blanks = 0; blanks < all.size(); ++blanks) {
    std::uint64_t count = 0;
    for (std::uint64_t place = 0; place < 8 && count < 4; ++place) {
      if ((blanks >> place & 1) != 0) all[blanks] |= 8 * place << 8 * count++;
    }
    all[blanks] |= count << 32;
  }
  return all;
}
constexpr std::array<std::uint64_t, 256> kPlaces = placesOfBlanks();

/// The blanks of eight plain characters as bits, the first one's lowest.
std::size_t blanksOf(const char* text) {
  const std::uint64_t blanks = ~(load<std::uint64_t>(text) >> 4) & 0x0101'0101'0101'0101;
  return blanks * 0x0102'0408'1020'4080 >> 56;
}

/// Puts the values of the blanks among eight characters, and up to four bytes more, to
/// `labels`; returns their number.
inline std::size_t takeEight(const char* text, const std::uint8_t* values, std::uint8_t* labels) {
  const std::uint64_t places = kPlaces[blanksOf(text)];
  const auto eight = load<std::uint64_t>(values);
  for (int blank = 0; blank < 4; ++blank) {
    labels[blank] = static_cast<std::uint8_t>(eight >> (places >> 8 * blank & 63));
  }
  return places >> 32;
}

}  // namespace

std::size_t takePlainLabels(const char* text, std::size_t size, std::uint8_t* __restrict labels) {
  Values values;
  if (!takeValues(text, size, values)) return 0;
  std::size_t count = 0;
  for (std::size_t i = 0; i < size; i += kPlainStep) {
    for (std::size_t word = i; word < i + kPlainStep; word += 8) {
      count += takeEight(text + word, values.data() + word, labels + count);
    }
  }
  return count;
}

}  // namespace simulation
