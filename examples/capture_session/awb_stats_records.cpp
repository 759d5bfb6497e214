// The Bayer-grid statistics: sums over regions of the frame, as the image signal
// processor would count them.
#include <simulation/records.h>

#include <algorithm>
#include <iterator>
#include <memory>

#include "isp_config.h"
#include "record.h"

namespace capture {
namespace {

constexpr std::size_t kHeaderSize = offsetof(BayerGridOutput, regions);

/// Fills in a region of `samples` of each channel; in place, so that the gap
/// behind it stays zero. What is left of the signal in the dark grows with gain.
void measure(Rgb color, double gain, std::uint16_t samples, BGRegionStats* region) {
  const auto sum = [&](double value) {
    return static_cast<std::uint64_t>((value * 16383 + 0.5 * gain) * samples);
  };
  region->RSum = sum(color.r);
  region->BSum = sum(color.b);
  region->GRorGSum = region->GBSum = sum(color.g);
  region->YSum = sum(luma(color));
  region->RCount = region->BCount = region->YCount = samples;
  region->GRorGCount = region->GBCount = samples;
}

/// The second block of a pair tells of the clipped samples.
void measure(Rgb color, double gain, std::uint16_t samples, BGRegionPair* pair) {
  const bool clipped = std::max({color.r, color.g, color.b}) > 0.97;
  measure(color, gain, samples, &pair->first);
  measure(color, gain, clipped ? samples : std::uint16_t{0}, &pair->second);
}

Bytes statistics(const View& view, const Grid& grid, bool paired) {
  auto stats = std::make_unique<BayerGridOutput>();
  const std::vector<Rgb> cells = view.grid(int(grid.columns), int(grid.rows));
  stats->flags = BayerGridOutput::kUsesY | (paired ? BayerGridOutput::kHasSatInfo : 0);
  stats->numROIs = static_cast<std::uint32_t>(cells.size());
  stats->horizontal_num = grid.columns;
  stats->vertical_num = grid.rows;
  std::fill_n(stats->channelGainThreshold, 4, 16000 + view.request());
  stats->BLStretchFactor = asFloat(16383.0 / (16383 - 1024));
  const auto samples =
      static_cast<std::uint16_t>(kSensorWidth / grid.columns * (kSensorHeight / grid.rows) / 4);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (paired) {
      measure(cells[i], view.gain(), samples, &stats->pairs[i]);
    } else {
      measure(cells[i], view.gain(), samples, &stats->regions[i]);
    }
  }
  Bytes bytes(kHeaderSize + cells.size() * (paired ? sizeof(BGRegionPair) : sizeof(BGRegionStats)));
  std::memcpy(bytes.data(), stats.get(), bytes.size());
  return bytes;
}

// --- The parsed statistics of both streams

constexpr std::size_t kPreviewSize =
    kHeaderSize + std::size_t{kPreviewGrid.columns} * kPreviewGrid.rows * sizeof(BGRegionStats);

Bytes parsedStats(const View& view) {
  Bytes both = statistics(view, kPreviewGrid, /*paired=*/false);
  const Bytes snapshot = statistics(view, kSnapshotGrid, /*paired=*/true);
  both.insert(both.end(), snapshot.begin(), snapshot.end());
  return both;
}

void runParsedStats(const Call& call) {
  call.simulation.SimulationForAWBParsedStatsOutput(call.info, call.data.data(), call.request,
                                                    call.camera, "preview");
  call.simulation.SimulationForAWBParsedStatsOutput(call.info, &call.data[kPreviewSize],
                                                    call.request, call.camera, "snapshot");
}

/// The second block of a pair gets the first of the pair after it, the last one zeros.
Bytes replayedParsedStats(const Bytes& recorded, const Bytes& live) {
  Bytes result = recorded;
  std::copy_n(live.begin(), kHeaderSize, result.begin());
  std::copy_n(&live[kPreviewSize], kHeaderSize, &result[kPreviewSize]);
  constexpr std::size_t kPair = sizeof(BGRegionPair);
  for (std::size_t at = kPreviewSize + kHeaderSize; at < result.size(); at += kPair) {
    const auto second = result.begin() + std::ptrdiff_t(at + offsetof(BGRegionPair, second));
    if (at + kPair < result.size()) {
      std::copy_n(&recorded[at + kPair], sizeof(BGRegionStats), second);
    } else {
      std::fill_n(second, sizeof(BGRegionStats), std::uint8_t{0});
    }
  }
  return result;
}

// --- The statistics and their configuration for white balance after the capture

Bytes offlineStats(const View& view) {
  Bytes both = bytesOf(ispStatsConfig(view, kSnapshotGrid));
  const Bytes stats = statistics(view, kSnapshotGrid, /*paired=*/false);
  both.insert(both.end(), stats.begin(), stats.end());
  return both;
}

void runOfflineStats(const Call& call) {
  call.simulation.SimulationForOfflineAWBBGStats(call.info, &call.data[sizeof(IspStatsConfig)],
                                                 call.data.data(), call.request, call.camera);
}

}  // namespace

std::vector<Record> awbStatsRecords() {
  return {
      {"ParsedStatsOutput",
       {{"AWB_ParsedAWBStatsOutput", 0, "preview"}, {"AWB_ParsedAWBStatsOutput", 0, "snapshot"}},
       parsedStats,
       runParsedStats,
       {replayedParsedStats, "the headers, which stay live, and second blocks: the next region"},
       {nullptr, kReplaySuccess},
       Record::kRequest,
       kLarge},
      {"OfflineAWBBGStats",
       {{"OfflineAWB_ParsedAWBStatsOutput"}, {"OfflineAWB_ISPAWBBGStatsConfig"}},
       offlineStats,
       runOfflineStats,
       {keepLive<sizeof(IspStatsConfig), kHeaderSize>, "the header, which stays live"},
       {nullptr, kReplaySuccess},
       Record::kFirstOfBurst,
       kLarge},
  };
}

}  // namespace capture
