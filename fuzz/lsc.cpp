// Any file as a lens-shading table. A readback trusts the file as to how many
// gains there are: the table here has room for all that the input can hold.
#include <algorithm>

#include "fuzz/support/plain_replay.h"

const char* const fuzz::kRecordFiles[] = {"simulation_LSC[rear]_index[0]_ev[0].xml", nullptr};

namespace {

/// The table that the parser alone finds, or null.
const tinyxml2::XMLElement* findTable(tinyxml2::XMLDocument& document) {
  if (document.LoadFile(fuzz::kInputFile) != tinyxml2::XML_SUCCESS) return nullptr;
  const tinyxml2::XMLElement* root = document.FirstChildElement();
  return root != nullptr ? root->FirstChildElement("LensShadingInfo") : nullptr;
}

/// A channel that is no list of numbers throws, and so replays nothing.
void replay(const tinyxml2::XMLElement& table, std::string& expected) {
  const tinyxml2::XMLElement* element = table.FirstChildElement("rGain");
  for (std::size_t channel = 0; element != nullptr; ++channel) {
    std::size_t place = channel;
    for (const float gain : fuzz::convertParts(
             fuzz::plainText(*element), [](const std::string& text) { return std::stof(text); })) {
      fuzz::put(expected, place * sizeof gain, gain);
      place += kLscChannels;
    }
    element = element->NextSiblingElement();
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
  fuzz::Record table(roomFor(input));
  tinyxml2::XMLDocument document;
  const tinyxml2::XMLElement* const expected = findTable(document);
  const fuzz::Outcome due = fuzz::outcomeOf([&] {
    if (expected != nullptr) replay(*expected, table.live());
  });
  SimulationInfo info = fuzz::readback();
  const LscTable unused = {};
  bool replayed = false;
  Simulation::m_LscIndex.clear();
  const fuzz::Result result = fuzz::run(due, [&](Simulation& simulation) {
    auto* const out = static_cast<float*>(table.data());
    replayed = simulation.simulationForLscMeta(&info, unused, out, 0, "rear", 0);
  });
  fuzz::require(replayed == (expected != nullptr && due == fuzz::Outcome::kReturned),
                "true means a table was found");
  fuzz::require(table.isLive(), "the gains are the file's, up to a channel that throws");
  fuzz::require(!result.keptDocument, "the document is released");
  return 0;
}
