// The parsed Bayer-grid statistics of one request.
#include <simulation/simulation.h>

#include "core/data_paths.h"

using namespace simulation;

void Simulation::SimulationForAWBParsedStatsOutput(SimulationInfo* info, void* stats,
                                                   unsigned int requestId, unsigned int camId,
                                                   const char* text) {
  const Path tail("_ParsedAWBStatsOutput_", text);
  Path path = recordPath(*info, FileType::AWB, tail.c_str(), requestId, camId, ".xml");
  if (info->mode == kDump) dumpAWBStatsForSimulation(stats, path.data());
  if (info->mode == kReadback) readAWBStatsForSimulation(stats, path.data());
}
