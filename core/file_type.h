// The names of the data families, as they stand in file names.
#pragma once

#include <simulation/simulation.h>

namespace simulation {

/// The word of `type` in file names: "AWB", "AE", ... Aborts past the last type.
const char* nameOf(FileType type);

}  // namespace simulation
