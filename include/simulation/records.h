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
struct BayerGridOutput {
  static constexpr std::uint32_t kUsesY = 1U << 0;       ///< of `flags`: YSum and YCount are valid
  static constexpr std::uint32_t kHasSatInfo = 1U << 1;  ///< of `flags`: `pairs` is valid

  /// The most regions that can be dumped or replayed.
  static constexpr std::uint32_t kMaxRegions = 3888;

  std::uint32_t flags;           ///< other bits are ignored
  std::uint32_t numROIs;         ///< valid regions, at most kMaxRegions
  std::uint32_t horizontal_num;  ///< regions in a row of the grid
  std::uint32_t vertical_num;    ///< regions in a column of the grid
  std::uint32_t channelGainThreshold[4];
  float BLStretchFactor;  ///< black-level stretch

  /// The regions, in one of two forms that begin at the same place. A dump
  /// touches valid regions only; a readback takes their number and form from the
  /// file, so all of this memory must be there.
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

/// A rectangle, in the pipeline's unit.
struct QSegRect {
  std::uint32_t left, top, width, height;
};
static_assert(sizeof(QSegRect) == 16);

/// One segmented instance.
struct QSegInstInfo {
  std::uint64_t requestId;
  std::int32_t ID;
  QSegRect roi;
  std::uint32_t nConf;
  std::uint16_t nSegIdx;
  std::uint16_t eTrackStatus;
  QSegRect partROIs[3];
  std::uint16_t eObjectType;
};
static_assert(sizeof(QSegInstInfo) == 88);
static_assert(offsetof(QSegInstInfo, ID) == 8 && offsetof(QSegInstInfo, roi) == 12);
static_assert(offsetof(QSegInstInfo, nConf) == 28 && offsetof(QSegInstInfo, nSegIdx) == 32);
static_assert(offsetof(QSegInstInfo, eTrackStatus) == 34);
static_assert(offsetof(QSegInstInfo, partROIs) == 36 && offsetof(QSegInstInfo, eObjectType) == 84);

/// The scene-segmentation result of one request.
struct QSegImageInfo {
  static constexpr std::size_t kStatsSize = 307200;
  static constexpr std::size_t kInstances = 10;

  std::uint64_t requestId;
  std::uint32_t notRecorded;
  std::int32_t isQSegInfoValid;
  std::uint32_t horizontalRegionCount;
  std::uint32_t verticalRegionCount;
  std::uint8_t qsegStatsInfo[kStatsSize];  ///< labels; always recorded whole
  QSegInstInfo qsegInstInfos[kInstances];  ///< always recorded whole
  std::uint16_t qsegInstCount;
  std::uint16_t qsegSceneClass;
  float qsegSceneClassConf;
  QSegRect qsegCroppedWindowInfo;
};
static_assert(offsetof(QSegImageInfo, isQSegInfoValid) == 12);
static_assert(offsetof(QSegImageInfo, horizontalRegionCount) == 16);
static_assert(offsetof(QSegImageInfo, verticalRegionCount) == 20);
static_assert(offsetof(QSegImageInfo, qsegStatsInfo) == 24);
static_assert(offsetof(QSegImageInfo, qsegInstInfos) == 307224);
static_assert(offsetof(QSegImageInfo, qsegInstCount) == 308104);
static_assert(offsetof(QSegImageInfo, qsegSceneClass) == 308106);
static_assert(offsetof(QSegImageInfo, qsegSceneClassConf) == 308108);
static_assert(offsetof(QSegImageInfo, qsegCroppedWindowInfo) == 308112);
static_assert(sizeof(QSegImageInfo) == 308128);

struct ZOAWBWideAlwaysOnStatus {
  std::int32_t status;
};
static_assert(sizeof(ZOAWBWideAlwaysOnStatus) == 4);

struct ZOAWBSyncInfo {
  std::int32_t syncinfo;
};
static_assert(sizeof(ZOAWBSyncInfo) == 4);

struct ZOAWBPureColorRes {
  std::int32_t enabled;
  float singlePureColorConfid;
  float pureColorBackgrdFaceConfid;
};
static_assert(sizeof(ZOAWBPureColorRes) == 12);

struct ZOAWBLightSrcClassify {
  std::int32_t enabled;
  float firstCTConfid, secondCTConfid;
  float firstCTValue, secondCTValue;
  float lightClassConfid;
  std::int32_t lightClass;
};
static_assert(sizeof(ZOAWBLightSrcClassify) == 28);

/// One white-balance calibration entry of the sensor's OTP memory.
struct WBOTPCalibrationEntry {
  std::uint32_t notRecorded[2];
  float rOverG;  ///< red over green gain
  float bOverG;  ///< blue over green gain
};
/// The head of the calibration table; `entries` of them follow it.
struct WBOTPCalibrationHead {
  std::uint32_t entries;
};
static_assert(offsetof(WBOTPCalibrationEntry, rOverG) == 8);
static_assert(sizeof(WBOTPCalibrationEntry) == 16 && sizeof(WBOTPCalibrationHead) == 4);

/// One reading of the spectral (ambient light) sensor.
struct SpectralSensorInfo {
  static constexpr std::size_t kChannels = 20;

  std::int32_t enabled;
  float cct;  ///< correlated colour temperature
  float lux;
  float irRatio1, irRatio2, irRatio3;
  float channelDatas[kChannels];
  std::uint32_t channelNum;  ///< never dumped; a readback takes it from an edited file
  float x, y;                ///< chromaticity
  std::uint32_t als_gain;
  float flickerFrequency;  ///< read back as a whole number
  std::int32_t atime;
  std::int32_t again_idx;
  std::int32_t sensorType;
};
static_assert(offsetof(SpectralSensorInfo, channelDatas) == 24);
static_assert(offsetof(SpectralSensorInfo, channelNum) == 104);
static_assert(sizeof(SpectralSensorInfo) == 136);

/// Bytes of the face region-of-interest record of SimulationForFDROIData.
inline constexpr std::size_t kFdRoiSize = 1784;
inline constexpr std::size_t kLscRows = 13;
inline constexpr std::size_t kLscColumns = 17;
inline constexpr std::size_t kLscChannels = 4;  ///< R, Gr, Gb, B

/// The gain table of one frame: row after row, the four channels of a cell
/// side by side.
using LscTable = float[kLscRows][kLscColumns][kLscChannels];
static_assert(sizeof(LscTable) == 3536, "fixed by the pipeline");
/// One plane of an ACB image; the bytes belong to the caller.
struct AcbPlane {
  void* data;
  std::uint64_t unread[2];
  std::uint32_t size;  ///< bytes at `data`
};

/// The image record of SimulationForACB.
struct AcbImage {
  std::uint64_t unread[2];
  AcbPlane y;
  AcbPlane c;
};
static_assert(offsetof(AcbPlane, size) == 24, "fixed by the pipeline");
static_assert(offsetof(AcbImage, y) == 16, "fixed by the pipeline");
static_assert(offsetof(AcbImage, c) == 48, "fixed by the pipeline");

/// The record of SimulationForACBdeviceOri.
struct AcbDeviceOrientation {
  std::uint32_t unread;
  std::int32_t orientation;  ///< in the pipeline's unit
};
static_assert(offsetof(AcbDeviceOrientation, orientation) == 4, "fixed by the pipeline");
