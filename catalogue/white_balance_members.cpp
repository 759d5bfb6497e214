// The Bayer-grid statistics and the smaller inputs of white balance.
#include <simulation/records.h>

#include "catalogue/members.h"

namespace catalogue {
namespace {

constexpr Meaning kUsesY[] = {{0, "YSum and YCount are not valid"},
                              {1, "YSum and YCount are valid"}};
constexpr Meaning kHasSatInfo[] = {{0, "a block for each region"},
                                   {1, "two blocks for each region, of which the first is here"}};

constexpr Member regionList(const char* name, Type type, std::size_t offset) {
  return list(name, type, offsetof(BayerGridOutput, regions) + offset, BayerGridOutput::kMaxRegions,
              sizeof(BGRegionStats));
}

constexpr Member sums(const char* name, std::size_t offset) {
  return regionList(name, Type::kUint64, offset).is("sum of the channel's samples in each region");
}

constexpr Member counts(const char* name, std::size_t offset) {
  return regionList(name, Type::kUint16, offset).in("samples").is("in the sum of each region");
}

constexpr Member header(const char* name, std::size_t offset) {
  return attribute(name, Type::kUint32, offset).on(Replay::kLive);
}

constexpr Member kBayerGrid[] = {
    // Two bits of one word in the live record: 0 and 1.
    header("usesY", offsetof(BayerGridOutput, flags)).means(kUsesY).upTo(1),
    header("hasSatInfo", offsetof(BayerGridOutput, flags)).means(kHasSatInfo).upTo(1),
    header("numROIs", offsetof(BayerGridOutput, numROIs))
        .in("regions")
        .upTo(BayerGridOutput::kMaxRegions),
    header("horizontal_num", offsetof(BayerGridOutput, horizontal_num)).in("regions in a row"),
    header("vertical_num", offsetof(BayerGridOutput, vertical_num)).in("rows"),
    attribute("BLStretchFactor", Type::kFloat, offsetof(BayerGridOutput, BLStretchFactor))
        .is("black-level stretch")
        .on(Replay::kLive),
    list("channelGainThreshold", Type::kUint32, offsetof(BayerGridOutput, channelGainThreshold), 4,
         4, Carrier::kAttribute)
        .on(Replay::kLive),
    sums("RSum", offsetof(BGRegionStats, RSum)),
    sums("BSum", offsetof(BGRegionStats, BSum)),
    sums("GRorGSum", offsetof(BGRegionStats, GRorGSum)),
    sums("GBSum", offsetof(BGRegionStats, GBSum)),
    sums("YSum", offsetof(BGRegionStats, YSum)),
    counts("RCount", offsetof(BGRegionStats, RCount)),
    counts("BCount", offsetof(BGRegionStats, BCount)),
    counts("GRorGCount", offsetof(BGRegionStats, GRorGCount)),
    counts("GBCount", offsetof(BGRegionStats, GBCount)),
    counts("YCount", offsetof(BGRegionStats, YCount)),
};

constexpr Member kTuningMode[] = {
    bytes("sensorMode", Type::kUint16, 16).is("a readback wants the live one to be the same"),
    bytes("secondModeWord", Type::kUint32, 24).is("a readback wants the live one to be the same"),
};

constexpr std::size_t kAnyCount = static_cast<std::size_t>(-1);
constexpr Member kExtension[] = {
    list("values", Type::kFloat, 0, kAnyCount, 4, Carrier::kBytes),
};

constexpr Member kOtp[] = {
    number("rOverG", Type::kFloat,
           sizeof(WBOTPCalibrationHead) + offsetof(WBOTPCalibrationEntry, rOverG))
        .in("x")
        .is("red over green gain"),
    number("bOverG", Type::kFloat,
           sizeof(WBOTPCalibrationHead) + offsetof(WBOTPCalibrationEntry, bOverG))
        .in("x")
        .is("blue over green gain"),
};

}  // namespace

const Members kBayerGridMembers = kBayerGrid;
const Members kTuningModeMembers = kTuningMode;
const Members kExtensionMembers = kExtension;
const Members kOtpMembers = kOtp;

}  // namespace catalogue
