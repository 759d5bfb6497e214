// How the image signal processor is set up to count the Bayer-grid statistics.
// The layout is this program's own, but for the size.
#pragma once

#include <cstdint>

#include "view.h"

namespace capture {

inline constexpr std::uint32_t kSensorWidth = 4032, kSensorHeight = 3024;

struct Grid {
  std::uint32_t columns, rows;
};

/// The grids of the streams.
inline constexpr Grid kPreviewGrid = {36, 27}, kSnapshotGrid = {72, 54};

struct IspStatsConfig {
  Grid grid;
  std::uint32_t left, top, width, height;  // sensor pixels
  std::uint32_t regionWidth, regionHeight;
  std::uint32_t saturation[4];  // R, Gr, Gb, B, in counts of 14 bits
  std::uint32_t blackLevel[4];
  float channelGain[4];
  std::uint32_t request;
  float gain;
  float lumaDecile[10];
  std::uint32_t reserved[4];
};
static_assert(sizeof(IspStatsConfig) == 144);

IspStatsConfig ispStatsConfig(const View& view, const Grid& grid);

}  // namespace capture
