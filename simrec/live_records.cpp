#include "simrec/live_records.h"

#include <simulation/records.h>
#include <simulation/simulation.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdint>

#include "acb/codecs.h"
#include "ae/codecs.h"
#include "awb/codecs.h"
#include "core/bytes.h"
#include "core/raw_file.h"
#include "face/codecs.h"
#include "lsc/gain_table.h"
#include "zoawb/codecs.h"

namespace simrec {
namespace {

using namespace simulation;

template <const BinaryRecord& record>
constexpr Codec binary(std::string_view kind) {
  return {kind, record.size, 1,
          [](const char* path, void* live, std::size_t) { readBinaryRecord(record, path, live); },
          [](const char* path, void* live, std::size_t) { dumpBinaryRecord(record, path, live); }};
}

/// A codec that needs no size.
template <void (*read)(const char*, void*), void (*dump)(const char*, const void*)>
constexpr Codec plain(std::string_view kind, std::size_t size) {
  return {kind, size, 1, [](const char* path, void* live, std::size_t) { read(path, live); },
          [](const char* path, void* live, std::size_t) { dump(path, live); }};
}

template <const FlatRecord& record>
constexpr Codec flat(std::string_view kind, std::size_t size) {
  return {kind, size, 1,
          [](const char* path, void* live, std::size_t) { readFlatRecord(record, path, live); },
          [](const char* path, void* live, std::size_t) { dumpFlatRecord(record, path, live); }};
}

/// A codec that is a public operation by path.
template <auto operation>
void run(const char* path, void* live, std::size_t) {
  (SimulationMgr::getInstance()->*operation)(live, const_cast<char*>(path));
}

constexpr Codec sizedInput(std::string_view kind) {
  return {kind, 0, 1,
          [](const char* path, void* live, std::size_t size) { readSizedInput(path, live, size); },
          [](const char* path, void* live, std::size_t size) { dumpSizedInput(path, live, size); }};
}

int floatsIn(std::size_t size) { return static_cast<int>(size / sizeof(float)); }

/// The first blocks hold all of the file: it does not tell where they end.
FdBlocks blocksOf(void* live, std::size_t size) { return {{{live, size}}}; }

/// Two planes side by side, in the proportion of a 4:2:0 image.
AcbImage imageOf(void* live, std::size_t size) {
  const auto c = static_cast<std::uint32_t>(size / 3);
  const auto y = static_cast<std::uint32_t>(size - c);
  return {{}, {live, {}, y}, {static_cast<char*>(live) + y, {}, c}};
}

constexpr ByteRange kSensorMode = {16, 18};
constexpr ByteRange kModeWord = {24, 28};

/// A byte that the file lacks is a zero, as for the readback.
void putFilesMode(const char* path, void* live) {
  std::array<char, kTuningModeSize> saved = {};
  const FileDescriptor file(open(path, O_RDONLY | O_CLOEXEC));
  if (file.valid()) readUpTo(file, saved.data(), saved.size());
  for (const ByteRange& range : {kSensorMode, kModeWord}) {
    std::copy(saved.begin() + range.begin, saved.begin() + range.end,
              static_cast<char*>(live) + range.begin);
  }
}

void putOneEntry(const char*, void* live) { store(live, 0, std::uint32_t{1}); }

constexpr std::size_t kOtpSize = sizeof(WBOTPCalibrationHead) + sizeof(WBOTPCalibrationEntry);

constexpr Codec tuningMode() {
  Codec codec = plain<readTuningMode, dumpTuningMode>("AWB_TuningMode", kTuningModeSize);
  codec.prepare = putFilesMode;
  codec.prepared = {{kSensorMode, kModeWord}};
  return codec;
}

constexpr Codec otpData() {
  Codec codec = plain<readOtpCalibration, dumpOtpCalibration>("AWB_OTPData", kOtpSize);
  codec.prepare = putOneEntry;
  codec.prepared = {{{0, sizeof(WBOTPCalibrationHead)}, {}}};
  return codec;
}

constexpr std::array<Codec, kCodecCount> kCodecs = {{
    plain<readAecData, dumpAecData>("AE_AECData", AECOutputLayout::end),
    plain<readAwbAecData, dumpAwbAecData>("AWB_AECData", sizeof(AWBExposureInfo)),
    {"AWB_ParsedAWBStatsOutput", sizeof(BayerGridOutput), 1,
     run<&Simulation::readAWBStatsForSimulation>, run<&Simulation::dumpAWBStatsForSimulation>},
    binary<kAwbFaceRoi>("AWB_FaceROI"),
    binary<kAwbIspStatsConfig>("AWB_ISPAWBBGStatsConfig"),
    tuningMode(),
    {"AWB_ExtensionInfo", 0, sizeof(float),
     [](const char* path, void* live, std::size_t size) {
       readExtensionInfo(path, live, floatsIn(size));
     },
     [](const char* path, void* live, std::size_t size) {
       dumpExtensionInfo(path, live, floatsIn(size));
     }},
    binary<kAwbFrameControlData>("AWB_AWBFrameControlData"),
    sizedInput("AWB_inputColorData"),
    sizedInput("AWB_CVPTransformData"),
    plain<readExtExposure, dumpExtExposure>("AWB_ExtExposure", 6 * sizeof(float)),
    {"OfflineAWB_ParsedAWBStatsOutput", sizeof(BayerGridOutput), 1,
     run<&Simulation::readAWBStatsForSimulation>,
     [](const char* path, void* live, std::size_t) { dumpOfflineStats(path, live); }},
    binary<kOfflineIspStatsConfig>("OfflineAWB_ISPAWBBGStatsConfig"),
    {"AWB_QsegImageData", sizeof(QSegImageInfo), 1, run<&Simulation::readQsegImageData>,
     run<&Simulation::dumpQsegImageData>},
    binary<kFaceDectionInfo>("ZOAWB_FaceDectionInfo"),
    binary<kFaceColorDectionInfo>("ZOAWB_FaceColorDectionInfo"),
    flat<kWideAlwaysOnStatus>("ZOAWB_WideAlwaysOnStatus", sizeof(ZOAWBWideAlwaysOnStatus)),
    flat<kSyncInfo>("ZOAWB_SyncInfo", sizeof(ZOAWBSyncInfo)),
    flat<kPureColorRes>("ZOAWB_PureColorRes", sizeof(ZOAWBPureColorRes)),
    flat<kLightSrcClassify>("ZOAWB_LightSrcClassify", sizeof(ZOAWBLightSrcClassify)),
    otpData(),
    plain<readSpectralSensor, dumpSpectralSensor>("ZOAWB_SpectralSensorInfo",
                                                  sizeof(SpectralSensorInfo)),
    {"FACE_FDResult", 0, 1,
     [](const char* path, void* live, std::size_t size) {
       readFdResult(path, blocksOf(live, size));
     },
     [](const char* path, void* live, std::size_t size) {
       dumpFdResult(path, blocksOf(live, size));
     }},
    binary<kFdRoi>("FACE_FaceROI"),
    {"LSC", sizeof(LscTable), 1,
     [](const char* path, void* live, std::size_t) {
       readGainTable(path, static_cast<float*>(live));
     },
     [](const char* path, void* live, std::size_t) { dumpGainTable(live, path); }},
    {"ACB_acb", 0, 1,
     [](const char* path, void* live, std::size_t size) {
       const AcbImage image = imageOf(live, size);
       readAcbImage(path, &image);
     },
     [](const char* path, void* live, std::size_t size) {
       const AcbImage image = imageOf(live, size);
       dumpAcbImage(path, &image);
     }},
    plain<readAcbOrientation, dumpAcbOrientation>("ACB_acb_orientation",
                                                  sizeof(AcbDeviceOrientation)),
}};

}  // namespace

const std::array<Codec, kCodecCount>& allCodecs() { return kCodecs; }

const Codec* codecOf(std::string_view kind) {
  const auto found = std::find_if(kCodecs.begin(), kCodecs.end(),
                                  [kind](const Codec& codec) { return codec.kind == kind; });
  return found != kCodecs.end() ? &*found : nullptr;
}

std::size_t liveSize(const Codec& codec, const std::string& path) {
  if (codec.size != 0) return codec.size;
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return 0;
  const auto size = std::min(static_cast<std::size_t>(status.st_size), kLargestLiveRecord);
  return size - size % codec.unit;
}

}  // namespace simrec
