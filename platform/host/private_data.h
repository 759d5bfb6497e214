// A /data/vendor/camera of its own for a host program or a test: the library's
// paths are fixed, so that the process gets a view of the file system in which that
// folder is another one. Where there are no name spaces for such a view, as in most
// containers, the machine's own folder is borrowed (borrowed_data.h).
#pragma once

#include <string>

namespace simulation_host {

/// From this call on, /data/vendor/camera is `folder` (which must exist) for
/// this process and the children it starts later; the rest of the file system
/// stays as it was. Needs root, unprivileged user namespaces, or a folder that can be
/// borrowed, and a process that has not started threads. Returns an empty text, else
/// what went wrong, in one line.
///
/// A borrowed folder that was there already holds a copy of what `folder` holds, and in the
/// end gives its files back over it; what was removed from the copy stays in `folder`.
std::string showAsCameraData(const std::string& folder);

/// The same with a new, empty folder that goes with the process.
std::string useEmptyCameraData();

/// Whether the two gave this process a view of its own, in which it may mount, and no
/// borrowed folder.
bool hasPrivateView();

}  // namespace simulation_host
