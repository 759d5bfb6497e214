// Plain versions of the library's operations, written as one would at first:
// string streams, one conversion per token, whole documents. They are what the
// library is measured against, and write the same bytes.
#pragma once

#include <cstddef>

#include "bench/family.h"

namespace bench {

inline constexpr std::size_t kAcbLumaSize = std::size_t{1920} * 1080;
inline constexpr std::size_t kAcbSize = kAcbLumaSize * 3 / 2;

namespace plain {

void qseg(Call& call, void* data);
void parsedStatistics(Call& call, void* data);
void snapshotStatistics(Call& call, void* data);
void offlineStatistics(Call& call, void* data);
void lensShading(Call& call, void* data);

/// Starts the numbers of the lens shading files anew.
void forgetLensShading();

void exposureDecision(Call& call, void* data);
void exposureInfo(Call& call, void* data);
void extendedExposure(Call& call, void* data);
void wideAlwaysOn(Call& call, void* data);
void syncInfo(Call& call, void* data);
void pureColor(Call& call, void* data);
void lightSource(Call& call, void* data);
void calibration(Call& call, void* data);
void spectralSensor(Call& call, void* data);
void orientation(Call& call, void* data);

inline constexpr std::size_t kConfigSize = 144;
inline constexpr std::size_t kFaceBlocks[6] = {2800, 640, 4, 120, 64, 1200};
inline constexpr std::size_t kFaceSize = 2800 + 640 + 4 + 120 + 64 + 1200;

void faceRoi(Call& call, void* data);
void ispConfig(Call& call, void* data);
void tuningMode(Call& call, void* data);
void frameControl(Call& call, void* data);
void faceDection(Call& call, void* data);
void faceColor(Call& call, void* data);
void fdRoi(Call& call, void* data);
void faceResult(Call& call, void* data);
void acbPlanes(Call& call, void* data);

/// A record in the folder of its request, copied to the caller as a whole.
void staged(Call& call, const char* name, void* data, std::size_t size);
/// The same, read straight into the caller's memory.
void direct(Call& call, const char* name, void* data, std::size_t size);

template <std::size_t size>
void extension(Call& call, void* data) {
  staged(call, "AWB_ExtensionInfo", data, size);
}
template <std::size_t size>
void inputColor(Call& call, void* data) {
  direct(call, "AWB_inputColorData", data, size);
}
template <std::size_t size>
void transform(Call& call, void* data) {
  direct(call, "AWB_CVPTransformData", data, size);
}

}  // namespace plain
}  // namespace bench
