// The inputs of extended white balance. The layouts of the two face records are
// this program's own, but for their sizes.
#include <simulation/records.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include "faces.h"
#include "record.h"

namespace capture {
namespace {

// --- Faces

struct FaceDetection {
  std::uint32_t request, camera, count;
  std::uint32_t reserved[18];
  Face faces[10];
};
static_assert(sizeof(FaceDetection) == 964);

Bytes faceDetection(const View& view) {
  const std::vector<Face> faces = findFaces(view, std::size(FaceDetection{}.faces));
  FaceDetection detection = {
      view.request(), view.camera(), static_cast<std::uint32_t>(faces.size()), {}, {}};
  std::copy(faces.begin(), faces.end(), detection.faces);
  return bytesOf(detection);
}

struct FaceColors {
  std::uint32_t request, count;
  float frame[3];
  float redGain, blueGain, temperature;
  std::uint32_t reserved[3];
  struct {
    float color[3];
    float confidence;
  } faces[10];
};
static_assert(sizeof(FaceColors) == 204);

Bytes faceColors(const View& view) {
  FaceColors colors = {};
  const WhiteBalance balance = view.whiteBalance();
  colors.request = view.request();
  copy(view.mean(Box()), colors.frame);
  colors.redGain = asFloat(balance.redGain);
  colors.blueGain = asFloat(balance.blueGain);
  colors.temperature = asFloat(balance.temperature);
  for (const Face& face : findFaces(view, std::size(colors.faces))) {
    auto& to = colors.faces[colors.count++];
    std::copy_n(face.color, 3, to.color);
    to.confidence = face.confidence;
  }
  return bytesOf(colors);
}

// --- A few numbers each

/// Bit 0: the wide camera is on; above it the request that it was asked for in.
Bytes wideAlwaysOn(const View& view) {
  return bytesOf(ZOAWBWideAlwaysOnStatus{static_cast<std::int32_t>(view.request() << 1 | 1)});
}

/// The request whose result the cameras agreed on, and the camera that led.
Bytes syncInfo(const View& view) {
  return bytesOf(ZOAWBSyncInfo{static_cast<std::int32_t>(view.request() << 4 | view.camera())});
}

/// Noise makes every result less certain.
double certainty(const View& view) { return 1 / (1 + 0.01 * view.gain()); }

/// 1 when every part of the frame has the same colour.
double uniformity(const View& view) {
  const Rgb mean = view.mean(Box());
  double difference = 0;
  for (const Rgb& cell : view.grid(8, 6)) {
    const double scale = luma(mean) / std::max(luma(cell), 1e-6);
    difference += std::hypot(cell.r * scale - mean.r, cell.b * scale - mean.b);
  }
  return 1 / (1 + difference / 48 / std::max(luma(mean), 1e-6));
}

Bytes pureColor(const View& view) {
  const double uniform = uniformity(view) * certainty(view);
  const auto faces = findFaces(view, 1);
  return bytesOf(ZOAWBPureColorRes{uniform > 0.8 ? 1 : 0, asFloat(uniform),
                                   asFloat(faces.empty() ? 0 : uniform * faces[0].confidence)});
}

/// The two most likely lights, on a scale from lamps to a clear sky.
Bytes lightSource(const View& view) {
  constexpr double kLights[] = {2856, 4000, 5000, 6500, 7500};
  const double temperature = view.whiteBalance().temperature;
  std::size_t second = 1;
  while (second + 1 < std::size(kLights) && kLights[second] < temperature) ++second;
  const double low = kLights[second - 1], high = kLights[second];
  const double ofHigh = std::clamp((temperature - low) / (high - low), 0.0, 1.0);
  const double sure = certainty(view);
  return bytesOf(ZOAWBLightSrcClassify{
      1, asFloat((1 - ofHigh) * sure), asFloat(ofHigh * sure), asFloat(low), asFloat(high),
      asFloat(sure), static_cast<std::int32_t>(ofHigh < 0.5 ? second - 1 : second)});
}

// --- Calibration of the camera modules under the present light

constexpr std::size_t kModules = 4;

Bytes otpCalibration(const View& view) {
  const Rgb grey = view.grey();
  Bytes table = bytesOf(WBOTPCalibrationHead{kModules});
  for (std::size_t i = 0; i < kModules; ++i) {
    const double spread = 1 + 0.01 * static_cast<double>(i + view.camera());
    const Bytes entry = bytesOf(WBOTPCalibrationEntry{{view.request(), view.camera()},
                                                      asFloat(grey.r / grey.g * spread),
                                                      asFloat(grey.b / grey.g / spread)});
    table.insert(table.end(), entry.begin(), entry.end());
  }
  return table;
}

Bytes replayedOtp(const Bytes& recorded, const Bytes& live) {
  constexpr std::size_t kPair = offsetof(WBOTPCalibrationEntry, rOverG);
  Bytes result = live;
  for (std::size_t i = 0; i < kModules; ++i) {
    const std::size_t pair =
        sizeof(WBOTPCalibrationHead) + i * sizeof(WBOTPCalibrationEntry) + kPair;
    std::memcpy(&result[pair], &recorded[sizeof(WBOTPCalibrationHead) + kPair], 2 * sizeof(float));
    passThroughText(&result, pair, 2, kXmlFormat);
  }
  return result;
}

// --- The spectral sensor, which sees what is in front of the device

/// Its sensitivity to one primary, centred on `peak`, at a wavelength, both in nanometres.
double response(double peak, double wavelength) {
  const double distance = (wavelength - peak) / 45;
  return std::exp(-distance * distance / 2);
}

double signalAt(double wavelength, Rgb light) {
  return light.r * response(610, wavelength) + light.g * response(545, wavelength) +
         light.b * response(460, wavelength);
}

/// The channels stand from 390 to 770 nm. Those with a signal are counted.
Bytes spectralSensor(const View& view) {
  const Rgb light = view.ambient();
  const Chromaticity color = chromaticityOf(light);
  SpectralSensorInfo info = {};
  info.enabled = 1;
  info.cct = asFloat(temperatureOf(color));
  info.lux = asFloat(400 / view.gain());
  info.irRatio1 = asFloat(0.1 * light.r / (luma(light) + 1e-6));
  info.irRatio2 = asFloat(0.05 * light.r / (light.b + 1e-6));
  info.irRatio3 = info.irRatio1 * info.irRatio2;
  for (std::size_t i = 0; i < SpectralSensorInfo::kChannels; ++i) {
    const double signal = signalAt(390 + 20 * static_cast<double>(i), light);
    info.channelDatas[i] = asFloat(65535 * signal);
    if (signal > 0.02) ++info.channelNum;
  }
  info.x = asFloat(color.x);
  info.y = asFloat(color.y);
  info.als_gain = view.gain() > 1 ? 64 : 16;
  info.flickerFrequency = asFloat(100.5 + 40 * view.shakeX());
  info.atime = 29;
  info.again_idx = view.gain() > 1 ? 6 : 4;
  info.sensorType = 2;
  return bytesOf(info);
}

Bytes replayedSpectral(const Bytes& recorded, const Bytes& live) {
  Bytes result = recorded;
  const auto channels = offsetof(SpectralSensorInfo, channelDatas);
  passThroughText(&result, offsetof(SpectralSensorInfo, cct), 5, kXmlFormat);
  passThroughText(&result, channels, SpectralSensorInfo::kChannels, kStreamFormat);
  passThroughText(&result, offsetof(SpectralSensorInfo, x), 2, kXmlFormat);
  auto info = structureIn<SpectralSensorInfo>(result);
  info.channelNum = structureIn<SpectralSensorInfo>(live).channelNum;
  info.flickerFrequency = std::floor(info.flickerFrequency);
  return bytesOf(info);
}

}  // namespace

std::vector<Record> zoawbRecords() {
  return {
      {"FaceDectionInfo",
       {{"ZOAWB_FaceDectionInfo"}},
       faceDetection,
       run<&Simulation::SimulationForZOAWBFaceDectionInfo>},
      {"FaceColorDection",
       {{"ZOAWB_FaceColorDectionInfo"}},
       faceColors,
       run<&Simulation::SimulationForZOAWBFaceColorDectionInfo>},
      {"WideAlwaysOnStatus",
       {{"ZOAWB_WideAlwaysOnStatus"}},
       wideAlwaysOn,
       run<&Simulation::SimulationForZOAWBWideAlwaysOnStatus>},
      {"SyncInfo", {{"ZOAWB_SyncInfo"}}, syncInfo, run<&Simulation::SimulationForZOAWBSyncInfo>},
      {"PureColorRes",
       {{"ZOAWB_PureColorRes"}},
       pureColor,
       run<&Simulation::SimulationForZOAWBPureColorRes>,
       {floatsThroughText<kXmlFormat, 1, 2>, kNinthDigit}},
      {"LightSrcClassify",
       {{"ZOAWB_LightSrcClassify"}},
       lightSource,
       run<&Simulation::SimulationForZOAWBLightSrcClassify>,
       {floatsThroughText<kXmlFormat, 1, 5>, kNinthDigit}},
      {"OTPData",
       {{"AWB_OTPData"}},
       otpCalibration,
       run<&Simulation::SimulationForOTPCalibrationFactor>,
       {replayedOtp, "unread words, which stay live; all entries get the first one's pair"}},
      {"SpectralSensorInfo",
       {{"ZOAWB_SpectralSensorInfo"}},
       spectralSensor,
       run<&Simulation::SimulationForZoAWBSpectralSensorInfo>,
       {replayedSpectral, "channelNum, live; the fraction of the flicker; channels at 6 digits"}},
  };
}

}  // namespace capture
