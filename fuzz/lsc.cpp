// Any file as a lens-shading table. A readback trusts the file as to how many
// gains there are: the table here has room for all that the input can hold.
#include <tinyxml2.h>

#include <algorithm>
#include <string>

#include "fuzz/support/fuzz.h"

const char* const fuzz::kRecordFiles[] = {"simulation_LSC[rear]_index[0]_ev[0].xml", nullptr};

namespace {

/// The table that the parser alone finds, or null.
const tinyxml2::XMLElement* findTable(tinyxml2::XMLDocument& document) {
  if (document.LoadFile(fuzz::kInputFile) != tinyxml2::XML_SUCCESS) return nullptr;
  const tinyxml2::XMLElement* root = document.FirstChildElement();
  return root != nullptr ? root->FirstChildElement("LensShadingInfo") : nullptr;
}

/// What the standard conversion makes of the table, in `expected`.
void replay(const tinyxml2::XMLElement& table, std::string& expected) {
  std::size_t channel = 0;
  const tinyxml2::XMLElement* element = table.FirstChildElement("rGain");
  for (; element != nullptr; element = element->NextSiblingElement(), ++channel) {
    std::string_view rest(element->GetText() != nullptr ? element->GetText() : "");
    std::size_t gain = channel;
    for (std::size_t blank; (blank = rest.find(' ')) != rest.npos; gain += kLscChannels) {
      const float value = std::stof(std::string(rest.substr(0, blank)));
      std::memcpy(&expected[gain * sizeof value], &value, sizeof value);
      rest.remove_prefix(blank + 1);
    }
  }
}

/// Gain i of channel c stands at c + 4i. There is a blank or an entity for each
/// gain, and a tag for each channel.
std::size_t roomFor(std::string_view input) {
  const auto count = [input](char c) { return std::count(input.begin(), input.end(), c); };
  return static_cast<std::size_t>(4 * (count(' ') + count('&')) + count('<')) * sizeof(float);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = fuzz::textOf(data, size);
  fuzz::setInput(input);
  SimulationInfo info = fuzz::readback();
  fuzz::Record table(roomFor(input));
  const LscTable unused = {};
  bool replayed = false;
  Simulation::m_LscIndex.clear();
  const fuzz::Result result = fuzz::run(fuzz::kConversions, [&](Simulation& simulation) {
    auto* const out = static_cast<float*>(table.data());
    replayed = simulation.simulationForLscMeta(&info, unused, out, 0, "rear", 0);
  });
  tinyxml2::XMLDocument document;
  const tinyxml2::XMLElement* const expected = findTable(document);
  fuzz::require(result.returned || expected != nullptr, "only a table can be rejected");
  if (result.returned) {
    fuzz::require(replayed == (expected != nullptr), "true means a table was found");
    if (expected != nullptr) replay(*expected, table.live());
    fuzz::require(table.isLive(), "the gains are the file's");
  }
  fuzz::require(!result.keptDocument, "the document is released");
  return 0;
}
