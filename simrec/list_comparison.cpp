#include "simrec/list_comparison.h"

#include <algorithm>

namespace simrec {
namespace {

constexpr std::size_t kLabels = 256;

bool isLess(const Number& a, const Number& b) {
  return a.isFloat() ? a.decimal < b.decimal : a.integer < b.integer;
}

}  // namespace

ListComparison::ListComparison(const Tolerance& tolerance, bool labels)
    : tolerance_(labels ? Tolerance{} : tolerance), changes_(labels ? kLabels * kLabels : 0) {}

/// All from `first` to `last`.
void ListComparison::countDiffering(std::size_t first, std::size_t last) {
  if (difference_.differing == 0) difference_.first = first;
  difference_.differing += last - first + 1;
  difference_.last = last;
}

void ListComparison::addDifferent(const Number& a, const Number& b) {
  if (isSame(a, b)) return;  // nan
  const Number gap = distance(a, b);
  squares_ += gap.approximately() * gap.approximately();
  if (!std::isnan(gap.decimal) &&
      (!difference_.maxAbsolute || isLess(*difference_.maxAbsolute, gap))) {
    difference_.maxAbsolute = gap;
    difference_.maxAt = next_;
  }
  if (!changes_.empty()) ++changes_[a.integer * kLabels + b.integer];
  if (!isNear(a, b, gap, tolerance_)) countDiffering(next_, next_);
}

ListDifference ListComparison::end(std::string name, std::size_t sizeOfA, std::size_t sizeOfB) {
  const std::size_t common = std::min(sizeOfA, sizeOfB);
  const std::size_t longest = std::max(sizeOfA, sizeOfB);
  if (common < longest) countDiffering(common, longest - 1);
  difference_.name = std::move(name);
  difference_.a = sizeOfA;
  difference_.b = sizeOfB;
  difference_.rms = common == 0 ? 0 : std::sqrt(squares_ / static_cast<double>(common));
  return std::move(difference_);
}

std::vector<LabelChange> ListComparison::labelChanges() const {
  std::vector<LabelChange> changes;
  for (std::size_t i = 0; i < changes_.size(); ++i) {
    if (changes_[i] == 0) continue;
    changes.push_back({static_cast<std::uint8_t>(i / kLabels),
                       static_cast<std::uint8_t>(i % kLabels), changes_[i]});
  }
  std::stable_sort(changes.begin(), changes.end(),
                   [](const LabelChange& a, const LabelChange& b) { return a.count > b.count; });
  return changes;
}

}  // namespace simrec
