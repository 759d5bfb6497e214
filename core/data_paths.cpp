#include "core/data_paths.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "core/file_type.h"
#include "core/log.h"

namespace simulation {
namespace {

/// The request's folder, made on the first dump into it. A folder that is there
/// proves its tmp root.
Path makeRequestFolder(unsigned int requestId, unsigned int camId) {
  Path folder = requestFolder(requestId, camId);
  if (exists(folder.c_str())) return folder;
  makeTmpRoot();
  if (!makeFolder(folder.c_str())) {
    SimulationLog(kError, "dirPath:%s create fail", folder.c_str());
  }
  return folder;
}

}  // namespace

bool exists(const char* path) { return access(path, F_OK) == 0; }

bool makeFolder(const char* path) {
  return exists(path) || mkdir(path, 0777) == 0 || errno == EEXIST;
}

void makeTmpRoot() {
  if (!makeFolder(kTmpRoot)) SimulationLog(kError, "tempdirPath:%s create fail", kTmpRoot);
}

Path requestFolder(unsigned int requestId, unsigned int camId) {
  return Path(kTmpRoot, "/RequestID[", requestId, "]_camId[", camId, "]");
}

Path recordPrefix(int mode, FileType type, unsigned int requestId, unsigned int camId) {
  if (mode != kDump) return Path(kDataRoot, "/simulation_", nameOf(type));
  const Path folder = makeRequestFolder(requestId, camId);
  return Path(folder, "/simulation_", nameOf(type));
}

Path recordPath(const SimulationInfo& info, FileType type, const char* tail, unsigned int requestId,
                unsigned int camId, const char* extension) {
  const Path prefix = recordPrefix(static_cast<int>(info.mode), type, requestId, camId);
  return Path(prefix, tail, "_camId[", camId, "]", extension);
}

}  // namespace simulation
