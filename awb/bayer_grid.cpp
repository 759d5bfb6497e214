#include "awb/bayer_grid.h"

#include <camx/memory.h>

namespace simulation {

const std::array<RegionField, 10> kRegionFields = {{
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

WorkingCopy newWorkingCopy() {
  return WorkingCopy(static_cast<SimulationAWBBGStats*>(CamxCalloc(sizeof(SimulationAWBBGStats))));
}

void FreeWorkingCopy::operator()(SimulationAWBBGStats* copy) const { CamxFree(copy); }

}  // namespace simulation
