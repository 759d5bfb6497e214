#include "tests/support/all_records.h"

#include <simulation/records.h>

#include <cstring>

namespace {

Simulation& sim() { return *SimulationMgr::getInstance(); }

template <void (Simulation::*operation)(SimulationInfo*, void*, unsigned int, unsigned int)>
void plain(SimulationInfo& info, char* data, unsigned int request, unsigned int camera) {
  (sim().*operation)(&info, data, request, camera);
}

template <void (Simulation::*operation)(SimulationInfo*, void*, unsigned int, unsigned int,
                                        const char*)>
void named(SimulationInfo& info, char* data, unsigned int request, unsigned int camera) {
  (sim().*operation)(&info, data, request, camera, "text");
}

constexpr unsigned long kSizedInput = 700;
template <void (Simulation::*operation)(SimulationInfo*, void*, unsigned long, unsigned int,
                                        unsigned int)>
void sized(SimulationInfo& info, char* data, unsigned int request, unsigned int camera) {
  (sim().*operation)(&info, data, kSizedInput, request, camera);
}

void aec(SimulationInfo& info, char* data, unsigned int request, unsigned int camera) {
  std::uint32_t ev = 3;
  sim().SimulationForAECData(&info, data, request, camera, &ev);
}

constexpr int kFloats = 90;
void extension(SimulationInfo& info, char* data, unsigned int request, unsigned int camera) {
  float floats[kFloats];
  std::memcpy(floats, data, sizeof floats);
  sim().SimulationForAWBExtensionInfo(&info, floats, kFloats, request, camera);
  std::memcpy(data, floats, sizeof floats);
}

void offline(SimulationInfo& info, char* data, unsigned int request, unsigned int camera) {
  char* const config = data + sizeof(BayerGridOutput);
  sim().SimulationForOfflineAWBBGStats(&info, data, config, request, camera);
}

void faces(SimulationInfo& info, char* data, unsigned int request, unsigned int camera) {
  sim().SimulationForFDResult(&info, data, 4, data + 4, 8, data + 12, 800, data + 812, 60,
                              data + 872, 100, data + 972, 28, request, camera);
}

void lsc(SimulationInfo& info, char* data, unsigned int, unsigned int) {
  LscTable table;
  std::memcpy(table, data, sizeof table);
  sim().simulationForLscMeta(&info, table, &table[0][0][0], 0, "preview", 1);
  std::memcpy(data, table, sizeof table);
}

constexpr std::uint32_t kY = 40000;
void acb(SimulationInfo& info, char* data, unsigned int request, unsigned int camera) {
  AcbImage image = {{}, {data, {}, kY}, {data + kY, {}, kY / 2}};
  sim().SimulationForACB(&info, &image, request, camera);
}

void put(Bytes& bytes, std::size_t at, std::uint32_t word) {
  std::memcpy(&bytes[at], &word, sizeof word);
}

}  // namespace

#define OPERATION(name) "SimulationFor" #name
#define PLAIN(name) plain<&Simulation::SimulationFor##name>

const std::array<RecordOperation, 26> kAllRecords = {{
    {OPERATION(AECData), 2048, false, 1, aec},
    {OPERATION(AWBAECData), sizeof(AWBExposureInfo), false, 1, PLAIN(AWBAECData)},
    {OPERATION(AWBParsedStatsOutput), sizeof(BayerGridOutput), true, 1,
     named<&Simulation::SimulationForAWBParsedStatsOutput>},
    {OPERATION(AWBFaceROI), 1784, true, 1, PLAIN(AWBFaceROI)},
    {OPERATION(AWBISPStatsConfig), 144, true, 1,
     named<&Simulation::SimulationForAWBISPStatsConfig>},
    {OPERATION(AWBTuningMode), 60, true, 1, PLAIN(AWBTuningMode)},
    {OPERATION(AWBExtensionInfo), kFloats * sizeof(float), true, 1, extension},
    {OPERATION(AWBFrameControlData), 888, true, 1, PLAIN(AWBFrameControlData)},
    {OPERATION(AWBinputColorData), kSizedInput, false, 1,
     sized<&Simulation::SimulationForAWBinputColorData>},
    {OPERATION(CVPTransformData), kSizedInput, false, 1,
     sized<&Simulation::SimulationForCVPTransformData>},
    {OPERATION(AWBExtExposure), 24, false, 1, PLAIN(AWBExtExposure)},
    {OPERATION(OfflineAWBBGStats), sizeof(BayerGridOutput) + 144, false, 2, offline},
    {OPERATION(QsegImageData), sizeof(QSegImageInfo), false, 1, PLAIN(QsegImageData)},
    {OPERATION(ZOAWBFaceDectionInfo), 964, true, 1, PLAIN(ZOAWBFaceDectionInfo)},
    {OPERATION(ZOAWBFaceColorDectionInfo), 204, true, 1, PLAIN(ZOAWBFaceColorDectionInfo)},
    {OPERATION(ZOAWBWideAlwaysOnStatus), 4, false, 1, PLAIN(ZOAWBWideAlwaysOnStatus)},
    {OPERATION(ZOAWBSyncInfo), 4, false, 1, PLAIN(ZOAWBSyncInfo)},
    {OPERATION(ZOAWBPureColorRes), 12, false, 1, PLAIN(ZOAWBPureColorRes)},
    {OPERATION(ZOAWBLightSrcClassify), 28, false, 1, PLAIN(ZOAWBLightSrcClassify)},
    {OPERATION(OTPCalibrationFactor), 4 + 3 * 16, false, 1, PLAIN(OTPCalibrationFactor)},
    {OPERATION(ZoAWBSpectralSensorInfo), sizeof(SpectralSensorInfo), false, 1,
     PLAIN(ZoAWBSpectralSensorInfo)},
    {OPERATION(FDResult), 1000, false, 1, faces},
    {OPERATION(FDROIData), kFdRoiSize, true, 1, PLAIN(FDROIData)},
    {"simulationForLscMeta", sizeof(LscTable), false, 1, lsc},
    {OPERATION(ACB), kY + kY / 2, false, 1, acb},
    {OPERATION(ACBdeviceOri), 8, false, 1, PLAIN(ACBdeviceOri)},
}};

void RecordOperation::run(std::uint32_t mode, Bytes& data, unsigned int request,
                          unsigned int camera, const char* folder) const {
  SimulationInfo info = {{}, folder, mode};
  call(info, data.data(), request, camera);
}

Bytes RecordOperation::memory(unsigned int seed) const {
  Bytes bytes(size);
  for (std::uint32_t at = 0; at + 4 <= size; at += 4) {
    put(bytes, at, 0x3F800000 + (seed * 7919 + at * 131) % 0x7FFFFF);
  }
  if (size >= sizeof(BayerGridOutput)) {
    put(bytes, 0, BayerGridOutput::kHasSatInfo);
    put(bytes, offsetof(BayerGridOutput, numROIs), 600);  // more than one buffer of text
  }
  if (call == PLAIN(OTPCalibrationFactor)) put(bytes, 0, 3);
  if (call == PLAIN(AWBTuningMode)) put(bytes, 16, 7), put(bytes, 24, 7);  // what must fit
  return bytes;
}
