#include "simrec/report/plane.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace simrec::report {
namespace {

/// Places to a side of the picture at most.
constexpr std::size_t kMostPlaces = 320;

/// Pixels that a width is judged by.
constexpr std::size_t kSamples = 5000;

/// Frames are not more oblong than this.
constexpr std::size_t kMostOblong = 4;

int pixelAt(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

/// How much the pixels differ from those above them, on average.
double unlikeness(std::string_view plane, std::size_t width) {
  const std::size_t pixels = plane.size() - width;
  const std::size_t step = std::max<std::size_t>(1, pixels / kSamples) | 1;
  std::uint64_t sum = 0, count = 0;
  for (std::size_t at = 0; at < pixels; at += step, ++count) {
    sum += static_cast<std::uint64_t>(std::abs(pixelAt(plane, at) - pixelAt(plane, at + width)));
  }
  return count > 0 ? static_cast<double>(sum) / static_cast<double>(count) : 0;
}

/// From the usual shape of a frame, 4:3.
double oddity(std::size_t width, std::size_t height) {
  return std::abs(std::log(static_cast<double>(width) / static_cast<double>(height) * 3 / 4));
}

std::size_t guessedWidth(std::string_view plane) {
  const std::size_t size = plane.size();
  std::size_t best = 0;
  double least = std::numeric_limits<double>::infinity();
  const auto narrowest = static_cast<std::size_t>(std::sqrt(size / kMostOblong));
  for (std::size_t width = std::max<std::size_t>(2, narrowest); width * width <= size * kMostOblong;
       ++width) {
    if (size % width != 0 || width % 2 != 0 || width >= size) continue;
    const double score = unlikeness(plane, width);
    const bool alike = score == least && oddity(width, size / width) < oddity(best, size / best);
    if (score < least || alike) {
      best = width;
      least = score;
    }
  }
  return best;
}

Field meansOf(std::string_view bytes, std::size_t width, std::size_t height, std::size_t step) {
  Field field = {(width + step - 1) / step, (height + step - 1) / step, {}};
  field.values.reserve(field.columns * field.rows);
  for (std::size_t top = 0; top < height; top += step) {
    for (std::size_t left = 0; left < width; left += step) {
      const std::size_t bottom = std::min(top + step, height), right = std::min(left + step, width);
      std::uint64_t sum = 0;
      for (std::size_t y = top; y < bottom; ++y) {
        for (std::size_t x = left; x < right; ++x) {
          sum += static_cast<std::uint64_t>(pixelAt(bytes, y * width + x));
        }
      }
      const auto count = static_cast<double>((bottom - top) * (right - left));
      field.values.push_back(std::round(static_cast<double>(sum) / count));
    }
  }
  return field;
}

}  // namespace

Plane planeOf(std::string_view bytes, std::size_t width) {
  const bool hasC = bytes.size() % 3 == 0;
  const std::string_view y = hasC ? bytes.substr(0, bytes.size() / 3 * 2) : bytes;
  Plane plane;
  plane.width = width != 0 ? width : guessedWidth(y);
  if (plane.width == 0 || plane.width > y.size()) return {};
  plane.height = y.size() / plane.width;
  plane.step = (std::max(plane.width, plane.height) + kMostPlaces - 1) / kMostPlaces;
  plane.means = meansOf(y, plane.width, plane.height, plane.step);
  return plane;
}

}  // namespace simrec::report
