// Bayer-grid statistics to XML.
#include <simulation/simulation.h>

#include <cstring>

#include "awb/bayer_grid.h"
#include "core/bytes.h"
#include "core/fatal.h"
#include "core/log.h"
#include "core/number_text.h"
#include "core/xml_document.h"
#include "core/xml_fields.h"

namespace simulation {
namespace {

void copyHeader(const void* stats, SimulationAWBBGStats& copy) {
  std::memcpy(&copy, stats, offsetof(SimulationAWBBGStats, regions));
  copy.flags &= BayerGridOutput::kUsesY | BayerGridOutput::kHasSatInfo;
}

/// Of a pair, the first region. Aborts when there are more than fit.
void copyRegions(const void* stats, SimulationAWBBGStats& copy) {
  const bool paired = (copy.flags & BayerGridOutput::kHasSatInfo) != 0;
  const std::size_t stride = paired ? sizeof(BGRegionPair) : sizeof(BGRegionStats);
  requireBelow(copy.numROIs, BayerGridOutput::kMaxRegions + 1);
  for (std::size_t i = 0; i < copy.numROIs; ++i) {
    copy.regions[i] = load<BGRegionStats>(stats, offsetof(BayerGridOutput, regions) + i * stride);
  }
}

void writeThresholds(tinyxml2::XMLElement& element, const SimulationAWBBGStats& copy) {
  TextBuilder text(4 * (kUnsignedRoom + 1));
  for (const std::uint32_t threshold : copy.channelGainThreshold) {
    text.append(writeUnsigned, threshold);
    text.append(' ');
  }
  element.SetAttribute("channelGainThreshold", text.c_str());
}

void writeHeader(tinyxml2::XMLElement& element, const SimulationAWBBGStats& copy) {
  element.SetAttribute("usesY", copy.flags & BayerGridOutput::kUsesY);
  element.SetAttribute("hasSatInfo", copy.flags >> 1);
  element.SetAttribute("numROIs", copy.numROIs);
  element.SetAttribute("horizontal_num", copy.horizontal_num);
  element.SetAttribute("vertical_num", copy.vertical_num);
  writeFloatAttribute(element, "BLStretchFactor", &copy.BLStretchFactor);
  writeThresholds(element, copy);
}

template <typename Value>
void appendValues(TextBuilder& text, const SimulationAWBBGStats& copy, std::size_t offset) {
  for (std::size_t i = 0; i < copy.numROIs; ++i) {
    text.append(writeUnsigned, load<Value>(&copy.regions[i], offset));
    text.append(' ');
  }
}

void writeRegions(tinyxml2::XMLElement& parent, const SimulationAWBBGStats& copy) {
  for (const RegionField& field : kRegionFields) {
    TextBuilder text(copy.numROIs * (field.room + 1) + 1);
    if (field.width == 8) {
      appendValues<std::uint64_t>(text, copy, field.offset);
    } else {
      appendValues<std::uint16_t>(text, copy, field.offset);
    }
    if (text.empty()) text.append(' ');
    setNumbers(appendElement(parent, field.name), std::move(text));
  }
}

}  // namespace
}  // namespace simulation

using namespace simulation;

void Simulation::dumpAWBStatsForSimulation(void* stats, char* path) {
  if (stats == nullptr) {
    SimulationLog(kError, "failed, pBayerGridOutput is null");
    return;
  }
  const XmlDocument document = newXmlDocument();
  if (document == nullptr) {
    SimulationLog(kError, "create XMLDocument %s failed", path);
    return;
  }
  const WorkingCopy copy = newWorkingCopy();
  if (copy == nullptr) {
    SimulationLog(kError, "[%s] failed, SimulationAWBBGStats is null", path);
    return;
  }
  copyHeader(stats, *copy);
  copyRegions(stats, *copy);
  tinyxml2::XMLElement& element =
      appendElement(appendElement(*document, "SimulationData"), "AWBBGStats");
  writeHeader(element, *copy);
  writeRegions(element, *copy);
  saveXmlAndLog(*document, path, kDebug);
}
