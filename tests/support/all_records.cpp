#include "tests/support/all_records.h"

#include <simulation/records.h>

#include <algorithm>
#include <cstring>

namespace {

template <auto operation, auto... text>
void plain(SimulationInfo* info, char* data, unsigned int request, unsigned int camera) {
  (sim().*operation)(info, data, request, camera, text...);
}

constexpr char kText[] = "preview";

constexpr unsigned long kSizedInput = 700;
template <auto operation>
void sized(SimulationInfo* info, char* data, unsigned int request, unsigned int camera) {
  (sim().*operation)(info, data, kSizedInput, request, camera);
}

void aec(SimulationInfo* info, char* data, unsigned int request, unsigned int camera) {
  std::uint32_t ev = 4294967295;
  sim().SimulationForAECData(info, data, request, camera, &ev);
}

float* floatsIn(void* data) { return static_cast<float*>(data); }

constexpr int kFloats = 90;
void extension(SimulationInfo* info, char* data, unsigned int request, unsigned int camera) {
  sim().SimulationForAWBExtensionInfo(info, floatsIn(data), kFloats, request, camera);
}

void offline(SimulationInfo* info, char* data, unsigned int request, unsigned int camera) {
  char* const config = data + sizeof(BayerGridOutput);
  sim().SimulationForOfflineAWBBGStats(info, data, config, request, camera);
}

void faces(SimulationInfo* info, char* data, unsigned int request, unsigned int camera) {
  sim().SimulationForFDResult(info, data, 4, data + 4, 8, data + 12, 800, data + 812, 60,
                              data + 872, 100, data + 972, 28, request, camera);
}

void lsc(SimulationInfo* info, char* data, unsigned int, unsigned int) {
  sim().simulationForLscMeta(info, data, floatsIn(data), 0, "cam", -2);
}

constexpr std::uint32_t kY = 40000;
void acb(SimulationInfo* info, char* data, unsigned int request, unsigned int camera) {
  AcbImage image = {{}, {data, {}, kY}, {data + kY, {}, kY / 2}};
  sim().SimulationForACB(info, &image, request, camera);
}

void put(std::string& bytes, std::size_t at, std::uint32_t word) {
  std::memcpy(&bytes[at], &word, sizeof word);
}

}  // namespace

#define PLAIN(name) #name, plain < &Simulation::SimulationFor##name>
#define NAMED(name) #name, plain < &Simulation::SimulationFor##name, kText>
#define SIZED(name) #name, sized < &Simulation::SimulationFor##name>

const std::array<RecordOperation, 26> kAllRecords = {{
    {"AECData", aec, "AE_AECData_camId[3]_ev[-1].xml", 2048},
    {PLAIN(AWBAECData), "AWB_AECData_camId[3].xml", sizeof(AWBExposureInfo)},
    {NAMED(AWBParsedStatsOutput), "AWB_ParsedAWBStatsOutput_preview_camId[3].xml",
     sizeof(BayerGridOutput), true},
    {PLAIN(AWBFaceROI), "AWB_FaceROI_camId[3].bin", 1784, true},
    {NAMED(AWBISPStatsConfig), "AWB_ISPAWBBGStatsConfig_preview_camId[3].bin", 144, true},
    {PLAIN(AWBTuningMode), "AWB_TuningMode_camId[3].bin", 60, true},
    {"AWBExtensionInfo", extension, "AWB_ExtensionInfo_camId[3].bin", kFloats * sizeof(float),
     true},
    {PLAIN(AWBFrameControlData), "AWB_AWBFrameControlData_camId[3].bin", 888, true},
    {SIZED(AWBinputColorData), "AWB_inputColorData_camId[3].bin", kSizedInput},
    {SIZED(CVPTransformData), "AWB_CVPTransformData_camId[3].bin", kSizedInput},
    {PLAIN(AWBExtExposure), "AWB_ExtExposure_camId[3].xml", 24},
    {"OfflineAWBBGStats", offline, "OfflineAWB_ParsedAWBStatsOutput_camId[3].xml",
     sizeof(BayerGridOutput) + 144},
    {PLAIN(QsegImageData), "AWB_QsegImageData_camId[3].xml", sizeof(QSegImageInfo)},
    {PLAIN(ZOAWBFaceDectionInfo), "ZOAWB_FaceDectionInfo_camId[3].bin", 964, true},
    {PLAIN(ZOAWBFaceColorDectionInfo), "ZOAWB_FaceColorDectionInfo_camId[3].bin", 204, true},
    {PLAIN(ZOAWBWideAlwaysOnStatus), "ZOAWB_WideAlwaysOnStatus_camId[3].xml", 4},
    {PLAIN(ZOAWBSyncInfo), "ZOAWB_SyncInfo_camId[3].xml", 4},
    {PLAIN(ZOAWBPureColorRes), "ZOAWB_PureColorRes_camId[3].xml", 12},
    {PLAIN(ZOAWBLightSrcClassify), "ZOAWB_LightSrcClassify_camId[3].xml", 28},
    {PLAIN(OTPCalibrationFactor), "AWB_OTPData_camId[3].xml", 4 + 16},
    {PLAIN(ZoAWBSpectralSensorInfo), "ZOAWB_SpectralSensorInfo.xml", sizeof(SpectralSensorInfo)},
    {"FDResult", faces, "FACE_FDResult_camId[3].bin", 1000},
    {PLAIN(FDROIData), "FACE_FaceROI_camId[3].bin", kFdRoiSize, true},
    {"LscMeta", lsc, "LSC[cam]_index[0]_ev[-2].xml", sizeof(LscTable)},
    {"ACB", acb, "ACB_acb_camId[3].bin", kY + kY / 2},
    {PLAIN(ACBdeviceOri), "ACB_acb_orientation_camId[3].xml", 8},
}};

const RecordOperation& recordNamed(const std::string& name) {
  return *std::find_if(kAllRecords.begin(), kAllRecords.end(),
                       [&](const RecordOperation& record) { return record.name == name; });
}

void RecordOperation::run(std::uint32_t mode, char* data, unsigned int request, unsigned int camera,
                          const char* folder) const {
  SimulationInfo info = infoFor(mode, folder);
  call(&info, data, request, camera);
}

std::string RecordOperation::memory(unsigned int seed) const {
  std::string bytes = pattern(size, seed);
  const bool numbers = std::strstr(file, ".xml") != nullptr;
  for (std::uint32_t at = 0; numbers && at + 4 <= size; at += 4) {
    put(bytes, at, 0x3F800000 + (seed * 7919 + at * 131) % 0x7FFFFF);
  }
  if (size >= sizeof(BayerGridOutput)) {
    put(bytes, 0, BayerGridOutput::kHasSatInfo);
    put(bytes, offsetof(BayerGridOutput, numROIs), 600);  // more than one buffer of text
  }
  if (call == plain<&Simulation::SimulationForOTPCalibrationFactor>) put(bytes, 0, 1);
  if (call == plain<&Simulation::SimulationForAWBTuningMode>) {
    put(bytes, 16, 7), put(bytes, 24, 7);  // what must fit
  }
  return bytes;
}

std::string RecordOperation::dumped() const {
  const std::string family(file, std::strcspn(file, "_["));
  const bool named = family == "LSC" || family == "ACB" || family == "OfflineAWB";
  return kCamera + (named ? kImageFolder : kTmpFolder) + "simulation_" + file;
}

std::string RecordOperation::replayed() const { return kCamera + "simulation_" + file; }
