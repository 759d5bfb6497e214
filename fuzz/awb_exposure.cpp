// Any file as the exposure facts of white balance, plain and extended.
#include <tinyxml2.h>

#include "fuzz/support/fuzz.h"

const char* const fuzz::kRecordFiles[] = {
    "simulation_AWB_AECData_camId[0].xml",
    "simulation_AWB_ExtExposure_camId[0].xml",
    nullptr,
};

namespace {

constexpr std::size_t kExtExposureSize = 6 * sizeof(float);

void readExposure(SimulationInfo& info, bool loads) {
  fuzz::Record exposure(sizeof(AWBExposureInfo));
  const fuzz::Result result = fuzz::run(fuzz::Outcome::kReturned, [&](Simulation& simulation) {
    simulation.SimulationForAWBAECData(&info, exposure.data(), 1, 0);
  });
  fuzz::require(result.logged("load ") != loads, "a file that can't be loaded is logged");
  fuzz::require(loads || exposure.isLive(), "and replays nothing");
  constexpr std::size_t kSettled = offsetof(AWBExposureInfo, AECSettled);
  fuzz::require(exposure.isLive(kSettled + 1, kSettled + 4), "one byte of a truth value");
  fuzz::require(!result.keptDocument, "the document is released");
}

void readExtExposure(SimulationInfo& info, bool loads) {
  fuzz::Record exposure(kExtExposureSize);
  const fuzz::Result result = fuzz::run(fuzz::Outcome::kReturned, [&](Simulation& simulation) {
    simulation.SimulationForAWBExtExposure(&info, exposure.data(), 10, 0);
  });
  fuzz::require(result.logged("dump ") != loads, "a file that can't be loaded is logged");
  fuzz::require(loads || exposure.isLive(), "and replays nothing");
  fuzz::require(result.keptDocument, "the document is kept");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::setInput(fuzz::textOf(data, size));
  tinyxml2::XMLDocument document;
  const bool loads = document.LoadFile(fuzz::kInputFile) == tinyxml2::XML_SUCCESS;
  SimulationInfo info = fuzz::readback();
  readExposure(info, loads);
  readExtExposure(info, loads);
  return 0;
}
