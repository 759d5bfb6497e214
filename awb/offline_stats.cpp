// The statistics and their configuration for white balance computed again after
// the capture, kept in the folder of the named image. The first dump into a
// folder wins.
#include <simulation/simulation.h>

#include <cstring>

#include "awb/codecs.h"
#include "core/binary_record.h"
#include "core/data_paths.h"

namespace simulation {

void dumpOfflineStats(const char* path, void* stats) {
  if (exists(path)) return;
  SimulationMgr::getInstance()->dumpAWBStatsForSimulation(stats, const_cast<char*>(path));
}

}  // namespace simulation

using namespace simulation;

void Simulation::getOfflineAWBFilesPath(int mode, FileType type, char* out, unsigned int,
                                        unsigned int, char* folderName) {
  std::strcpy(out, namedFolderPrefix(mode, type, folderName).c_str());
}

void Simulation::SimulationForOfflineAWBBGStats(SimulationInfo* info, void* stats, void* config,
                                                unsigned int, unsigned int camId) {
  const Path prefix = namedFolderPrefix(static_cast<int>(info->mode), kOfflineIspStatsConfig.type,
                                        info->folderName);
  Path statsPath(prefix, "_ParsedAWBStatsOutput_camId[", camId, "].xml");
  if (info->mode == kDump) dumpOfflineStats(statsPath.c_str(), stats);
  if (info->mode == kReadback) readAWBStatsForSimulation(stats, statsPath.data());
  runBinaryRecord(kOfflineIspStatsConfig, *info,
                  Path(prefix, kOfflineIspStatsConfig.tail, "_camId[", camId, "].bin"), config);
}
