// Scene segmentation: a label for each place of the frame, by its colour, and
// the instances that the labels form.
#include <simulation/records.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <memory>

#include "record.h"

namespace capture {
namespace {

constexpr int kColumns = 640, kRows = 480;
constexpr int kCoarse = 4;  // the scene is segmented at a quarter of that
static_assert(kColumns * kRows == QSegImageInfo::kStatsSize);

constexpr double kDark = 0.02;

/// A balanced colour that stands for a class; label 0 is for what is too dark.
constexpr Rgb kClasses[] = {
    {0, 0, 0},       {1, 1, 1},  // neutral: walls, clouds
    {0.5, 0.8, 1.6},             // sky
    {0.7, 1.2, 0.4},             // plants
    {1.5, 0.9, 0.7},             // skin
    {2.0, 0.5, 0.5},             // red things
    {1.5, 1.1, 0.2},             // yellow things
    {1.1, 0.6, 1.4},             // purple things
};
constexpr std::size_t kLabels = std::size(kClasses);
static_assert(kLabels <= QSegImageInfo::kInstances);

std::uint8_t labelOf(Rgb color) {
  const double brightness = (color.r + color.g + color.b) / 3;
  if (brightness < kDark) return 0;
  const auto distance = [&](Rgb other) {
    const Rgb d = color * (1 / brightness) - other;
    return d.r * d.r + d.g * d.g + d.b * d.b;
  };
  const auto nearest = std::min_element(std::begin(kClasses) + 1, std::end(kClasses),
                                        [&](Rgb a, Rgb b) { return distance(a) < distance(b); });
  return static_cast<std::uint8_t>(nearest - std::begin(kClasses));
}

/// Where a label is found, in cells of the coarse grid.
struct Extent {
  int left = kColumns, top = kRows, right = 0, bottom = 0, cells = 0;

  void add(int x, int y) {
    left = std::min(left, x);
    top = std::min(top, y);
    right = std::max(right, x + 1);
    bottom = std::max(bottom, y + 1);
    ++cells;
  }
};

QSegRect rect(int left, int top, int right, int bottom) {
  const auto pixels = [](int cells) { return static_cast<std::uint32_t>(cells * kCoarse); };
  return {pixels(left), pixels(top), pixels(right - left), pixels(bottom - top)};
}

using Extents = std::array<Extent, kLabels>;

Extents drawLabels(const View& view, std::uint8_t* map) {
  constexpr int kWidth = kColumns / kCoarse, kHeight = kRows / kCoarse;
  const Rgb balance = view.whiteBalance().gains();
  Extents extents;
  for (int y = 0; y < kHeight; ++y) {
    std::uint8_t* const row = map + y * kCoarse * kColumns;
    for (int x = 0; x < kWidth; ++x) {
      const auto label = labelOf(view.mean(gridCell(x, y, kWidth, kHeight)) * balance);
      std::fill_n(row + x * kCoarse, kCoarse, label);
      extents[label].add(x, y);
    }
    for (int copy = 1; copy < kCoarse; ++copy) std::copy_n(row, kColumns, row + copy * kColumns);
  }
  return extents;
}

/// The part of the frame that a label has.
double shareOf(const Extent& extent) {
  return double(extent.cells) * kCoarse * kCoarse / (kColumns * kRows);
}

/// The parts are the upper, middle and lower third.
void describe(const View& view, std::size_t label, const Extent& extent, QSegInstInfo* instance) {
  QSegInstInfo& info = *instance;
  info.requestId = view.request();
  info.ID = static_cast<std::int32_t>(label);
  info.roi = rect(extent.left, extent.top, extent.right, extent.bottom);
  info.nConf = static_cast<std::uint32_t>(shareOf(extent) * 10000);
  info.nSegIdx = info.eObjectType = static_cast<std::uint16_t>(label);
  info.eTrackStatus = view.index() == 0 ? 0 : 1;
  const auto third = [&](int i) { return extent.top + (extent.bottom - extent.top) * i / 3; };
  for (int i = 0; i < 3; ++i) {
    info.partROIs[i] = rect(extent.left, third(i), extent.right, third(i + 1));
  }
}

Bytes qsegImage(const View& view) {
  auto image = std::make_unique<QSegImageInfo>();
  image->requestId = view.request();
  image->notRecorded = view.index();
  image->isQSegInfoValid = 1;
  image->horizontalRegionCount = kColumns;
  image->verticalRegionCount = kRows;
  const Extents extents = drawLabels(view, image->qsegStatsInfo);
  for (std::size_t label = 0; label < kLabels; ++label) {
    if (extents[label].cells == 0) continue;
    describe(view, label, extents[label], &image->qsegInstInfos[image->qsegInstCount++]);
  }
  const auto largest =
      std::max_element(extents.begin(), extents.end(),
                       [](const Extent& a, const Extent& b) { return a.cells < b.cells; });
  image->qsegSceneClass = static_cast<std::uint16_t>(largest - extents.begin());
  image->qsegSceneClassConf = asFloat(shareOf(*largest));
  const auto shift = [](double shake, int size) { return int(std::lround(size * (0.02 + shake))); };
  image->qsegCroppedWindowInfo =
      rect(shift(view.shakeX(), kColumns / kCoarse), shift(view.shakeY(), kRows / kCoarse),
           kColumns / kCoarse, kRows / kCoarse);
  return bytesOf(*image);
}

Bytes replayedQseg(const Bytes& recorded, const Bytes& live) {
  Bytes result = keepLive<offsetof(QSegImageInfo, notRecorded), sizeof QSegImageInfo::notRecorded>(
      recorded, live);
  passThroughText(&result, offsetof(QSegImageInfo, qsegSceneClassConf), 1, kXmlFormat);
  return result;
}

}  // namespace

std::vector<Record> qsegRecords() {
  return {
      {"QsegImageData",
       {{"AWB_QsegImageData"}},
       qsegImage,
       run<&Simulation::SimulationForQsegImageData>,
       {replayedQseg, "field 2, which stays live"},
       {nullptr, kReplaySuccess},
       Record::kRequest,
       kLarge},
  };
}

}  // namespace capture
