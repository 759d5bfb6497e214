// The small records of the extended white balance, lens shading, and the device's
// orientation.
#include <simulation/records.h>

#include "catalogue/members.h"

namespace catalogue {
namespace {

constexpr Member kWideAlwaysOn[] = {
    number("status", Type::kInt32, offsetof(ZOAWBWideAlwaysOnStatus, status))
        .is("the pipeline's enumeration"),
};

constexpr Member kSync[] = {
    number("syncinfo", Type::kInt32, offsetof(ZOAWBSyncInfo, syncinfo))
        .is("the pipeline's enumeration"),
};

constexpr Meaning kEnabled[] = {{0, "off"}, {1, "on"}};

constexpr Member kPureColor[] = {
    number("enabled", Type::kInt32, offsetof(ZOAWBPureColorRes, enabled)).means(kEnabled),
    number("singlePureColorConfid", Type::kFloat,
           offsetof(ZOAWBPureColorRes, singlePureColorConfid))
        .is("confidence"),
    number("pureColorBackgrdFaceConfid", Type::kFloat,
           offsetof(ZOAWBPureColorRes, pureColorBackgrdFaceConfid))
        .is("confidence"),
};

using LightSource = ZOAWBLightSrcClassify;
constexpr Member kLightSource[] = {
    number("enabled", Type::kInt32, offsetof(LightSource, enabled)).means(kEnabled),
    number("firstCTConfid", Type::kFloat, offsetof(LightSource, firstCTConfid)).is("confidence"),
    number("secondCTConfid", Type::kFloat, offsetof(LightSource, secondCTConfid)).is("confidence"),
    number("firstCTValue", Type::kFloat, offsetof(LightSource, firstCTValue)).in(kPipelineUnit),
    number("secondCTValue", Type::kFloat, offsetof(LightSource, secondCTValue)).in(kPipelineUnit),
    number("lightClassConfid", Type::kFloat, offsetof(LightSource, lightClassConfid))
        .is("confidence"),
    number("lightClass", Type::kInt32, offsetof(LightSource, lightClass))
        .is("the pipeline's enumeration"),
};

using Spectral = SpectralSensorInfo;
constexpr Member kSpectral[] = {
    number("enabled", Type::kInt32, offsetof(Spectral, enabled)).means(kEnabled),
    number("cct", Type::kFloat, offsetof(Spectral, cct))
        .in("K")
        .is("correlated colour temperature"),
    number("lux", Type::kFloat, offsetof(Spectral, lux)).in(kPipelineUnit),
    number("irRatio1", Type::kFloat, offsetof(Spectral, irRatio1)).is("infrared ratio"),
    number("irRatio2", Type::kFloat, offsetof(Spectral, irRatio2)).is("infrared ratio"),
    number("irRatio3", Type::kFloat, offsetof(Spectral, irRatio3)).is("infrared ratio"),
    list("channelDatas", Type::kFloat, offsetof(Spectral, channelDatas), Spectral::kChannels, 4)
        .as(Digits::kSix)
        .is("a reading for each channel"),
    number("channelNum", Type::kUint32, offsetof(Spectral, channelNum))
        .in("channels")
        .on(Replay::kOnlyReplaced),
    number("x", Type::kFloat, offsetof(Spectral, x)).is("chromaticity"),
    number("y", Type::kFloat, offsetof(Spectral, y)).is("chromaticity"),
    number("als_gain", Type::kUint32, offsetof(Spectral, als_gain)).in(kPipelineUnit),
    number("flickerFrequency", Type::kFloat, offsetof(Spectral, flickerFrequency))
        .in(kPipelineUnit)
        .on(Replay::kWholeNumber),
    number("atime", Type::kInt32, offsetof(Spectral, atime)).is("a setting of the sensor"),
    number("again_idx", Type::kInt32, offsetof(Spectral, again_idx)).is("a setting of the sensor"),
    number("sensorType", Type::kInt32, offsetof(Spectral, sensorType))
        .is("the pipeline's enumeration"),
};

constexpr Member gains(const char* name, std::size_t channel) {
  return list(name, Type::kFloat, channel * sizeof(float), kLscRows * kLscColumns,
              kLscChannels * sizeof(float))
      .as(Digits::kSixDecimals)
      .in(kPipelineUnit)
      .is("13 rows of 17 gains");
}

constexpr Member kShading[] = {
    attribute("width", Type::kUint32, 0).in("columns").on(Replay::kLive),
    attribute("height", Type::kUint32, 0).in("rows").on(Replay::kLive),
    gains("rGain", 0),
    gains("grGain", 1),
    gains("gbGain", 2),
    gains("bGain", 3),
};

constexpr Member kOrientation[] = {
    number("orientation", Type::kInt32, offsetof(AcbDeviceOrientation, orientation))
        .in(kPipelineUnit),
};

}  // namespace

const Members kWideAlwaysOnMembers = kWideAlwaysOn;
const Members kSyncMembers = kSync;
const Members kPureColorMembers = kPureColor;
const Members kLightSourceMembers = kLightSource;
const Members kSpectralMembers = kSpectral;
const Members kShadingMembers = kShading;
const Members kOrientationMembers = kOrientation;

}  // namespace catalogue
