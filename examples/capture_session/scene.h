// What stands in front of the cameras: an image in linear light, made from a
// photograph or drawn as a colour chart. Not changed once made.
#pragma once

#include <string>
#include <vector>

#include "rgb.h"

namespace capture {

/// A rectangle in fractions of the frame: 0,0 is the top left, 1,1 the bottom right corner.
struct Box {
  double left = 0, top = 0, right = 1, bottom = 1;
};

/// Cell `column`,`row` of a grid over the whole frame.
Box gridCell(int column, int row, int columns, int rows);

/// Larger photographs are reduced to this while they are read.
inline constexpr int kMaxSceneWidth = 1600, kMaxSceneHeight = 1200;

class Scene {
 public:
  Scene() = default;

  /// `pixels` are width x height colours, row after row.
  Scene(int width, int height, std::vector<Rgb> pixels);

  int width() const { return width_; }
  int height() const { return height_; }

  /// The mean colour of a box, in whole pixels but at least one: the same time
  /// for every size. What reaches out of the image is left out.
  Rgb mean(const Box& box) const;

 private:
  Rgb sumUpTo(int column, int row) const;

  int width_ = 0, height_ = 0;
  std::vector<Rgb> sums_;  // of everything above and left, the pixel included
};

/// The classic chart of 24 patches under D65.
Scene drawChart();

/// A light on the scene, as a factor for what it looks like under D65.
struct Illuminant {
  const char* name;
  double x, y;  // chromaticity
};

const std::vector<Illuminant>& illuminants();

/// The factor of the illuminant of that name, which must be in the list.
Rgb lightOf(const std::string& name);

}  // namespace capture
