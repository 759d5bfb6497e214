// The statistics and their configuration for white balance computed again after
// the capture, kept in the folder of the named image. The first dump into a
// folder wins.
#include <simulation/simulation.h>

#include <cstring>

#include "core/binary_record.h"
#include "core/data_paths.h"

namespace simulation {
namespace {

constexpr BinaryRecord kConfig = {FileType::OfflineAWB, "_ISPAWBBGStatsConfig", 144, 0, true};

}  // namespace
}  // namespace simulation

using namespace simulation;

void Simulation::getOfflineAWBFilesPath(int mode, FileType type, char* out, unsigned int,
                                        unsigned int, char* folderName) {
  std::strcpy(out, namedFolderPrefix(mode, type, folderName).c_str());
}

void Simulation::SimulationForOfflineAWBBGStats(SimulationInfo* info, void* stats, void* config,
                                                unsigned int, unsigned int camId) {
  const Path prefix =
      namedFolderPrefix(static_cast<int>(info->mode), kConfig.type, info->folderName);
  Path statsPath(prefix, "_ParsedAWBStatsOutput_camId[", camId, "].xml");
  if (info->mode == kDump && !exists(statsPath.c_str())) {
    dumpAWBStatsForSimulation(stats, statsPath.data());
  }
  if (info->mode == kReadback) readAWBStatsForSimulation(stats, statsPath.data());
  runBinaryRecord(kConfig, *info, Path(prefix, kConfig.tail, "_camId[", camId, "].bin"), config);
}
