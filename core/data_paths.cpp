#include "core/data_paths.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "core/file_type.h"
#include "core/log.h"

namespace simulation {
namespace {

void makeDumpFolder(const Path& folder) {
  if (!makeFolder(folder.c_str())) {
    SimulationLog(kError, "dirPath:%s create fail", folder.c_str());
  }
}

/// The request's folder, made on the first dump into it. A folder that is there
/// proves its tmp root.
Path makeRequestFolder(unsigned int requestId, unsigned int camId) {
  Path folder = requestFolder(requestId, camId);
  if (exists(folder.c_str())) return folder;
  makeTmpRoot();
  makeDumpFolder(folder);
  return folder;
}

/// Only the last folder of `name` is made.
Path makeNamedFolder(const char* name) {
  Path folder(kDataRoot, "/", name);
  makeTmpRoot();
  makeDumpFolder(folder);
  return folder;
}

Path prefixBelow(const Path& folder, FileType type) {
  return Path(folder, "/simulation_", nameOf(type));
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
  return prefixBelow(mode == kDump ? makeRequestFolder(requestId, camId) : Path(kDataRoot), type);
}

Path namedFolderPrefix(int mode, FileType type, const char* folderName) {
  return prefixBelow(mode == kDump ? makeNamedFolder(folderName) : Path(kDataRoot), type);
}

Path recordPath(const SimulationInfo& info, FileType type, const char* tail, unsigned int requestId,
                unsigned int camId, const char* extension) {
  const Path prefix = recordPrefix(static_cast<int>(info.mode), type, requestId, camId);
  return Path(prefix, tail, "_camId[", camId, "]", extension);
}

}  // namespace simulation
