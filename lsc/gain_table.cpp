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
std::vector<float> splitGains(std::string_view text) {
  std::vector<float> gains;
  gains.reserve(kLscRows * kLscColumns);
  for (std::size_t blank; (blank = text.find(' ')) != std::string_view::npos;) {
    gains.push_back(toFloat(text.substr(0, blank)));
    text.remove_prefix(blank + 1);
  }
  return gains;
}

}  // namespace

void dumpGainTable(const void* table, const char* path) {
  RecordDocument document;
  tinyxml2::XMLElement& info = appendElement(appendElement(document, "SimulationData"), kInfo);
  info.SetAttribute("width", static_cast<unsigned int>(kLscColumns));
  info.SetAttribute("height", static_cast<unsigned int>(kLscRows));
  for (std::size_t channel = 0; channel < kLscChannels; ++channel) {
    setNumbers(appendElement(info, kChannels[channel]), gridText(table, channel));
  }
  saveXmlAndLog(document, path, kError);
}

bool readGainTable(const char* path, float* outTable) {
  RecordDocument document;
  if (document.load(path) != tinyxml2::XML_SUCCESS) {
    SimulationLog(kError, "load %s failed", path);
    return false;
  }
  const tinyxml2::XMLElement* root = document.FirstChildElement();
  const tinyxml2::XMLElement* info = root != nullptr ? root->FirstChildElement(kInfo) : nullptr;
  if (info == nullptr) return false;
  const tinyxml2::XMLElement* element = info->FirstChildElement(kChannels[0]);
  for (std::size_t channel = 0; element != nullptr; ++channel) {
    const std::vector<float> gains = splitGains(textOf(*element));
    for (std::size_t i = 0; i < gains.size(); ++i) outTable[channel + kLscChannels * i] = gains[i];
    element = element->NextSiblingElement();
  }
  return true;
}

}  // namespace simulation
