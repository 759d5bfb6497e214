#include "simrec/table/list_proof.h"

#include "core/listed_numbers.h"

namespace simrec {
namespace {

using catalogue::Type;

constexpr int kStep = simulation::kListedStep;

/// The longest numbers that may be too large, and the largest one. Shorter ones never are.
struct Limit {
  int digits;
  std::uint64_t most;
};

bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// The number of a few digits that ends in front of `end`.
std::uint64_t numberBefore(const char* end, int digits) {
  std::uint64_t value = 0;
  for (const char* at = end - digits; at != end; ++at) {
    value = value * 10 + static_cast<std::uint64_t>(*at - '0');
  }
  return value;
}

/// The number of ones, of which no two are side by side.
std::size_t countOf(std::uint64_t ones) {
  constexpr std::uint64_t kPairs = 0x5555'5555'5555'5555, kFours = 0x3333'3333'3333'3333,
                          kBytes = 0x0F0F'0F0F'0F0F'0F0F, kSum = 0x0101'0101'0101'0101;
  ones = (ones | ones >> 1) & kPairs;
  ones = (ones & kFours) + (ones >> 2 & kFours);
  return (((ones + (ones >> 4)) & kBytes) * kSum) >> 56;
}

/// Bits of characters: the last 64 of those before, then 64 more.
__extension__ using Window = unsigned __int128;

/// The ends of runs of so many ones.
std::uint64_t endsOfRuns(Window ones, int length) {
  for (int known = 1; known < length;) {
    const int more = known < length - known ? known : length - known;
    ones &= ones << more;
    known += more;
  }
  return static_cast<std::uint64_t>(ones >> kStep);
}

class Proof {
 public:
  Proof(std::string_view text, Limit limit)
      : begin_(text.data()), at_(begin_), end_(begin_ + text.size()), limit_(limit) {}

  const char* end(std::size_t wanted) {
    while (end_ - at_ >= kStep && isSound_ && takeStep()) {
    }
    takeRest();
    return isSound_ && numbers_ == wanted ? at_ : nullptr;
  }

 private:
  /// False, and nothing taken, where other characters are in the way.
  bool takeStep() {
    std::uint64_t blanks = 0;
    if (!simulation::findBlanks(at_, blanks)) return false;
    const std::uint64_t digits = ~blanks;
    const Window ones = Window{digits} << kStep | digitsBefore_;
    numbers_ += countOf(digits & ~static_cast<std::uint64_t>(ones >> (kStep - 1)));
    std::uint64_t longest = endsOfRuns(ones, limit_.digits);
    for (; longest != 0 && isSound_; longest &= longest - 1) {
      check(at_ + __builtin_ctzll(longest) + 1);
    }
    digitsBefore_ = digits;
    at_ += kStep;
    return true;
  }

  /// Of a run that is longer still, too: its first digits, then those from the second on.
  void check(const char* end) {
    const char* const begin = end - limit_.digits;
    const bool longer = begin != begin_ && isDigit(begin[-1]);
    isSound_ = !longer && limit_.most != 0 && numberBefore(end, limit_.digits) <= limit_.most;
  }

  void takeRest() {
    // A number that began before is taken as a whole.
    if (at_ != begin_ && isDigit(at_[-1])) --numbers_;
    while (at_ != begin_ && isDigit(at_[-1])) --at_;
    while (isSound_) {
      while (at_ != end_ && *at_ == ' ') ++at_;
      const char* const begin = at_;
      while (at_ != end_ && isDigit(*at_)) ++at_;
      if (at_ == begin) return;
      ++numbers_;
      if (at_ - begin >= limit_.digits) {
        isSound_ = at_ - begin == limit_.digits;
        if (isSound_) check(at_);
      }
    }
  }

  const char* begin_;
  const char* at_;
  const char* end_;
  Limit limit_;
  std::uint64_t digitsBefore_ = 0;
  std::size_t numbers_ = 0;
  bool isSound_ = true;
};

}  // namespace

const char* endOfSoundList(std::string_view text, Type type, std::size_t wanted) {
  switch (type) {
    case Type::kUint8:
      return Proof(text, {3, 255}).end(wanted);
    case Type::kUint16:
      return Proof(text, {5, 65535}).end(wanted);
    case Type::kUint64:
      return Proof(text, {20, 0}).end(wanted);  // more than fits into the check
    case Type::kInt32:
    case Type::kUint32:
    case Type::kFloat:
      break;
  }
  return nullptr;
}

}  // namespace simrec
