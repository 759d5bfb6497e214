// The colour chart that is the scene when no photograph is given, and the
// lights it can stand under.
#include <cstddef>
#include <cstdint>
#include <utility>

#include "scene.h"

namespace capture {
namespace {

constexpr int kColumns = 6, kRows = 4;
constexpr int kCell = 160, kFrame = 12;  // pixels of a cell, and of the frame around its patch
constexpr Rgb kFrameColor = {0.02, 0.02, 0.02};

/// The published sRGB values of the patches.
constexpr std::uint8_t kPatches[kRows * kColumns][3] = {
    {115, 82, 68},   {194, 150, 130}, {98, 122, 157}, {87, 108, 67},   {133, 128, 177},
    {103, 189, 170}, {214, 126, 44},  {80, 91, 166},  {193, 90, 99},   {94, 60, 108},
    {157, 188, 64},  {224, 163, 46},  {56, 61, 150},  {70, 148, 73},   {175, 54, 60},
    {231, 199, 31},  {187, 86, 149},  {8, 133, 161},  {243, 243, 242}, {200, 200, 200},
    {160, 160, 160}, {122, 122, 121}, {85, 85, 85},   {52, 52, 52},
};

bool insidePatch(int pixel) {
  const int at = pixel % kCell;
  return at >= kFrame && at < kCell - kFrame;
}

Rgb chartColor(int x, int y) {
  if (!insidePatch(x) || !insidePatch(y)) return kFrameColor;
  const auto& patch = kPatches[y / kCell * kColumns + x / kCell];
  return {fromSrgb(patch[0] / 255.0), fromSrgb(patch[1] / 255.0), fromSrgb(patch[2] / 255.0)};
}

}  // namespace

Scene drawChart() {
  constexpr int kWidth = kColumns * kCell, kHeight = kRows * kCell;
  std::vector<Rgb> pixels;
  pixels.reserve(std::size_t{kWidth} * kHeight);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) pixels.push_back(chartColor(x, y));
  }
  return Scene(kWidth, kHeight, std::move(pixels));
}

const std::vector<Illuminant>& illuminants() {
  static const std::vector<Illuminant> list = {
      {"D65", 0.31272, 0.32903}, {"D75", 0.29902, 0.31485},  {"D50", 0.34567, 0.35850},
      {"CWF", 0.37208, 0.37529}, {"TL84", 0.38052, 0.37713}, {"A", 0.44757, 0.40745},
  };
  return list;
}

/// Channel gains: the white point in linear sRGB at luminance 1.
Rgb lightOf(const std::string& name) {
  const auto& list = illuminants();
  const auto found = std::find_if(list.begin(), list.end(),
                                  [&](const Illuminant& light) { return name == light.name; });
  const double x = found->x / found->y, z = (1 - found->x - found->y) / found->y;
  return {3.2404542 * x - 1.5371385 - 0.4985314 * z, -0.9692660 * x + 1.8760108 + 0.0415560 * z,
          0.0556434 * x - 0.2040259 + 1.0572252 * z};
}

}  // namespace capture
