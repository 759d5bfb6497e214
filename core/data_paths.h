// The folders under /data/vendor/camera and the rule that turns a request into
// the path prefix of its records. No locks: two threads that create the same
// folder do each other no harm.
#pragma once

#include <simulation/simulation.h>

#include "core/path.h"

namespace simulation {

inline constexpr char kDataRoot[] = "/data/vendor/camera";
inline constexpr char kTmpRoot[] = "/data/vendor/camera/tmp";
inline constexpr char kScratchFolder[] = "/data/vendor/camera/tmp_asd";

/// SimulationInfo::mode. Other values form their path like a readback and then
/// do nothing.
inline constexpr int kDump = 0;
inline constexpr int kReadback = 1;

bool exists(const char* path);

/// Creates one folder (mode 0777) unless `path` exists. False when it can't be
/// had; a folder that another thread made in between is fine.
bool makeFolder(const char* path);

/// Makes sure of /data/vendor/camera/tmp; a failure is logged.
void makeTmpRoot();

/// The folder of one request and camera below the tmp root.
Path requestFolder(unsigned int requestId, unsigned int camId);

/// What every record file of `type` starts with. In dump mode the request's
/// folder is created; a folder that can't be made is logged and the prefix
/// returned all the same. Aborts when `type` has no name.
Path recordPrefix(int mode, FileType type, unsigned int requestId, unsigned int camId);

/// The same for the families that dump into one folder of the caller's choice,
/// straight below the data root. In dump mode the tmp root is made, too, which
/// nothing here needs.
Path namedFolderPrefix(int mode, FileType type, const char* folderName);

/// A record's file: its prefix, `tail`, the camera and `extension`.
Path recordPath(const SimulationInfo& info, FileType type, const char* tail, unsigned int requestId,
                unsigned int camId, const char* extension);

}  // namespace simulation
