// The labels of a segmentation. No state.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "simrec/value.h"

namespace simrec::report {

struct LabelMap {
  std::size_t columns = 0, rows = 0;
  bool shapeIsTold = true;  ///< by the file; else it is the usual one, as far as the labels go
  std::vector<std::uint8_t> labels;
  std::array<std::uint64_t, 256> counts = {};
  std::uint64_t places = 0;  ///< of the frame, some of which may have no label

  double shareOf(std::size_t label) const;  ///< of the frame
  bool isFlat() const;                      ///< one label alone

  std::string png() const;

  /// Every so manieth label of every so manieth row, with no more columns than these.
  LabelMap reduced(std::size_t mostColumns) const;

  /// "4 of 8 places have no label"; empty: each has one.
  std::string wordsForMissing() const;

  /// What there is to say of it: "7 labels; the most frequent one is 3 with 41 % of the frame."
  std::string sentence() const;
};

/// None where the record has no labels.
std::optional<LabelMap> labelMapOf(const Values& values);

}  // namespace simrec::report
