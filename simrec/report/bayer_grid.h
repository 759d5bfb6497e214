// Bayer-grid statistics as maps. No state.
#pragma once

#include <string>

#include "simrec/record.h"
#include "simrec/report/field.h"

namespace simrec::report {

/// Every map has a value for each region; none where nothing was counted.
struct BayerGrid {
  std::size_t columns = 0, rows = 0;  ///< 0: the file does not tell
  std::size_t regions = 0;
  Field level;     ///< mean of all samples
  Field redness;   ///< R/G
  Field blueness;  ///< B/G
  /// Samples that no sum has, as a part of the most that a region has, where the form tells of
  /// saturation; else without values.
  Field left;
  Field red, green, blue;                    ///< mean of the channel's samples
  double meanRedness = 0, meanBlueness = 0;  ///< of all samples
};

BayerGrid bayerGridOf(const Values& values);

}  // namespace simrec::report
