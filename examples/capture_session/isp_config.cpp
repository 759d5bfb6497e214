#include "isp_config.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

#include "record.h"

namespace capture {

IspStatsConfig ispStatsConfig(const View& view, const Grid& grid) {
  IspStatsConfig config = {};
  config.grid = grid;
  config.width = kSensorWidth;
  config.height = kSensorHeight;
  config.regionWidth = kSensorWidth / grid.columns;
  config.regionHeight = kSensorHeight / grid.rows;
  std::fill(std::begin(config.saturation), std::end(config.saturation), 16000);
  std::fill(std::begin(config.blackLevel), std::end(config.blackLevel), 1024);
  const WhiteBalance balance = view.whiteBalance();
  const double gains[4] = {balance.redGain, 1, 1, balance.blueGain};
  std::transform(gains, gains + 4, config.channelGain, asFloat);
  config.request = view.request();
  config.gain = asFloat(view.gain());
  std::vector<double> lumas;
  for (const Rgb& cell : view.grid(40, 30)) lumas.push_back(luma(cell));
  std::sort(lumas.begin(), lumas.end());
  for (std::size_t i = 0; i < 10; ++i) config.lumaDecile[i] = asFloat(lumas[lumas.size() * i / 10]);
  return config;
}

}  // namespace capture
