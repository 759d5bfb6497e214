#include "lsc/gain_table.h"

#include <simulation/records.h>

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

#include "core/bytes.h"
#include "core/log.h"
#include "core/number_text.h"
#include "core/record_document.h"
#include "core/xml_printer.h"

namespace simulation {
namespace {

constexpr char kInfo[] = "LensShadingInfo";
constexpr const char* kChannels[kLscChannels] = {"rGain", "grGain", "gbGain", "bGain"};

/// A line for each row, a blank behind each gain.
void writeGrid(XmlPrinter& printer, const void* table, std::size_t channel) {
  for (std::size_t row = 0; row < kLscRows; ++row) {
    printer.pushNumbers(kLscColumns, [=](char* out, std::size_t column) {
      const std::size_t cell = row * kLscColumns + column;
      const auto gain = load<float>(table, (cell * kLscChannels + channel) * sizeof(float));
      return writeBlank(writeFixedFloat(out, gain));
    });
    printer.pushCharacter('\n');
  }
}

/// The gains that a blank ends; what follows the last blank is none.
std::vector<float> splitGains(std::string_view text) {
  std::vector<float> gains;
  gains.reserve(kLscRows * kLscColumns);
  const char* const end = text.data() + text.size();
  for (const char* gain = text.data();;) {
    float value;
    const bool newRow = gain != end && *gain == '\n';
    const char* blank = takeListedFloat(newRow ? gain + 1 : gain, end, value);
    if (blank == nullptr) {
      blank = std::find(gain, end, ' ');
      if (blank == end) return gains;
      value = toFloat({gain, static_cast<std::size_t>(blank - gain)});
    }
    gains.push_back(value);
    gain = blank + 1;
  }
}

}  // namespace

void dumpGainTable(const void* table, const char* path) {
  const auto printer = std::make_unique<XmlPrinter>(path);
  printer->OpenElement("SimulationData");
  printer->OpenElement(kInfo);
  printer->PushAttribute("width", static_cast<unsigned int>(kLscColumns));
  printer->PushAttribute("height", static_cast<unsigned int>(kLscRows));
  for (std::size_t channel = 0; channel < kLscChannels; ++channel) {
    printer->OpenElement(kChannels[channel]);
    writeGrid(*printer, table, channel);
    printer->CloseElement();
  }
  printer->CloseElement();
  printer->CloseElement();
  finishAndLog(*printer, path, kError);
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
