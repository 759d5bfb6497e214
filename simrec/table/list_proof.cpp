#include "simrec/table/list_proof.h"

#include "core/sixteen.h"

namespace simrec {
namespace {

using catalogue::Type;
using simulation::bitsOf;
using simulation::isDigit;
using simulation::isEqual;
using simulation::Lanes;
using simulation::loadSixteen;
using simulation::Sixteen;

constexpr std::size_t kStep = 16;

/// A text that is gone through from the left.
struct Rest {
  const char* at;
  const char* end;
  std::size_t numbers = 0;

  std::size_t size() const { return static_cast<std::size_t>(end - at); }
};

bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// Numbers of up to `digits` digits, one after the other, up to the end.
bool takeSlowly(Rest& rest, std::size_t digits, std::uint64_t most) {
  while (rest.at != rest.end) {
    if (*rest.at == ' ') {
      ++rest.at;
      continue;
    }
    std::uint64_t value = 0;
    const char* const begin = rest.at;
    for (; rest.at != rest.end && isDigit(*rest.at); ++rest.at) {
      if (static_cast<std::size_t>(rest.at - begin) == digits) return false;
      value = value * 10 + static_cast<std::uint64_t>(*rest.at - '0');
    }
    if (rest.at == begin || value > most) return false;
    ++rest.numbers;
  }
  return true;
}

/// Labels come in hundreds of thousands. Sixteen characters at once: behind each blank a number
/// may begin, which is told from the four characters there.
bool proveBytes(std::string_view text, std::size_t wanted) {
  Rest rest = {text.data(), text.data() + text.size()};
  Rest first = {rest.at, rest.at};
  while (first.end != rest.end && *first.end != ' ') ++first.end;
  if (!takeSlowly(first, 3, 255)) return false;
  rest.at = first.end;
  rest.numbers = first.numbers;
  constexpr std::size_t kAhead = 4;
  while (rest.size() >= kStep + kAhead) {
    // As many steps as a lane can count.
    Lanes counts = {}, odd = {};
    for (int steps = 0; steps < 255 && rest.size() >= kStep + kAhead; ++steps, rest.at += kStep) {
      const Sixteen blank = isEqual(loadSixteen(rest.at), ' ');
      const Sixteen a = loadSixteen(rest.at + 1), b = loadSixteen(rest.at + 2),
                    c = loadSixteen(rest.at + 3), d = loadSixteen(rest.at + 4);
      const Lanes begins = blank & isDigit(a);
      const Lanes beyond =
          isDigit(d) | reinterpret_cast<Lanes>(a > '2') |
          (isEqual(a, '2') & (reinterpret_cast<Lanes>(b > '5') |
                              (isEqual(b, '5') & reinterpret_cast<Lanes>(c > '5'))));
      odd |= (begins & isDigit(b) & isDigit(c) & beyond) | ~(blank | isDigit(loadSixteen(rest.at)));
      counts -= begins;
    }
    if (simulation::hasBits(odd)) return false;
    for (std::size_t i = 0; i < kStep; ++i) rest.numbers += counts[i];
  }
  // What is left of a number that was looked at.
  if (rest.at != first.end) {
    while (rest.at != rest.end && isDigit(*rest.at)) ++rest.at;
  }
  return takeSlowly(rest, 3, 255) && rest.numbers == wanted;
}

}  // namespace

bool provesList(std::string_view text, Type type, std::size_t wanted) {
  switch (type) {
    case Type::kUint8:
      return proveBytes(text, wanted);
    case Type::kUint16: {
      Rest rest = {text.data(), text.data() + text.size()};
      return takeSlowly(rest, 5, 65535) && rest.numbers == wanted;
    }
    case Type::kUint64: {
      Rest rest = {text.data(), text.data() + text.size()};
      return takeSlowly(rest, 19, ~std::uint64_t{0}) && rest.numbers == wanted;
    }
    case Type::kInt32:
    case Type::kUint32:
    case Type::kFloat:
      break;
  }
  return false;
}

}  // namespace simrec
