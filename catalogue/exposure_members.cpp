// What auto exposure decided, and what white balance gets to know of it.
#include <simulation/records.h>

#include "catalogue/members.h"

namespace catalogue {
namespace {

constexpr char kTime[] = "pipeline time";  // the pipeline's own unit

constexpr Member kExposure[] = {
    attribute("ExposureTime", Type::kUint64, offsetof(AECExposure, exposureTime)).in(kTime),
    attribute("Gain", Type::kFloat, offsetof(AECExposure, gain)).in(kPipelineUnit),
    attribute("Sensitivity", Type::kFloat, offsetof(AECExposure, sensitivity)).in(kPipelineUnit),
};

constexpr std::size_t exposureAt(std::size_t index) {
  return AECOutputLayout::exposures + index * sizeof(AECExposure);
}

constexpr Member kAec[] = {
    number("LuxIndex", Type::kFloat, AECOutputLayout::luxIndex).in(kPipelineUnit),
    number("DigitalGain", Type::kFloat, AECOutputLayout::digitalGain).in(kPipelineUnit),
    group("ExposureIndexShort", exposureAt(0), kExposure),
    group("ExposureIndexLong", exposureAt(1), kExposure),
    group("ExposureIndexSafe", exposureAt(2), kExposure),
    number("DrcGain", Type::kFloat, AECOutputLayout::drcGain).in(kPipelineUnit),
    number("DrcGainDark", Type::kFloat, AECOutputLayout::drcGainDark)
        .in(kPipelineUnit)
        .is("DRC gain for dark areas"),
};

constexpr Member kAwbAec[] = {
    attribute("luxIndex", Type::kFloat, offsetof(AWBExposureInfo, luxIndex)).in(kPipelineUnit),
    attribute("AECSettled", Type::kInt32, offsetof(AWBExposureInfo, AECSettled))
        .is("0: not settled; else settled")
        .on(Replay::kFirstByte),
    attribute("frameDuration", Type::kUint64, offsetof(AWBExposureInfo, frameDuration)).in(kTime),
    list("BETemplateMatrix", Type::kFloat, offsetof(AWBExposureInfo, BETemplateMatrix), 4, 4)
        .as(Digits::kSix),
};

constexpr Member kExtExposure[] = {
    number("safeSensitivity", Type::kFloat, 0).in(kPipelineUnit),
    number("longSensitivity", Type::kFloat, 4).in(kPipelineUnit),
    number("shortSensitivity", Type::kFloat, 8).in(kPipelineUnit),
    number("frameLuma", Type::kFloat, 12).in(kPipelineUnit),
    number("ADRCGain", Type::kFloat, 16).in(kPipelineUnit),
    number("brightnessValue", Type::kFloat, 20).in(kPipelineUnit),
};

}  // namespace

const Members kAecMembers = kAec;
const Members kAwbAecMembers = kAwbAec;
const Members kExtExposureMembers = kExtExposure;

}  // namespace catalogue
