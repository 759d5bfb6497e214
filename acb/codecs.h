// What ACB's records are as files, wherever a file lies. The caller owns records,
// planes and paths; nothing is kept. Logs as the operations do. No state, no locks.
#pragma once

namespace simulation {

/// Both planes of an AcbImage, Y before C; nothing when it or a plane is null. A
/// short file replaces the beginning.
void dumpAcbImage(const char* path, const void* image);
void readAcbImage(const char* path, const void* image);

/// An AcbDeviceOrientation as XML. What is missing from the file, or no integer,
/// leaves the record.
void dumpAcbOrientation(const char* path, const void* record);
void readAcbOrientation(const char* path, void* record);

}  // namespace simulation
