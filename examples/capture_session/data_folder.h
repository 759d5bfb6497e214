// The folder that the library sees as /data/vendor/camera.
#pragma once

#include <exception>
#include <string>

namespace capture {

inline constexpr char kCameraData[] = "/data/vendor/camera";

/// Makes `folder`, or clears what an earlier run left in it, and shows it to this
/// process (to it alone, where there are name spaces) as kCameraData. A folder that
/// holds anything but the files of an earlier run is refused and left as it is, and so
/// is one that another run is using. Returns an empty text, else the problem.
/// Call it before the first thread starts, once in a process.
std::string prepareDataFolder(const std::string& folder);

/// Shows a folder that is there to this process as kCameraData, with all that is in it.
std::string openDataFolder(const std::string& folder);

/// What an exception tells, with places in `folder` instead of those in kCameraData.
std::string explain(const std::exception& error, const std::string& folder);

/// The text with `folder` where it names kCameraData.
std::string asNamed(std::string text, const std::string& folder);

/// Throws, with the reason, when the folder takes no file of the size of a dump. Where
/// dumps fail it tells whether that is why.
void requireRoom();

/// Folders in it: of the dumps of a CamX request and camera, of the image whose
/// first request has that index, and of the records that the requests of a burst
/// share. The library makes all but the image's.
std::string requestFolder(unsigned request, unsigned camera);
std::string imageFolder(unsigned index);
std::string burstFolder(unsigned index);

}  // namespace capture
