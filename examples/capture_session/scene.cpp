#include "scene.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace capture {
namespace {

struct Span {
  int first, last;
};

/// The pixels of `from`..`to` on an axis of `size` pixels; never empty.
Span pixelsOf(double from, double to, int size) {
  const auto pixel = [size](double at) {
    return static_cast<int>(std::clamp(std::floor(at * size), 0.0, size - 1.0));
  };
  const int first = pixel(from);
  return {first, std::max(first, pixel(to - 0.5 / size))};
}

}  // namespace

double fromSrgb(double encoded) {
  return encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
}

Box gridCell(int column, int row, int columns, int rows) {
  return {double(column) / columns, double(row) / rows, double(column + 1) / columns,
          double(row + 1) / rows};
}

Scene::Scene(int width, int height, std::vector<Rgb> pixels)
    : width_(width), height_(height), sums_(std::move(pixels)) {
  std::size_t at = 0;
  for (int row = 0; row < height_; ++row) {
    Rgb line;
    for (int column = 0; column < width_; ++column, ++at) {
      line = line + sums_[at];
      sums_[at] = line + sumUpTo(column, row - 1);
    }
  }
}

Rgb Scene::sumUpTo(int column, int row) const {
  if (column < 0 || row < 0) return {};
  return sums_[static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) +
               static_cast<std::size_t>(column)];
}

Rgb Scene::mean(const Box& box) const {
  const Span x = pixelsOf(box.left, box.right, width_);
  const Span y = pixelsOf(box.top, box.bottom, height_);
  const Rgb sum = sumUpTo(x.last, y.last) - sumUpTo(x.first - 1, y.last) -
                  sumUpTo(x.last, y.first - 1) + sumUpTo(x.first - 1, y.first - 1);
  // The difference of large sums may fall a hair below zero in black places.
  const Rgb mean = sum * (1.0 / (double(x.last - x.first + 1) * (y.last - y.first + 1)));
  return {std::max(mean.r, 0.0), std::max(mean.g, 0.0), std::max(mean.b, 0.0)};
}

}  // namespace capture
