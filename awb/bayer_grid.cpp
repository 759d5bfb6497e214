#include "awb/bayer_grid.h"

#include <camx/memory.h>

#include "core/number_text.h"

namespace simulation {

namespace {

constexpr std::size_t kCountRoom = 5;  // up to 65535

}  // namespace

const std::array<RegionField, 10> kRegionFields = {{
    {"RSum", offsetof(BGRegionStats, RSum), 8, kUnsignedRoom},
    {"BSum", offsetof(BGRegionStats, BSum), 8, kUnsignedRoom},
    {"GRorGSum", offsetof(BGRegionStats, GRorGSum), 8, kUnsignedRoom},
    {"GBSum", offsetof(BGRegionStats, GBSum), 8, kUnsignedRoom},
    {"YSum", offsetof(BGRegionStats, YSum), 8, kUnsignedRoom},
    {"RCount", offsetof(BGRegionStats, RCount), 2, kCountRoom},
    {"BCount", offsetof(BGRegionStats, BCount), 2, kCountRoom},
    {"GRorGCount", offsetof(BGRegionStats, GRorGCount), 2, kCountRoom},
    {"GBCount", offsetof(BGRegionStats, GBCount), 2, kCountRoom},
    {"YCount", offsetof(BGRegionStats, YCount), 2, kCountRoom},
}};

WorkingCopy newWorkingCopy() {
  return WorkingCopy(static_cast<SimulationAWBBGStats*>(CamxCalloc(sizeof(SimulationAWBBGStats))));
}

void FreeWorkingCopy::operator()(SimulationAWBBGStats* copy) const { CamxFree(copy); }

}  // namespace simulation
