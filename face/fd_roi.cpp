// The face regions of interest of one request, byte for byte.
#include <simulation/records.h>
#include <simulation/simulation.h>

#include "core/binary_record.h"

namespace simulation {
namespace {

constexpr BinaryRecord kRoi = {FileType::FACE, "_FaceROI", kFdRoiSize, 8, true};

}  // namespace
}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForFDROIData(SimulationInfo* info, void* roiData, unsigned int requestId,
                                        unsigned int camId) {
  runBinaryRecord(kRoi, *info, roiData, requestId, camId);
}
