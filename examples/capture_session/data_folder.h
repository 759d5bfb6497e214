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

/// Folders in it: of the dumps of a CamX request and camera, of the image whose
/// first request has that index, and of the records that the requests of a burst
/// share. The library makes all but the image's.
std::string requestFolder(unsigned request, unsigned camera);
std::string imageFolder(unsigned index);
std::string burstFolder(unsigned index);

}  // namespace capture
