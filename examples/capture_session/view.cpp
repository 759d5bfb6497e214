#include "view.h"

#include <cmath>
#include <cstddef>

namespace capture {
namespace {

struct Lens {
  double field;       // part of the scene's width and height that it shows
  double vignetting;  // loss in the corners
  double brightness;
};

constexpr Lens kLenses[kMaxCameras] = {
    {0.80, 0.25, 1.00}, {0.95, 0.40, 0.80}, {0.40, 0.15, 0.60},
    {0.65, 0.20, 0.90}, {0.30, 0.10, 0.50}, {0.90, 0.30, 1.10},
};

constexpr Rgb kSensorResponse = {0.55, 1.0, 0.65};  // to the three primaries
constexpr double kTargetLuma = 0.18;                // what exposure control aims at
constexpr double kMinGain = 1.0 / 64, kMaxGain = 64;

/// Where exposure control has got to: it goes up and down slowly around its aim.
double exposureGain(const Scene& scene, Rgb light, unsigned index) {
  const double aim = kTargetLuma / std::max(luma(scene.mean(Box()) * light), 1e-6);
  return std::clamp(aim, kMinGain, kMaxGain) * (1 + 0.25 * std::sin(index * 0.11));
}

constexpr Rgb kFloor = {1e-6, 1e-6, 1e-6};  // a black frame counts as grey

}  // namespace

Chromaticity chromaticityOf(Rgb color) {
  const Rgb c = color + kFloor;
  const double x = 0.4124564 * c.r + 0.3575761 * c.g + 0.1804375 * c.b;
  const double y = 0.2126729 * c.r + 0.7151522 * c.g + 0.0721750 * c.b;
  const double z = 0.0193339 * c.r + 0.1191920 * c.g + 0.9503041 * c.b;
  return {x / (x + y + z), y / (x + y + z)};
}

/// McCamy's approximation.
double temperatureOf(Chromaticity color) {
  const double n = (color.x - 0.3320) / (0.1858 - color.y);
  return std::clamp(((449 * n + 3525) * n + 6823.3) * n + 5520.33, 1500.0, 15000.0);
}

View::View(const Scene& scene, Rgb light, unsigned index, unsigned camera)
    : scene_(scene),
      light_(light),
      index_(index),
      camera_(camera),
      shakeX_(0.010 * std::sin(index * 0.7)),
      shakeY_(0.008 * std::cos(index * 0.9)),
      gain_(exposureGain(scene, light, index)) {}

Rgb View::mean(const Box& box) const {
  const double field = kLenses[camera_].field;
  const auto sceneX = [&](double u) { return 0.5 + shakeX_ + (u - 0.5) * field; };
  const auto sceneY = [&](double v) { return 0.5 + shakeY_ + (v - 0.5) * field; };
  const Rgb color =
      scene_.mean({sceneX(box.left), sceneY(box.top), sceneX(box.right), sceneY(box.bottom)});
  return onSensor(color, (box.left + box.right) / 2, (box.top + box.bottom) / 2);
}

double View::transmission(double u, double v) const {
  const Lens& lens = kLenses[camera_];
  const double fromCentre = 2 * ((u - 0.5) * (u - 0.5) + (v - 0.5) * (v - 0.5));
  return lens.brightness * (1 - lens.vignetting * fromCentre);
}

Rgb View::grey() const { return light_ * kSensorResponse; }

Rgb View::onSensor(Rgb sceneColor, double u, double v) const {
  return clipped(sceneColor * grey() * (gain_ * transmission(u, v)));
}

std::vector<Rgb> View::grid(int columns, int rows) const {
  std::vector<Rgb> cells;
  cells.reserve(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      cells.push_back(mean(gridCell(column, row, columns, rows)));
    }
  }
  return cells;
}

WhiteBalance View::whiteBalance() const {
  const Rgb raw = mean(Box()) + kFloor * kSensorResponse;
  const Rgb seen = {raw.r / kSensorResponse.r, raw.g, raw.b / kSensorResponse.b};
  return {raw.g / raw.r, raw.g / raw.b, temperatureOf(chromaticityOf(seen))};
}

std::uint64_t View::frameBuffer() const {
  static const char pool[16][kMaxCameras] = {};
  return reinterpret_cast<std::uintptr_t>(&pool[index_ % 16][camera_]);
}

}  // namespace capture
