// Any file as the exposure decision of auto exposure.
#include <tinyxml2.h>

#include "fuzz/support/fuzz.h"

const char* const fuzz::kRecordFiles[] = {"simulation_AE_AECData_camId[0]_ev[0].xml", nullptr};

namespace {

/// Whether the parser alone finds all that the readback needs.
bool isComplete() {
  tinyxml2::XMLDocument document;
  document.LoadFile(fuzz::kInputFile);
  const tinyxml2::XMLNode* root = document.FirstChild();
  bool complete = root != nullptr;
  for (const char* name : {"LuxIndex", "DigitalGain", "ExposureIndexShort", "ExposureIndexLong",
                           "ExposureIndexSafe", "DrcGain", "DrcGainDark"}) {
    complete = complete && root->FirstChildElement(name) != nullptr;
  }
  return complete;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::setInput(fuzz::textOf(data, size));
  SimulationInfo info = fuzz::readback();
  std::uint32_t ev = 0;
  fuzz::Record output(AECOutputLayout::end);
  const fuzz::Result result = fuzz::run(fuzz::Outcome::kReturned, [&](Simulation& simulation) {
    simulation.SimulationForAECData(&info, output.data(), 1, 0, &ev);
  });
  fuzz::require(!result.keptDocument, "the document is released");
  fuzz::require(result.claimsSuccess() == isComplete(), "success means all elements");
  fuzz::require(!result.logged("[") || output.isLive(), "without a root nothing is replayed");
  fuzz::require(output.isLive(0, AECOutputLayout::luxIndex), "only its members are replayed");
  for (std::size_t i = 1; i <= 3; ++i) {
    const std::size_t end = AECOutputLayout::exposures + i * sizeof(AECExposure);
    fuzz::require(output.isLive(end - 16, end), "an exposure's end stays live");
  }
  return 0;
}
