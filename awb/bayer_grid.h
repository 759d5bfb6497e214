// What the dump and the readback of Bayer-grid statistics share: the working
// copy and the table of a region's fields. A working copy belongs to one call.
#pragma once

#include <simulation/records.h>

#include <array>
#include <cstdint>
#include <memory>

namespace simulation {

/// The library's own form of the statistics: regions are never paired.
struct SimulationAWBBGStats {
  std::uint32_t flags;  ///< BayerGridOutput::kUsesY and kHasSatInfo only
  std::uint32_t numROIs;
  std::uint32_t horizontal_num;
  std::uint32_t vertical_num;
  std::uint32_t channelGainThreshold[4];
  float BLStretchFactor;

  /// The last one stays zero: it follows the last region into a pair.
  BGRegionStats regions[BayerGridOutput::kMaxRegions + 1];
};
static_assert(offsetof(SimulationAWBBGStats, regions) == offsetof(BayerGridOutput, regions),
              "the headers are copied as one");

struct FreeWorkingCopy {
  void operator()(SimulationAWBBGStats* copy) const;
};
using WorkingCopy = std::unique_ptr<SimulationAWBBGStats, FreeWorkingCopy>;

/// A working copy of zeros, accounted for by the pipeline. Null when there is no
/// memory.
WorkingCopy newWorkingCopy();

/// One field of a region: the element that lists it for all regions.
struct RegionField {
  const char* name;
  std::size_t offset;  ///< in BGRegionStats
  std::size_t width;   ///< 8: a sum; 2: a count
};
inline constexpr std::array<RegionField, 10> kRegionFields = {{
    {"RSum", offsetof(BGRegionStats, RSum), 8},
    {"BSum", offsetof(BGRegionStats, BSum), 8},
    {"GRorGSum", offsetof(BGRegionStats, GRorGSum), 8},
    {"GBSum", offsetof(BGRegionStats, GBSum), 8},
    {"YSum", offsetof(BGRegionStats, YSum), 8},
    {"RCount", offsetof(BGRegionStats, RCount), 2},
    {"BCount", offsetof(BGRegionStats, BCount), 2},
    {"GRorGCount", offsetof(BGRegionStats, GRorGCount), 2},
    {"GBCount", offsetof(BGRegionStats, GBCount), 2},
    {"YCount", offsetof(BGRegionStats, YCount), 2},
}};

}  // namespace simulation
