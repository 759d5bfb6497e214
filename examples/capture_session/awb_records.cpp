// The eight white-balance inputs. Their layouts are this program's own, but for
// the sizes and the few fields that the library looks at.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "faces.h"
#include "isp_config.h"
#include "record.h"

namespace capture {
namespace {

using SizedOperation = void (Simulation::*)(SimulationInfo*, void*, unsigned long, unsigned,
                                            unsigned);

template <SizedOperation operation>
void runSized(const Call& call) {
  (call.simulation.*operation)(call.info, call.data.data(), call.data.size(), call.request,
                               call.camera);
}

// --- Configuration of the Bayer-grid statistics, one for each stream

constexpr std::size_t kConfigSize = sizeof(IspStatsConfig);

Bytes ispStatsConfigs(const View& view) {
  Bytes both = bytesOf(ispStatsConfig(view, kPreviewGrid));
  const Bytes snapshot = bytesOf(ispStatsConfig(view, kSnapshotGrid));
  both.insert(both.end(), snapshot.begin(), snapshot.end());
  return both;
}

void runIspStatsConfigs(const Call& call) {
  const char* const streams[] = {"preview", "snapshot"};
  for (std::size_t i = 0; i < std::size(streams); ++i) {
    call.simulation.SimulationForAWBISPStatsConfig(call.info, &call.data[i * kConfigSize],
                                                   call.request, call.camera, streams[i]);
  }
}

// --- Tuning mode

struct TuningMode {
  std::uint32_t defaultMode, defaultSelector, sensorSelector, reserved0;
  std::uint16_t sensorMode, reserved1;
  std::uint32_t usecaseSelector;
  std::uint32_t usecase;  // replayed only where this and the sensor mode are the live ones
  std::uint32_t featureSelector, feature;
  std::uint32_t scene, effect;  // scene: 0 dark, 1 indoor, 2 bright
  float lux, temperature;
  std::uint32_t request, reserved2;
};
static_assert(sizeof(TuningMode) == 60);
static_assert(offsetof(TuningMode, sensorMode) == 16 && offsetof(TuningMode, usecase) == 24);

Bytes tuningMode(const View& view) {
  TuningMode mode = {};
  mode.sensorSelector = 1;
  mode.sensorMode = static_cast<std::uint16_t>(view.camera() + 1);
  mode.usecaseSelector = 2;
  mode.usecase = 4;
  mode.featureSelector = 3;
  mode.scene = view.gain() > 4 ? 0 : view.gain() > 1 ? 1 : 2;
  mode.lux = asFloat(400 / view.gain());
  mode.temperature = asFloat(view.whiteBalance().temperature);
  mode.request = view.request();
  return bytesOf(mode);
}

// --- Extension: brightness and the chromaticity of zones

Bytes extensionInfo(const View& view) {
  std::vector<float> values = {asFloat(view.gain()), asFloat(view.whiteBalance().temperature)};
  for (const Rgb& zone : view.grid(6, 4)) {
    values.push_back(asFloat((zone.r + 1e-6) / (zone.g + 1e-6)));
    values.push_back(asFloat((zone.b + 1e-6) / (zone.g + 1e-6)));
  }
  Bytes bytes(values.size() * sizeof(float));
  std::memcpy(bytes.data(), values.data(), bytes.size());
  return bytes;
}

void runExtensionInfo(const Call& call) {
  call.simulation.SimulationForAWBExtensionInfo(
      call.info, reinterpret_cast<float*>(call.data.data()),
      static_cast<int>(call.data.size() / sizeof(float)), call.request, call.camera);
}

// --- Frame control: what white balance decided for the frame, and from what

struct FrameControl {
  std::uint32_t request;
  float gains[3];
  float temperature, gain, luma;
  float colorCorrection[9];
  float mean[3], centre[3];
  std::uint32_t histogram[3][64];
  std::uint32_t reserved[8];
};
static_assert(sizeof(FrameControl) == 888);

Bytes frameControl(const View& view) {
  FrameControl control = {};
  const WhiteBalance balance = view.whiteBalance();
  const Rgb mean = view.mean(Box());
  control.request = view.request();
  copy({balance.redGain, 1, balance.blueGain}, control.gains);
  control.temperature = asFloat(balance.temperature);
  control.gain = asFloat(view.gain());
  control.luma = asFloat(luma(mean));
  // More saturation in the light of day than under lamps; each row adds up to 1.
  const double saturation = balance.temperature > 5000 ? 0.4 : 0.25;
  for (int i = 0; i < 9; ++i) {
    control.colorCorrection[i] = asFloat(i % 4 == 0 ? 1 + 2 * saturation : -saturation);
  }
  copy(mean, control.mean);
  copy(view.mean({0.4, 0.4, 0.6, 0.6}), control.centre);
  for (const Rgb& cell : view.grid(40, 30)) {
    const double channels[3] = {cell.r, cell.g, cell.b};
    for (std::size_t i = 0; i < 3; ++i) {
      ++control.histogram[i][static_cast<std::size_t>(channels[i] * 63)];
    }
  }
  return bytesOf(control);
}

// --- Input colour data: a coarse Bayer sampling of the frame

constexpr int kColorColumns = 16, kColorRows = 12;

struct InputColorData {
  std::uint32_t columns, rows, request;
  float gain;
  std::uint16_t samples[kColorColumns * kColorRows][4];  // R, Gr, Gb, B, 14 bits
};

Bytes inputColorData(const View& view) {
  InputColorData data = {kColorColumns, kColorRows, view.request(), asFloat(view.gain()), {}};
  const auto counts = [](double value) { return static_cast<std::uint16_t>(value * 16383); };
  for (int i = 0; i < kColorColumns * kColorRows; ++i) {
    // Each quarter of a cell stands for one colour of the Bayer pattern.
    const auto quarter = [&](int x, int y) {
      return view.mean(gridCell(i % kColorColumns * 2 + x, i / kColorColumns * 2 + y,
                                kColorColumns * 2, kColorRows * 2));
    };
    const std::uint16_t sample[4] = {counts(quarter(0, 0).r), counts(quarter(1, 0).g),
                                     counts(quarter(0, 1).g), counts(quarter(1, 1).b)};
    std::copy_n(sample, 4, data.samples[i]);
  }
  return bytesOf(data);
}

// --- Transform of the vision processor: the frame's movement, and where it saw texture

struct CvpTransform {
  double matrix[9];  // frame to stabilised frame, row after row
  std::uint32_t request, count;
  float texture[16][3];  // x, y, contrast of the parts of the frame
};

Bytes cvpTransform(const View& view) {
  CvpTransform transform = {
      {1, 0, -view.shakeX(), 0, 1, -view.shakeY(), 0, 0, 1}, view.request(), 16, {}};
  for (int i = 0; i < 16; ++i) {
    const Box box = gridCell(i % 4, i / 4, 4, 4);
    const double x = (box.left + box.right) / 2, y = (box.top + box.bottom) / 2;
    const double right = luma(view.mean({x, box.top, box.right, box.bottom}));
    const double left = luma(view.mean({box.left, box.top, x, box.bottom}));
    copy({x, y, std::abs(right - left) / (right + left + 1e-6)}, transform.texture[i]);
  }
  return bytesOf(transform);
}

// --- Extended exposure

struct ExtExposure {
  float safeSensitivity, longSensitivity, shortSensitivity, frameLuma, adrcGain, brightnessValue;
};
static_assert(sizeof(ExtExposure) == 24);

Bytes extExposure(const View& view) {
  const double frameLuma = luma(view.mean(Box()));
  const double adrcGain = 1 + 1 / (1 + 20 * frameLuma);
  return bytesOf(ExtExposure{asFloat(view.gain()), asFloat(view.gain() * adrcGain),
                             asFloat(view.gain() / adrcGain), asFloat(frameLuma * 255),
                             asFloat(adrcGain), asFloat(7 - std::log2(view.gain()))});
}

}  // namespace

std::vector<Record> awbRecords() {
  return {
      {"FaceROI",
       {{"AWB_FaceROI"}},
       faceRoi,
       run<&Simulation::SimulationForAWBFaceROI>,
       {keepLive<0, sizeof FaceRoi::frameBuffer>, kFrameBufferStays}},
      {"ISPStatsConfig",
       {{"AWB_ISPAWBBGStatsConfig", 0, "preview"}, {"AWB_ISPAWBBGStatsConfig", 0, "snapshot"}},
       ispStatsConfigs,
       runIspStatsConfigs},
      {"TuningMode",
       {{"AWB_TuningMode"}},
       tuningMode,
       run<&Simulation::SimulationForAWBTuningMode>,
       {},
       {nullptr, "read fileName:*.bin size(60) is not equal to we need(60) or pData is NULL"}},
      {"ExtensionInfo", {{"AWB_ExtensionInfo"}}, extensionInfo, runExtensionInfo},
      {"FrameControlData",
       {{"AWB_AWBFrameControlData"}},
       frameControl,
       run<&Simulation::SimulationForAWBFrameControlData>},
      {"inputColorData",
       {{"AWB_inputColorData"}},
       inputColorData,
       runSized<&Simulation::SimulationForAWBinputColorData>},
      {"CVPTransformData",
       {{"AWB_CVPTransformData"}},
       cvpTransform,
       runSized<&Simulation::SimulationForCVPTransformData>},
      {"ExtExposure",
       {{"AWB_ExtExposure"}},
       extExposure,
       run<&Simulation::SimulationForAWBExtExposure>,
       {floatsThroughText<kXmlFormat, 0, sizeof(ExtExposure) / sizeof(float)>, kNinthDigit}},
  };
}

}  // namespace capture
