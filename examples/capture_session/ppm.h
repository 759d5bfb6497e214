// Photographs: binary PPM files (P6), 8 or 16 bits for each sample.
#pragma once

#include <string>

#include "scene.h"

namespace capture {

/// Reads the file row by row, taking its values for sRGB, reduced to the size of
/// a scene: the memory needed does not grow with the file. What follows the
/// image is ignored. Returns an empty text, else what is wrong with the file,
/// and then leaves `scene` alone.
std::string readPpm(const std::string& path, Scene* scene);

}  // namespace capture
