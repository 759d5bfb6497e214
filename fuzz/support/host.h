// Takes the place of the log, of the pipeline's memory and of the fatal helper
// in a fuzz target: nothing is printed, what an operation leaves allocated is
// seen and released, and a broken bound can be told from a crash.
#pragma once

#include <string>
#include <vector>

namespace fuzz {

/// The messages since the last call.
std::vector<std::string> takeLog();

/// From here on, one document at a time is watched until releaseKeptDocument.
void startWatching();

/// Releases the document that was made since and not released; whether there is
/// one.
bool releaseKeptDocument();

/// Releases the blocks of CamxCalloc that were not released; returns their number.
int releaseKeptBlocks();

}  // namespace fuzz
