// The records that are saved byte for byte.
#include <simulation/records.h>

#include "bench/plain/plain.h"
#include "bench/random.h"

namespace bench {
namespace {

constexpr std::size_t kExtensionSize = 50 * sizeof(float);
constexpr std::size_t kColorSize = 1552;
constexpr std::size_t kTransformSize = 272;

template <std::size_t size>
Bytes noise(Random& random) {
  return random.bytes(size);
}

/// All of one sensor mode, or a readback would refuse them.
Bytes tuningMode(Random& random) {
  Bytes record = random.bytes(60);
  std::memset(record.data() + 16, 1, 12);
  return record;
}

using Operation = void (Simulation::*)(SimulationInfo*, void*, unsigned int, unsigned int);
using SizedOperation = void (Simulation::*)(SimulationInfo*, void*, unsigned long, unsigned int,
                                            unsigned int);

template <Operation operation>
void library(Call& call, void* data) {
  (simulation().*operation)(&call.info, data, call.request, call.input);
}

template <SizedOperation operation, std::size_t size>
void librarySized(Call& call, void* data) {
  (simulation().*operation)(&call.info, data, size, call.request, call.input);
}

void libraryIspConfig(Call& call, void* data) {
  simulation().SimulationForAWBISPStatsConfig(&call.info, data, call.request, call.input,
                                              "preview");
}

void libraryExtension(Call& call, void* data) {
  simulation().SimulationForAWBExtensionInfo(&call.info, static_cast<float*>(data),
                                             kExtensionSize / sizeof(float), call.request,
                                             call.input);
}

void libraryFaceResult(Call& call, void* data) {
  char* const b = static_cast<char*>(data);
  constexpr auto& s = plain::kFaceBlocks;
  simulation().SimulationForFDResult(&call.info, b, s[0], b + s[0], s[1], b + s[0] + s[1], s[2],
                                     b + s[0] + s[1] + s[2], s[3], b + s[0] + s[1] + s[2] + s[3],
                                     s[4], b + s[0] + s[1] + s[2] + s[3] + s[4], s[5], call.request,
                                     call.input);
}

}  // namespace

Families stagedBinaries(std::size_t inputs) {
  using S = Simulation;
  const auto of = [inputs](Bytes (*make)(Random&)) { return inputsOf(inputs, make); };
  return {
      {of(noise<1784>), library<&S::SimulationForAWBFaceROI>, plain::faceRoi},
      {of(noise<144>), libraryIspConfig, plain::ispConfig},
      {of(tuningMode), library<&S::SimulationForAWBTuningMode>, plain::tuningMode},
      {of(noise<kExtensionSize>), libraryExtension, plain::extension<kExtensionSize>},
      {of(noise<888>), library<&S::SimulationForAWBFrameControlData>, plain::frameControl},
      {of(noise<964>), library<&S::SimulationForZOAWBFaceDectionInfo>, plain::faceDection},
      {of(noise<204>), library<&S::SimulationForZOAWBFaceColorDectionInfo>, plain::faceColor},
      {of(noise<1784>), library<&S::SimulationForFDROIData>, plain::fdRoi},
  };
}

Families directBinaries(std::size_t inputs) {
  using S = Simulation;
  return {
      {inputsOf(inputs, noise<kColorSize>),
       librarySized<&S::SimulationForAWBinputColorData, kColorSize>, plain::inputColor<kColorSize>},
      {inputsOf(inputs, noise<kTransformSize>),
       librarySized<&S::SimulationForCVPTransformData, kTransformSize>,
       plain::transform<kTransformSize>},
  };
}

Families faceDetection(std::size_t inputs) {
  return {{inputsOf(inputs, noise<plain::kFaceSize>), libraryFaceResult, plain::faceResult}};
}

}  // namespace bench
