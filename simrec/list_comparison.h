// Compares two lists of numbers, a piece of both at a time.
#pragma once

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "simrec/comparison.h"
#include "simrec/number_difference.h"

namespace simrec {

class ListComparison {
 public:
  /// `labels`: the numbers are labels, 0 to 255, and no quantities.
  ListComparison(const Tolerance& tolerance, bool labels);

  /// The next numbers of both.
  template <typename Item>
  void add(const Item* a, const Item* b, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      if (a[i] != b[i]) addDifferent(numberOf(a[i]), numberOf(b[i]));
      ++next_;
    }
  }

  /// What differs, of lists of these sizes.
  ListDifference end(std::string name, std::size_t sizeOfA, std::size_t sizeOfB);

  /// The most frequent changes first.
  std::vector<LabelChange> labelChanges() const;

 private:
  void addDifferent(const Number& a, const Number& b);
  void countDiffering(std::size_t first, std::size_t last);

  Tolerance tolerance_;
  std::vector<std::uint64_t> changes_;  ///< of labels: from * 256 + to
  ListDifference difference_;
  double squares_ = 0;
  std::size_t next_ = 0;
};

}  // namespace simrec
