#include "lsc/gain_table.h"

#include <simulation/records.h>

#include <cstring>
#include <string_view>
#include <vector>

#include "core/bytes.h"
#include "core/log.h"
#include "core/number_text.h"
#include "core/xml_document.h"

namespace simulation {
namespace {

constexpr char kInfo[] = "LensShadingInfo";
constexpr const char* kChannels[kLscChannels] = {"rGain", "grGain", "gbGain", "bGain"};

/// A line for each row, a blank behind each gain.
TextBuilder gridText(const void* table, std::size_t channel) {
  TextBuilder text(kLscRows * (kLscColumns * (kFixedFloatRoom + 1) + 1));
  std::size_t gain = channel;
  for (std::size_t row = 0; row < kLscRows; ++row) {
    for (std::size_t column = 0; column < kLscColumns; ++column, gain += kLscChannels) {
      text.append(writeFixedFloat, load<float>(table, gain * sizeof(float)));
      text.append(' ');
    }
    text.append('\n');
  }
  return text;
}

/// The gains that a blank ends; what follows the last blank is none.
std::vector<float> splitGains(const char* text) {
  std::vector<float> gains;
  if (text == nullptr) return gains;
  for (const char* blank; (blank = std::strchr(text, ' ')) != nullptr; text = blank + 1) {
    gains.push_back(toFloat(std::string_view(text, static_cast<std::size_t>(blank - text))));
  }
  return gains;
}

}  // namespace

void dumpGainTable(const void* table, const char* path) {
  tinyxml2::XMLDocument document;
  tinyxml2::XMLElement& info = appendElement(appendElement(document, "SimulationData"), kInfo);
  info.SetAttribute("width", static_cast<unsigned int>(kLscColumns));
  info.SetAttribute("height", static_cast<unsigned int>(kLscRows));
  for (std::size_t channel = 0; channel < kLscChannels; ++channel) {
    appendElement(info, kChannels[channel]).SetText(gridText(table, channel).c_str());
  }
  saveXmlAndLog(document, path, kError);
}

bool readGainTable(const char* path, float* outTable) {
  tinyxml2::XMLDocument document;
  if (document.LoadFile(path) != tinyxml2::XML_SUCCESS) {
    SimulationLog(kError, "load %s failed", path);
    return false;
  }
  const tinyxml2::XMLElement* root = document.FirstChildElement();
  const tinyxml2::XMLElement* info = root != nullptr ? root->FirstChildElement(kInfo) : nullptr;
  if (info == nullptr) return false;
  const tinyxml2::XMLElement* element = info->FirstChildElement(kChannels[0]);
  for (std::size_t channel = 0; element != nullptr; ++channel) {
    const std::vector<float> gains = splitGains(element->GetText());
    for (std::size_t i = 0; i < gains.size(); ++i) outTable[channel + kLscChannels * i] = gains[i];
    element = element->NextSiblingElement();
  }
  return true;
}

}  // namespace simulation
