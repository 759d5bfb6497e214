// ACB: the image that it sees, and how the device is held.
#include <simulation/records.h>

#include <algorithm>
#include <cmath>

#include "record.h"

namespace capture {
namespace {

constexpr int kWidth = 1920, kHeight = 1080;
constexpr int kBlock = 8;  // pixels, the side of a square of one colour
constexpr std::size_t kYSize = std::size_t{kWidth} * kHeight, kCSize = kYSize / 2;
static_assert(kWidth % kBlock == 0 && kHeight % kBlock == 0);

struct Yuv {
  std::uint8_t y, u, v;
};

/// BT.709, full range.
Yuv yuvOf(Rgb color) {
  const auto encoded = [](double value) { return std::pow(std::min(value, 1.0), 1 / 2.2); };
  const Rgb c = {encoded(color.r), encoded(color.g), encoded(color.b)};
  const double y = luma(c);
  const auto byte = [](double value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
  };
  return {byte(y), byte(0.5 + (c.b - y) / 1.8556), byte(0.5 + (c.r - y) / 1.5748)};
}

/// NV12, the planes as ACB gets them. The first pixels hold the request's id, as
/// sensors embed it.
Bytes image(const View& view) {
  const Rgb balance = view.whiteBalance().gains();
  const std::vector<Rgb> cells = view.grid(kWidth / kBlock, kHeight / kBlock);
  Bytes planes(kYSize + kCSize);
  std::uint8_t *y = planes.data(), *c = y + kYSize;
  auto cell = cells.begin();
  for (int row = 0; row < kHeight; row += kBlock, y += kBlock * kWidth, c += kBlock / 2 * kWidth) {
    for (int column = 0; column < kWidth; column += kBlock, ++cell) {
      const Yuv color = yuvOf(*cell * balance);
      std::fill_n(y + column, kBlock, color.y);
      for (int i = 0; i < kBlock; i += 2) {
        c[column + i] = color.u;
        c[column + i + 1] = color.v;
      }
    }
    for (int i = 1; i < kBlock; ++i) std::copy_n(y, kWidth, y + i * kWidth);
    for (int i = 1; i < kBlock / 2; ++i) std::copy_n(c, kWidth, c + i * kWidth);
  }
  const std::uint32_t request = view.request();
  std::memcpy(planes.data(), &request, sizeof request);
  return planes;
}

void runImage(const Call& call) {
  AcbImage planes = {};
  planes.y = {call.data.data(), {}, kYSize};
  planes.c = {call.data.data() + kYSize, {}, kCSize};
  call.simulation.SimulationForACB(call.info, &planes, call.request, call.camera);
}

/// The hands keep turning the device.
Bytes orientation(const View& view) {
  return bytesOf(AcbDeviceOrientation{view.request(), static_cast<int>(view.index() % 12) * 30});
}

}  // namespace

std::vector<Record> acbRecords() {
  return {
      {"ACB", {{"ACB_acb"}}, image, runImage, {}, {}, Record::kLastOfBurst, kLarge},
      {"ACBdeviceOri",
       {{"ACB_acb_orientation"}},
       orientation,
       run<&Simulation::SimulationForACBdeviceOri>,
       {keepLive<0, sizeof AcbDeviceOrientation::unread>, "the first word, which stays live"},
       {},
       Record::kLastOfBurst},
  };
}

}  // namespace capture
