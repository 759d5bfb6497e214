// Lens-shading gains: maps, and what is lost towards the corners. No state.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "simrec/report/field.h"

namespace simrec::report {

/// A channel's gains.
struct ShadingChannel {
  const char* member;  ///< "rGain"
  const char* name;    ///< "R"
  Field gains;         ///< not drawable where the file has too few of them
  double center = 0;
  std::array<double, 4> corners = {};  ///< top left, top right, bottom left, bottom right
  /// Along the diagonal from the top left to the bottom right, relative to the centre.
  std::vector<double> diagonal;

  double meanCorner() const;
  /// The part of the light that the corners lose, if the gains make up for it.
  double lost() const { return 1 - center / meanCorner(); }
};

/// Of the channels that the record has.
std::vector<ShadingChannel> shadingOf(const Values& values);

}  // namespace simrec::report
