// A colour in linear light, and the little arithmetic that the scene needs.
#pragma once

#include <algorithm>

namespace capture {

struct Rgb {
  double r = 0, g = 0, b = 0;
};

constexpr Rgb operator+(Rgb a, Rgb b) { return {a.r + b.r, a.g + b.g, a.b + b.b}; }
constexpr Rgb operator-(Rgb a, Rgb b) { return {a.r - b.r, a.g - b.g, a.b - b.b}; }
constexpr Rgb operator*(Rgb a, Rgb b) { return {a.r * b.r, a.g * b.g, a.b * b.b}; }
constexpr Rgb operator*(Rgb a, double factor) { return a * Rgb{factor, factor, factor}; }

constexpr double luma(Rgb c) { return 0.2126 * c.r + 0.7152 * c.g + 0.0722 * c.b; }
constexpr Rgb clipped(Rgb c) {
  return {std::min(c.r, 1.0), std::min(c.g, 1.0), std::min(c.b, 1.0)};
}

/// The linear value of an sRGB-encoded one, both 0 to 1.
double fromSrgb(double encoded);

}  // namespace capture
