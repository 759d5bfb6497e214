#include <simulation/simulation.h>

#include <cstring>

int main(int argc, char** argv) {
  Simulation* simulation = SimulationMgr::getInstance();
  char prefix[128];
  if (argc > 1) simulation->ReadFromFile(prefix, argv[1], 1, 0);
  simulation->getFilesPath(1, FileType::AWB, prefix, 7, 0);
  return std::strcmp(prefix, "/data/vendor/camera/simulation_AWB") == 0 ? 0 : 1;
}
