// Any file as the reading of the spectral sensor. Texts that are no numbers
// throw; a 21st channel breaks a bound.
#include <tinyxml2.h>

#include <sstream>

#include "fuzz/support/fuzz.h"

const char* const fuzz::kRecordFiles[] = {"simulation_ZOAWB_SpectralSensorInfo.xml", nullptr};

namespace {

/// As many channel values as the parser and a stream find.
std::size_t channelsIn(const tinyxml2::XMLDocument& document) {
  const tinyxml2::XMLElement* root = document.FirstChildElement();
  const auto* element = root != nullptr ? root->FirstChildElement("channelDatas") : nullptr;
  const char* const text = element != nullptr ? element->GetText() : nullptr;
  std::istringstream stream(text != nullptr ? text : "");
  std::size_t count = 0;
  for (float value = 0; stream >> value;) ++count;
  return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::setInput(fuzz::textOf(data, size));
  tinyxml2::XMLDocument document;
  const bool loads = document.LoadFile(fuzz::kInputFile) == tinyxml2::XML_SUCCESS;
  SimulationInfo info = fuzz::readback();
  fuzz::Record record(sizeof(SpectralSensorInfo));
  const fuzz::Result result =
      fuzz::run(fuzz::kConversions | fuzz::kBounds, [&](Simulation& simulation) {
        simulation.SimulationForZoAWBSpectralSensorInfo(&info, record.data(), 1, 0);
      });
  fuzz::require(result.logged("read ") != loads, "a file that can't be loaded is logged");
  fuzz::require(loads || (record.isLive() && result.returned), "and replays nothing");
  fuzz::require(!result.returned || !loads || channelsIn(document) <= SpectralSensorInfo::kChannels,
                "more channels than the record holds don't go unnoticed");
  fuzz::require(!result.keptDocument, "the document is released");
  return 0;
}
