// The frame that graphs are drawn in: round numbers along its axes, and what these stand for.
#pragma once

#include <string>
#include <vector>

#include "simrec/json.h"
#include "simrec/report/field.h"

namespace simrec::report {

/// A number beside an axis.
struct Tick {
  double value;
  std::string text;
};

/// Two to six numbers of the range, 1, 2 or 5 times a power of ten apart. The range is not empty.
std::vector<Tick> roundTicks(const Range& range);

struct Axis {
  std::string title;
  Range range;
  double length;  ///< in units of the drawing, which are about as large as a screen's pixels
  std::vector<Tick> ticks = roundTicks(range);

  /// How far from the axis' low end.
  double at(double value) const { return length * (value - range.low) / (range.high - range.low); }
};

/// What axes.html shows. The origin of the drawing is the frame's top left corner; `right` is what
/// it needs of room beside the frame.
Json axesOf(const Axis& across, const Axis& up, double right = 12);

}  // namespace simrec::report
