// What auto exposure's record is as a file, wherever the file lies. The caller owns
// record and path; nothing is kept. Logs as the operation does. No state, no locks.
#pragma once

namespace simulation {

/// Writes the members at AECOutputLayout's offsets in `aecOutput`.
void dumpAecData(const char* path, const void* aecOutput);

/// Replaces member after member until an element is missing.
void readAecData(const char* path, void* aecOutput);

}  // namespace simulation
