// Any file as an ACB image and as the device orientation.
#include <algorithm>

#include "fuzz/support/fuzz.h"

const char* const fuzz::kRecordFiles[] = {
    "simulation_ACB_acb_camId[0].bin",
    "simulation_ACB_acb_orientation_camId[0].xml",
    nullptr,
};

namespace {

/// The planes' sizes come from the input's first bytes: the file then ends in
/// the first plane, in the second, or behind both.
void readImage(std::string_view input) {
  const auto sizeAt = [input](std::size_t i) {
    return input.size() > i ? static_cast<unsigned char>(input[i]) : 0U;
  };
  fuzz::Record y(sizeAt(0)), c(sizeAt(1));
  AcbImage image = {{}, {y.data(), {}, sizeAt(0)}, {c.data(), {}, sizeAt(1)}};
  SimulationInfo info = fuzz::readback();
  const fuzz::Result result = fuzz::run(fuzz::Outcome::kReturned, [&](Simulation& simulation) {
    simulation.SimulationForACB(&info, &image, 1, 0);
  });
  input.copy(y.live().data(), y.size());
  if (input.size() > y.size()) input.substr(y.size()).copy(c.live().data(), c.size());
  fuzz::require(y.isLive() && c.isLive(), "the planes get what the file has");
  fuzz::require(result.log.empty(), "a short file is no failure");
}

void readOrientation() {
  fuzz::Record record(sizeof(AcbDeviceOrientation));
  SimulationInfo info = fuzz::readback();
  const fuzz::Result result = fuzz::run(fuzz::Outcome::kReturned, [&](Simulation& simulation) {
    simulation.SimulationForACBdeviceOri(&info, record.data(), 1, 0);
  });
  fuzz::require(result.log.empty() || record.isLive(), "a failure replays nothing");
  fuzz::require(record.isLive(0, 4), "only the orientation is replayed");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = fuzz::textOf(data, size);
  fuzz::setInput(input);
  readImage(input);
  readOrientation();
  return 0;
}
