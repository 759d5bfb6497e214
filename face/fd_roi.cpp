// The face regions of interest of one request, byte for byte.
#include <simulation/simulation.h>

#include "core/binary_record.h"
#include "face/codecs.h"

using namespace simulation;

void Simulation::SimulationForFDROIData(SimulationInfo* info, void* roiData, unsigned int requestId,
                                        unsigned int camId) {
  runBinaryRecord(kFdRoi, *info, roiData, requestId, camId);
}
