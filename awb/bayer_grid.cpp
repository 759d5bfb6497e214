#include "awb/bayer_grid.h"

#include <camx/memory.h>

namespace simulation {

WorkingCopy newWorkingCopy() {
  return WorkingCopy(static_cast<SimulationAWBBGStats*>(CamxCalloc(sizeof(SimulationAWBBGStats))));
}

void FreeWorkingCopy::operator()(SimulationAWBBGStats* copy) const { CamxFree(copy); }

}  // namespace simulation
