// Numbers in rows and columns: what a picture shows, and what there is to say of them. No state.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "simrec/report/png.h"
#include "simrec/value.h"

namespace simrec::report {

struct Field {
  std::size_t columns = 0, rows = 0;
  std::vector<double> values;  ///< row by row; what is not finite is no value

  bool isDrawable() const { return columns > 0 && columns * rows == values.size(); }
};

/// Of the values that are some.
struct Extremes {
  double low = 0, high = 0, mean = 0;
  std::size_t lowAt = 0, highAt = 0;  ///< the first ones
  std::size_t count = 0;

  bool isFlat() const { return !(low < high); }
};
Extremes extremesOf(const std::vector<double>& values);

/// What the ends of a palette stand for.
struct Range {
  double low, high;

  /// Whose middle is 0.
  static Range around(double magnitude) { return {-magnitude, magnitude}; }
};

/// Each value by its colour.
std::vector<Color> colorsOf(const Field& field, const Range& range, const Palette& palette);

/// The same as a PNG file.
std::string pngOf(const Field& field, const Range& range, const Palette& palette);

/// The list's numbers, near enough for a picture.
std::vector<double> valuesOf(const NumberList& list);

/// The integer of that name; 0 where there is none.
std::uint64_t integerOf(const Values& values, std::string_view name);

/// `a[i] - b[i]`, as far as both go.
std::vector<double> differenceOf(const std::vector<double>& a, const std::vector<double>& b);

/// Four significant digits, or more of a large number; "none" for what is none.
std::string rounded(double value);

/// All of them so, commas between.
std::string tokensOf(const std::vector<double>& values);

}  // namespace simrec::report
