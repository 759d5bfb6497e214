// The ten XML records of a few numbers each.
#include <simulation/records.h>

#include "bench/plain/plain.h"
#include "bench/random.h"

namespace bench {
namespace {

template <typename Value>
void put(Bytes& record, std::size_t offset, Value value) {
  std::memcpy(record.data() + offset, &value, sizeof value);
}

Bytes exposureDecision(Random& random) {
  using Layout = AECOutputLayout;
  Bytes record(Layout::end);
  for (const std::size_t offset :
       {Layout::luxIndex, Layout::digitalGain, Layout::drcGain, Layout::drcGainDark}) {
    put(record, offset, random.real(1, 500));
  }
  for (std::size_t i = 0; i < 3; ++i) {
    const AECExposure exposure = {
        random.integer(100000ULL, 66000000ULL), random.real(1, 16), random.real(100, 3200), {}};
    put(record, Layout::exposures + i * sizeof exposure, exposure);
  }
  return record;
}

Bytes exposureInfo(Random& random) {
  return bytesOf(AWBExposureInfo{
      random.real(0, 500),
      random.integer(0, 1),
      random.integer(8000000ULL, 66000000ULL),
      {random.real(0, 1), random.real(0, 1), random.real(0, 1), random.real(0, 1)}});
}

Bytes extendedExposure(Random& random) {
  float values[6];
  for (float& value : values) value = random.real(0, 1000);
  return bytesOf(values);
}

Bytes wideAlwaysOn(Random& random) {
  return bytesOf(ZOAWBWideAlwaysOnStatus{random.integer(0, 4)});
}

Bytes syncInfo(Random& random) { return bytesOf(ZOAWBSyncInfo{random.integer(-1, 100000)}); }

Bytes pureColor(Random& random) {
  return bytesOf(ZOAWBPureColorRes{random.integer(0, 1), random.real(0, 1), random.real(0, 1)});
}

Bytes lightSource(Random& random) {
  return bytesOf(ZOAWBLightSrcClassify{random.integer(0, 1), random.real(0, 1), random.real(0, 1),
                                       random.real(2300, 7500), random.real(2300, 7500),
                                       random.real(0, 1), random.integer(0, 8)});
}

struct Calibration {
  WBOTPCalibrationHead head;
  WBOTPCalibrationEntry entries[3];
};

Bytes calibration(Random& random) {
  Calibration table = {{3}, {}};
  for (auto& entry : table.entries) entry = {{}, random.real(0.3F, 1), random.real(0.3F, 1)};
  return bytesOf(table);
}

Bytes spectralSensor(Random& random) {
  SpectralSensorInfo info = {};
  info.enabled = 1;
  info.cct = random.real(2300, 7500);
  info.lux = random.real(0, 20000);
  for (float* ratio : {&info.irRatio1, &info.irRatio2, &info.irRatio3, &info.x, &info.y}) {
    *ratio = random.real(0, 1);
  }
  for (float& channel : info.channelDatas) channel = random.real(0, 65535);
  info.als_gain = random.integer(0U, 256U);
  info.flickerFrequency = random.real(0, 120);
  info.atime = random.integer(0, 255);
  info.again_idx = random.integer(0, 10);
  info.sensorType = random.integer(0, 5);
  return bytesOf(info);
}

Bytes orientation(Random& random) {
  return bytesOf(AcbDeviceOrientation{0, 90 * random.integer(0, 3)});
}

using Operation = void (Simulation::*)(SimulationInfo*, void*, unsigned int, unsigned int);

template <Operation operation>
void library(Call& call, void* data) {
  (simulation().*operation)(&call.info, data, call.request, call.input);
}

void libraryExposureDecision(Call& call, void* data) {
  simulation().SimulationForAECData(&call.info, data, call.request, call.input, &call.input);
}

}  // namespace

Families smallXmlRecords(std::size_t inputs) {
  using S = Simulation;
  const auto of = [inputs](Bytes (*make)(Random&)) { return inputsOf(inputs, make); };
  return {
      {of(exposureDecision), libraryExposureDecision, plain::exposureDecision},
      {of(exposureInfo), library<&S::SimulationForAWBAECData>, plain::exposureInfo},
      {of(extendedExposure), library<&S::SimulationForAWBExtExposure>, plain::extendedExposure},
      {of(wideAlwaysOn), library<&S::SimulationForZOAWBWideAlwaysOnStatus>, plain::wideAlwaysOn},
      {of(syncInfo), library<&S::SimulationForZOAWBSyncInfo>, plain::syncInfo},
      {of(pureColor), library<&S::SimulationForZOAWBPureColorRes>, plain::pureColor},
      {of(lightSource), library<&S::SimulationForZOAWBLightSrcClassify>, plain::lightSource},
      {of(calibration), library<&S::SimulationForOTPCalibrationFactor>, plain::calibration},
      {of(spectralSensor), library<&S::SimulationForZoAWBSpectralSensorInfo>,
       plain::spectralSensor},
      {of(orientation), library<&S::SimulationForACBdeviceOri>, plain::orientation},
  };
}

}  // namespace bench
