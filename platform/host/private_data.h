// A private /data/vendor/camera for a host program or a test: the library's
// paths are fixed, so the process gets a view of the file system in which that
// folder is another one. The machine's own /data is never touched.
#pragma once

#include <string>

namespace simulation_host {

/// From this call on, /data/vendor/camera is `folder` (which must exist) for
/// this process and the children it starts later; the rest of the file system
/// stays as it was. Needs root or unprivileged user namespaces, and a process
/// that has not started threads. Returns an empty text, else what went wrong.
std::string showAsCameraData(const std::string& folder);

/// The same with a new, empty folder in memory that goes with the process.
std::string useEmptyCameraData();

}  // namespace simulation_host
