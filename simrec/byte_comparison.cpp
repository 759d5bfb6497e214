#include "simrec/byte_comparison.h"

#include <algorithm>
#include <utility>

namespace simrec {
namespace {

/// More of them are only counted.
constexpr std::size_t kMostRanges = 1000;

}  // namespace

void ByteComparison::add(std::string_view a, std::string_view b) {
  if (a == b) {
    close(next_);
  } else {
    for (std::size_t i = 0; i < a.size(); ++i) a[i] == b[i] ? close(next_ + i) : open(next_ + i);
  }
  next_ += a.size();
}

ByteDifference ByteComparison::end(std::uint64_t sizeOfA, std::uint64_t sizeOfB) {
  const std::uint64_t longest = std::max(sizeOfA, sizeOfB);
  if (sizeOfA != sizeOfB) open(std::min(sizeOfA, sizeOfB));
  close(longest);
  return std::move(difference_);
}

void ByteComparison::open(std::uint64_t begin) {
  if (!open_) begin_ = begin;
  open_ = true;
}

void ByteComparison::close(std::uint64_t end) {
  if (!open_) return;
  open_ = false;
  difference_.bytes += end - begin_;
  ++difference_.rangeCount;
  if (difference_.ranges.size() < kMostRanges) difference_.ranges.push_back({begin_, end});
}

}  // namespace simrec
