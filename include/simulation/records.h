// The records that the pipeline's algorithms exchange, as far as their layout
// is fixed: the library finds members by these offsets only. Records are the
// caller's memory; the library keeps none of them.
#pragma once

#include <cstddef>
#include <cstdint>

/// Where SimulationForAECData finds its members in the output of auto exposure,
/// a larger structure of the pipeline. All are 32-bit floats but the exposures.
struct AECOutputLayout {
  static constexpr std::size_t luxIndex = 1168;
  static constexpr std::size_t digitalGain = 1200;
  static constexpr std::size_t drcGain = 1204;
  static constexpr std::size_t drcGainDark = 1272;  ///< DRC gain for dark areas
  static constexpr std::size_t exposures = 1840;    ///< three AECExposure: short, long, safe
  static constexpr std::size_t end = 1936;          ///< nothing is touched from here on
};

/// One exposure that auto exposure decided on.
struct AECExposure {
  std::uint64_t exposureTime;  ///< in the pipeline's unit of time
  float gain;
  float sensitivity;
  std::uint8_t unread[16];  ///< neither dumped nor replayed
};
static_assert(offsetof(AECExposure, gain) == 8);
static_assert(offsetof(AECExposure, sensitivity) == 12);
static_assert(sizeof(AECExposure) == 32);
static_assert(AECOutputLayout::end == AECOutputLayout::exposures + 3 * sizeof(AECExposure));

/// What white balance gets to know of the exposure.
struct AWBExposureInfo {
  float luxIndex;
  std::int32_t AECSettled;      ///< 0 or 1; dumped as signed, replayed as its first byte only
  std::uint64_t frameDuration;  ///< in the pipeline's unit of time
  float BETemplateMatrix[4];
};
static_assert(offsetof(AWBExposureInfo, AECSettled) == 4);
static_assert(offsetof(AWBExposureInfo, frameDuration) == 8);
static_assert(offsetof(AWBExposureInfo, BETemplateMatrix) == 16);
static_assert(sizeof(AWBExposureInfo) == 32);

/// One region of the Bayer grid, as the image signal processor (ISP) measured
/// it: sums of the samples of a channel, and how many samples went into each.
struct BGRegionStats {
  std::uint64_t RSum;
  std::uint64_t BSum;
  std::uint64_t GRorGSum;
  std::uint64_t GBSum;
  std::uint64_t YSum;
  std::uint16_t RCount;
  std::uint16_t BCount;
  std::uint16_t GRorGCount;
  std::uint16_t GBCount;
  std::uint16_t YCount;
};
static_assert(offsetof(BGRegionStats, YSum) == 32);
static_assert(offsetof(BGRegionStats, RCount) == 40);
static_assert(offsetof(BGRegionStats, YCount) == 48);
static_assert(sizeof(BGRegionStats) == 56);

/// A region of statistics with saturation information.
struct BGRegionPair {
  BGRegionStats first;
  BGRegionStats second;  ///< the pipeline's own; never dumped
};
static_assert(sizeof(BGRegionPair) == 112);

/// The Bayer-grid statistics of one frame, the main input of white balance.
/// Regions stand row after row, `horizontal_num` in each of `vertical_num` rows.
struct BayerGridOutput {
  static constexpr std::uint32_t kUsesY = 1U << 0;       ///< of `flags`: YSum and YCount are valid
  static constexpr std::uint32_t kHasSatInfo = 1U << 1;  ///< of `flags`: `pairs` is valid

  /// The most regions that can be dumped or replayed.
  static constexpr std::uint32_t kMaxRegions = 3888;

  std::uint32_t flags;    ///< other bits are ignored
  std::uint32_t numROIs;  ///< valid regions, at most kMaxRegions
  std::uint32_t horizontal_num;
  std::uint32_t vertical_num;
  std::uint32_t channelGainThreshold[4];
  float BLStretchFactor;  ///< black-level stretch

  /// The regions, in one of two forms that begin at the same place. The library
  /// touches valid regions only, so that a caller which never sets kHasSatInfo
  /// needs no more memory than `regions` takes.
  union {
    BGRegionStats regions[kMaxRegions + 1];
    BGRegionPair pairs[kMaxRegions];
  };
};
static_assert(offsetof(BayerGridOutput, numROIs) == 4);
static_assert(offsetof(BayerGridOutput, channelGainThreshold) == 16);
static_assert(offsetof(BayerGridOutput, BLStretchFactor) == 32);
static_assert(offsetof(BayerGridOutput, regions) == 40);
static_assert(sizeof(BayerGridOutput) == 40 + 3888 * 112);
