// What white balance's records are as files, wherever a file lies: a row or a pair
// of functions for each. The statistics' codec is public (Simulation::
// dumpAWBStatsForSimulation, readAWBStatsForSimulation). The caller owns records and
// paths; nothing is kept. Logs as the operations do. No state, no locks.
#pragma once

#include <cstddef>

#include "core/binary_record.h"

namespace simulation {

inline constexpr BinaryRecord kAwbFaceRoi = {FileType::AWB, "_FaceROI", 1784, 8};
inline constexpr BinaryRecord kAwbIspStatsConfig = {FileType::AWB, "_ISPAWBBGStatsConfig_", 144};
inline constexpr BinaryRecord kAwbFrameControlData = {FileType::AWB, "_AWBFrameControlData", 888};
inline constexpr BinaryRecord kOfflineIspStatsConfig = {FileType::OfflineAWB,
                                                        "_ISPAWBBGStatsConfig", 144, 0, true};

/// An AWBExposureInfo as XML.
void dumpAwbAecData(const char* path, const void* data);
void readAwbAecData(const char* path, void* data);

/// kTuningModeSize bytes. A file replaces them, filled up with zeros, when it was
/// saved in the sensor mode that is live; one that can't be opened counts as zeros.
inline constexpr std::size_t kTuningModeSize = 60;
void dumpTuningMode(const char* path, const void* data);
void readTuningMode(const char* path, void* data);

/// `count` floats; a readback takes all of them or none. Aborts when `count` is
/// negative.
void dumpExtensionInfo(const char* path, const void* data, int count);
void readExtensionInfo(const char* path, void* data, int count);

/// Input colours and the CVP transform: `size` bytes, of which a short file
/// replaces the first.
void dumpSizedInput(const char* path, const void* data, std::size_t size);
void readSizedInput(const char* path, void* data, std::size_t size);

/// Six floats as XML. Each call leaves a document allocated, on purpose.
void dumpExtExposure(const char* path, const void* data);
void readExtExposure(const char* path, void* data);

/// The statistics of offline white balance: a file that exists is left alone.
void dumpOfflineStats(const char* path, void* stats);

}  // namespace simulation
