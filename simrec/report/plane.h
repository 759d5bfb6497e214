// The Y plane of an ACB file, made small enough for a page. No state.
#pragma once

#include <cstddef>
#include <string_view>

#include "simrec/report/field.h"

namespace simrec::report {

struct Plane {
  std::size_t width = 0, height = 0;  ///< pixels of the whole plane; 0: no shape was found
  std::size_t step = 1;               ///< pixels to each side of a place of `means`
  Field means;                        ///< of the pixels of each place, to the nearest number
};

/// `width` 0: the one, of those that the size allows, at which each row looks most like the row
/// above it. What follows the Y plane (C, half its size) is left out; a file whose size does not
/// allow for that is taken as Y alone.
Plane planeOf(std::string_view bytes, std::size_t width);

}  // namespace simrec::report
