// The decision of auto exposure, one for each exposure step that the request
// takes, and what white balance gets to know of it.
#include <simulation/records.h>

#include <algorithm>
#include <cmath>

#include "record.h"

namespace capture {
namespace {

constexpr std::uint64_t kMillisecond = 1000000;  // exposure times are in nanoseconds
constexpr std::size_t kSteps = 3;

// --- One output of auto exposure; as large as it has to be for the library

void put(Bytes* output, std::size_t offset, double value) {
  const float number = asFloat(value);
  std::memcpy(output->data() + offset, &number, sizeof number);
}

/// Twice the light with each step; a sensor gain of its own for each exposure.
Bytes aecOutput(const View& view, std::size_t step) {
  const double drcGain = 1 + 1 / (1 + 20 * luma(view.mean(Box())));
  Bytes output(AECOutputLayout::end);
  put(&output, AECOutputLayout::luxIndex, 250 + 40 * std::log2(view.gain()));
  put(&output, AECOutputLayout::digitalGain, 1 + 0.1 * luma(view.mean({0.4, 0.4, 0.6, 0.6})));
  put(&output, AECOutputLayout::drcGain, drcGain);
  put(&output, AECOutputLayout::drcGainDark, drcGain * drcGain);
  const double ofShort[3] = {1, 4, 2};  // short, long, safe
  for (std::size_t i = 0; i < 3; ++i) {
    const double light = view.gain() * ofShort[i] * static_cast<double>(1U << step);
    const double time = std::min(33.0, 8 * light);
    AECExposure exposure = {static_cast<std::uint64_t>(time * kMillisecond),
                            asFloat(8 * light / time),
                            asFloat(light),
                            {}};
    exposure.unread[0] = static_cast<std::uint8_t>(view.request());
    std::memcpy(output.data() + AECOutputLayout::exposures + i * sizeof exposure, &exposure,
                sizeof exposure);
  }
  return output;
}

Bytes aecData(const View& view) {
  Bytes steps;
  for (std::size_t step = 0; step < kSteps; ++step) {
    const Bytes output = aecOutput(view, step);
    steps.insert(steps.end(), output.begin(), output.end());
  }
  return steps;
}

void runAecData(const Call& call) {
  for (std::uint32_t step = 0; step < kSteps; ++step) {
    call.simulation.SimulationForAECData(call.info, &call.data[step * AECOutputLayout::end],
                                         call.request, call.camera, &step);
  }
}

Bytes membersOnly(const Bytes& recorded, const Bytes& live) {
  Bytes result = live;
  const auto take = [&](std::size_t at, std::size_t size) {
    std::memcpy(&result[at], &recorded[at], size);
  };
  for (std::size_t step = 0; step < kSteps; ++step) {
    const std::size_t base = step * AECOutputLayout::end;
    for (std::size_t member : {AECOutputLayout::luxIndex, AECOutputLayout::digitalGain,
                               AECOutputLayout::drcGain, AECOutputLayout::drcGainDark}) {
      take(base + member, sizeof(float));
      passThroughText(&result, base + member, 1, kXmlFormat);
    }
    for (std::size_t i = 0; i < 3; ++i) {
      const std::size_t at = base + AECOutputLayout::exposures + i * sizeof(AECExposure);
      take(at, offsetof(AECExposure, unread));
      passThroughText(&result, at + offsetof(AECExposure, gain), 2, kXmlFormat);
    }
  }
  return result;
}

// --- What white balance gets to know

/// The bytes above the first count the requests since exposure settled.
Bytes awbExposure(const View& view) {
  AWBExposureInfo info = {};
  info.luxIndex = asFloat(250 + 40 * std::log2(view.gain()));
  info.AECSettled = static_cast<std::int32_t>(view.index() << 8 | 1);
  info.frameDuration = static_cast<std::uint64_t>(33.3 * kMillisecond * (1 + view.shakeX()));
  const WhiteBalance balance = view.whiteBalance();
  const double matrix[4] = {balance.redGain, view.shakeX(), view.shakeY(), balance.blueGain};
  std::transform(matrix, matrix + 4, info.BETemplateMatrix, asFloat);
  return bytesOf(info);
}

Bytes replayedAwbExposure(const Bytes& recorded, const Bytes& live) {
  Bytes result = recorded;
  passThroughText(&result, offsetof(AWBExposureInfo, luxIndex), 1, kXmlFormat);
  passThroughText(&result, offsetof(AWBExposureInfo, BETemplateMatrix), 4, kStreamFormat);
  const auto settled = offsetof(AWBExposureInfo, AECSettled);
  std::memcpy(&result[settled + 1], &live[settled + 1], 3);
  return result;
}

}  // namespace

std::vector<Record> aeRecords() {
  return {
      {"AECData",
       {{"AE_AECData", 0}, {"AE_AECData", 1}, {"AE_AECData", 2}},
       aecData,
       runAecData,
       {membersOnly, "what the files lack, which stays live, and the 9th digit of floats"},
       {kDumpSuccess, kReplaySuccess}},
      {"AWBAECData",
       {{"AWB_AECData"}},
       awbExposure,
       run<&Simulation::SimulationForAWBAECData>,
       {replayedAwbExposure, "AECSettled's upper bytes, which stay live, and digits of floats"}},
  };
}

}  // namespace capture
