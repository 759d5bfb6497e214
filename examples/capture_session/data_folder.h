// The folder that the library sees as /data/vendor/camera.
#pragma once

#include <string>

namespace capture {

inline constexpr char kCameraData[] = "/data/vendor/camera";

/// Makes `folder`, or clears what an earlier run left in it, and shows it to
/// this process (and it alone) as kCameraData. A folder that holds anything but
/// the files of an earlier run is refused and left as it is, and so is one that
/// another run is using. Returns an empty text, else the problem.
/// Call it before the first thread starts, once in a process.
std::string prepareDataFolder(const std::string& folder);

}  // namespace capture
