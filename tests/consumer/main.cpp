#include <simulation/simulation.h>

#include <cstring>

int main() {
  char prefix[128];
  SimulationMgr::getInstance()->getFilesPath(1, FileType::AWB, prefix, 7, 0);
  return std::strcmp(prefix, "/data/vendor/camera/simulation_AWB") == 0 ? 0 : 1;
}
