// The parts of the Simulation class that belong to no record: the flag queries
// and the helpers that the pipeline may use for itself.
#include <simulation/simulation.h>

#include <cstring>

#include "core/data_paths.h"
#include "core/raw_file.h"

Simulation::Simulation() = default;
Simulation::~Simulation() = default;

Simulation* SimulationMgr::getInstance() {
  static Simulation instance;
  return &instance;
}

bool Simulation::isSimulationEnable(unsigned char flags) { return (flags & 0x01) != 0; }

bool Simulation::getSimulationMode(unsigned char flags) { return (flags & 0x02) != 0; }

bool Simulation::getSimulationAEMode(unsigned char flags) { return (flags & 0x04) != 0; }

void Simulation::makeTmpFileFloder() { simulation::makeTmpRoot(); }

bool Simulation::isFileExists(char* path) { return simulation::exists(path); }

void Simulation::getFilesPath(int mode, FileType type, char* outPath, unsigned int requestId,
                              unsigned int camId) {
  std::strcpy(outPath, simulation::recordPrefix(mode, type, requestId, camId).c_str());
}

ssize_t Simulation::ReadFromFile(void* buf, char* path, unsigned long size, int offset) {
  return simulation::readFile(buf, path, size, offset);
}

ssize_t Simulation::WritetoFile(void* buf, char* path, unsigned long size, int openFlags) {
  return simulation::writeFile(buf, path, size, openFlags);
}
