// Any file as each of the small records of the extended white balance, and as
// the calibration of the sensor.
#include <tinyxml2.h>

#include "fuzz/support/fuzz.h"

const char* const fuzz::kRecordFiles[] = {
    "simulation_ZOAWB_WideAlwaysOnStatus_camId[0].xml",
    "simulation_ZOAWB_SyncInfo_camId[0].xml",
    "simulation_ZOAWB_PureColorRes_camId[0].xml",
    "simulation_ZOAWB_LightSrcClassify_camId[0].xml",
    "simulation_AWB_OTPData_camId[0].xml",
    nullptr,
};

namespace {

using Operation = void (Simulation::*)(SimulationInfo*, void*, unsigned int, unsigned int);

void readFlat(Operation operation, std::size_t size, bool loads) {
  SimulationInfo info = fuzz::readback();
  fuzz::Record record(size);
  const fuzz::Result result = fuzz::run(fuzz::kConversions, [&](Simulation& simulation) {
    (simulation.*operation)(&info, record.data(), 1, 0);
  });
  fuzz::require(result.logged("read ") != loads, "a file that can't be loaded is logged");
  fuzz::require(loads || (record.isLive() && result.returned), "and replays nothing");
  fuzz::require(result.keptDocument != result.returned,
                "the document is kept when a conversion throws");
}

void readCalibration(std::uint32_t entries, bool loads) {
  constexpr std::size_t kHead = sizeof(WBOTPCalibrationHead);
  constexpr std::size_t kEntry = sizeof(WBOTPCalibrationEntry);
  SimulationInfo info = fuzz::readback();
  fuzz::Record table(kHead + entries * kEntry);
  table.set(0, entries);
  const fuzz::Result result = fuzz::run(fuzz::kReturnOnly, [&](Simulation& simulation) {
    simulation.SimulationForOTPCalibrationFactor(&info, table.data(), 1, 0);
  });
  fuzz::require(result.log.size() == (loads ? 0 : entries), "each failed load is logged");
  fuzz::require(loads || table.isLive(), "and replays nothing");
  fuzz::require(table.isLive(0, kHead), "the count stays live");
  for (std::size_t i = 0; i < entries; ++i) {
    const std::size_t begin = kHead + i * kEntry;
    fuzz::require(table.isLive(begin, begin + 8), "only the gains are replayed");
  }
  fuzz::require(!result.keptDocument, "the documents are released");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::setInput(fuzz::textOf(data, size));
  tinyxml2::XMLDocument document;
  const bool loads = document.LoadFile(fuzz::kInputFile) == tinyxml2::XML_SUCCESS;
  readFlat(&Simulation::SimulationForZOAWBWideAlwaysOnStatus, sizeof(ZOAWBWideAlwaysOnStatus),
           loads);
  readFlat(&Simulation::SimulationForZOAWBSyncInfo, sizeof(ZOAWBSyncInfo), loads);
  readFlat(&Simulation::SimulationForZOAWBPureColorRes, sizeof(ZOAWBPureColorRes), loads);
  readFlat(&Simulation::SimulationForZOAWBLightSrcClassify, sizeof(ZOAWBLightSrcClassify), loads);
  readCalibration(size % 4, loads);
  return 0;
}
