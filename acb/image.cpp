// The image that ACB sees: its Y plane and, right behind it, its C plane in one
// file, rewritten by every dump.
#include <simulation/records.h>
#include <simulation/simulation.h>

#include <cstring>

#include "acb/codecs.h"
#include "core/bytes.h"
#include "core/data_paths.h"
#include "core/log.h"
#include "core/raw_file.h"

namespace simulation {
namespace {

struct Plane {
  char* data;
  std::size_t size;
};

Plane planeAt(const void* image, std::size_t offset) {
  return {load<char*>(image, offset + offsetof(AcbPlane, data)),
          load<std::uint32_t>(image, offset + offsetof(AcbPlane, size))};
}

bool writePlane(const FileDescriptor& file, const Plane& plane) {
  return writeAll(file, plane.data, plane.size);
}

/// The end of the file is no failure: the rest of the plane stays live.
bool readPlane(const FileDescriptor& file, const Plane& plane) {
  bool failed = false;
  readUpTo(file, plane.data, plane.size, &failed);
  return !failed;
}

void dump(const char* path, const Plane& y, const Plane& c) {
  const FileDescriptor file(open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666));
  if (!file.valid()) {
    SimulationLog(kError, "Failed to open file %s for writing", path);
  } else if (!writePlane(file, y)) {
    SimulationLog(kError, "Failed to write Y plane data to file %s", path);
  } else if (!writePlane(file, c)) {
    SimulationLog(kError, "Failed to write C plane data to file %s", path);
  }
}

void readBack(const char* path, const Plane& y, const Plane& c) {
  const FileDescriptor file(open(path, O_RDONLY));
  if (!file.valid()) {
    SimulationLog(kError, "Failed to open file %s for reading", path);
  } else if (!readPlane(file, y)) {
    SimulationLog(kError, "Failed to read Y plane data from file %s", path);
  } else if (!readPlane(file, c)) {
    SimulationLog(kError, "Failed to read C plane data from file %s", path);
  }
}

/// Calls `run(path, y, c)`, unless the image or one of its planes is null.
template <typename Run>
void withPlanes(const char* path, const void* image, Run run) {
  if (image == nullptr) return;
  const Plane y = planeAt(image, offsetof(AcbImage, y));
  const Plane c = planeAt(image, offsetof(AcbImage, c));
  if (y.data != nullptr && c.data != nullptr) run(path, y, c);
}

}  // namespace

void dumpAcbImage(const char* path, const void* image) { withPlanes(path, image, dump); }

void readAcbImage(const char* path, const void* image) { withPlanes(path, image, readBack); }

}  // namespace simulation

using namespace simulation;

void Simulation::getACBAWBFilesPath(int mode, FileType type, char* outPath, unsigned int,
                                    unsigned int, char* folderName) {
  std::strcpy(outPath, namedFolderPrefix(mode, type, folderName).c_str());
}

void Simulation::SimulationForACB(SimulationInfo* info, void* imageRecord, unsigned int,
                                  unsigned int camId) {
  const Path prefix =
      namedFolderPrefix(static_cast<int>(info->mode), FileType::ACB, info->folderName);
  const Path path(prefix, "_acb_camId[", camId, "].bin");
  if (info->mode == kDump) dumpAcbImage(path.c_str(), imageRecord);
  if (info->mode == kReadback) readAcbImage(path.c_str(), imageRecord);
}
