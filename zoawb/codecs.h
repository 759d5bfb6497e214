// What the records of the extended white balance are as files, wherever a file lies:
// a row or a pair of functions for each. The segmentation's codec is public
// (Simulation::dumpQsegImageData, readQsegImageData). The caller owns records and
// paths; nothing is kept. Logs as the operations do. No state, no locks.
#pragma once

#include "core/binary_record.h"

namespace simulation {

inline constexpr BinaryRecord kFaceDectionInfo = {FileType::ZOAWB, "_FaceDectionInfo", 964};
inline constexpr BinaryRecord kFaceColorDectionInfo = {FileType::ZOAWB, "_FaceColorDectionInfo",
                                                       204};

/// A record of a few numbers: its root element carries one child for each.
struct FlatRecord;
extern const FlatRecord kWideAlwaysOnStatus;
extern const FlatRecord kSyncInfo;
extern const FlatRecord kPureColorRes;
extern const FlatRecord kLightSrcClassify;

void dumpFlatRecord(const FlatRecord& record, const char* path, const void* data);

/// A text that is no number throws; what was applied before stays, and so does the
/// document, allocated on purpose.
void readFlatRecord(const FlatRecord& record, const char* path, void* data);

/// A WBOTPCalibrationHead and its entries: the first is dumped and, from a file that
/// is loaded once for each, replayed into all.
void dumpOtpCalibration(const char* path, const void* table);
void readOtpCalibration(const char* path, void* table);

/// A SpectralSensorInfo. More channel values than it has abort.
void dumpSpectralSensor(const char* path, const void* data);
void readSpectralSensor(const char* path, void* data);

}  // namespace simulation
