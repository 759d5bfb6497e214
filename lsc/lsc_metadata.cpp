// Lens shading: the folder, name and number of each gain table.
#include <simulation/simulation.h>

#include "core/data_paths.h"
#include "core/log.h"
#include "lsc/gain_table.h"

std::mutex Simulation::m_Mutex;
std::map<std::string, unsigned short> Simulation::m_LscIndex;

namespace simulation {
namespace {

/// 0 for the first call with `key`, then 1, 2, ... and 0 again after 65535.
int nextIndex(const std::string& key) {
  const std::lock_guard<std::mutex> lock(Simulation::m_Mutex);
  const auto [entry, first] = Simulation::m_LscIndex.try_emplace(key);
  if (!first) ++entry->second;
  return entry->second;
}

/// The folder of a dump, made when it is missing.
Path dumpFolder(const char* folderName) {
  Path folder(kDataRoot, "/", folderName, "/");
  if (!makeFolder(folder.c_str())) {
    SimulationLog(kError, "filePath:%s create fail", folder.c_str());
  }
  return folder;
}

Path filePath(const Path& folder, const char* name, int index, int ev) {
  return Path(folder, "simulation_LSC[", name, "]_index[", index, "]_ev[", ev, "].xml");
}

}  // namespace
}  // namespace simulation

using namespace simulation;

bool Simulation::simulationForLscMeta(SimulationInfo* info, const void* lscTable, float* outTable,
                                      int, const char* name, int ev) {
  if (lscTable == nullptr) return false;
  const int index =
      nextIndex(std::string(textOrNull(info->folderName)) + textOrNull(name) + std::to_string(ev));
  if (info->mode == kReadback) {
    return readGainTable(filePath(Path(kDataRoot, "/"), name, index, ev).c_str(), outTable);
  }
  if (info->mode != kDump) return false;
  dumpGainTable(lscTable, filePath(dumpFolder(info->folderName), name, index, ev).c_str());
  return true;
}
