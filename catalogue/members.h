// The members of each kind of record, by family. Constant data.
#pragma once

#include "catalogue/member.h"

namespace catalogue {

/// What only the pipeline knows: of times, gains, luminance, light, rectangles.
inline constexpr char kPipelineUnit[] = "pipeline unit";

extern const Members kAecMembers;
extern const Members kAwbAecMembers;
extern const Members kBayerGridMembers;
extern const Members kTuningModeMembers;
extern const Members kExtensionMembers;
extern const Members kExtExposureMembers;
extern const Members kSegmentationMembers;
extern const Members kOtpMembers;
extern const Members kWideAlwaysOnMembers;
extern const Members kSyncMembers;
extern const Members kPureColorMembers;
extern const Members kLightSourceMembers;
extern const Members kSpectralMembers;
extern const Members kShadingMembers;
extern const Members kOrientationMembers;

}  // namespace catalogue
