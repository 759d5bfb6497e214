#include <simulation/records.h>

#include <iomanip>
#include <map>
#include <sstream>

#include "bench/plain/files.h"
#include "bench/plain/plain.h"

namespace bench::plain {
namespace {

constexpr const char* kChannels[kLscChannels] = {"rGain", "grGain", "gbGain", "bGain"};
std::map<std::string, unsigned short> indices;

void dump(const std::string& path, const LscTable& table) {
  tinyxml2::XMLDocument document;
  tinyxml2::XMLElement& info = append(append(document, "SimulationData"), "LensShadingInfo");
  info.SetAttribute("width", 17U);
  info.SetAttribute("height", 13U);
  for (std::size_t channel = 0; channel < kLscChannels; ++channel) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(6);
    for (const auto& row : table) {
      for (const auto& cell : row) text << cell[channel] << " ";
      text << "\n";
    }
    append(info, kChannels[channel], text.str().c_str());
  }
  document.SaveFile(path.c_str());
}

std::vector<float> split(const std::string& text) {
  std::vector<float> gains;
  std::string token;
  for (const char character : text) {
    if (character != ' ') {
      token += character;
      continue;
    }
    gains.push_back(std::stof(token));
    token.clear();
  }
  return gains;
}

void readBack(const std::string& path, float* table) {
  tinyxml2::XMLDocument document;
  document.LoadFile(path.c_str());
  const auto* element = document.FirstChildElement()->FirstChildElement()->FirstChildElement();
  for (std::size_t channel = 0; channel < kLscChannels; ++channel) {
    const std::vector<float> gains = split(element->GetText());
    for (std::size_t i = 0; i < gains.size(); ++i) table[channel + kLscChannels * i] = gains[i];
    element = element->NextSiblingElement();
  }
}

}  // namespace

void forgetLensShading() { indices.clear(); }

void lensShading(Call& call, void* data) {
  const std::string ev = std::to_string(call.input);
  const auto [entry, isNew] =
      indices.try_emplace(std::string(call.info.folderName) + "preview" + ev);
  if (!isNew) ++entry->second;
  const std::string name =
      "simulation_LSC[preview]_index[" + std::to_string(entry->second) + "]_ev[" + ev + "].xml";
  const std::string root = "/data/vendor/camera/";
  if (isDump(call)) {
    const std::string folder = root + call.info.folderName + "/";
    makeFolder(folder);
    dump(folder + name, *static_cast<const LscTable*>(data));
  } else {
    readBack(root + name, static_cast<float*>(data));
  }
}

}  // namespace bench::plain
