// Bayer-grid statistics to XML.
#include <simulation/simulation.h>

#include <cstring>

#include "awb/bayer_grid.h"
#include "core/bytes.h"
#include "core/fatal.h"
#include "core/log.h"
#include "core/number_text.h"
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

void writeThresholds(XmlPrinter& printer, const SimulationAWBBGStats& copy) {
  char text[4 * (kUnsignedRoom + 1) + 1];
  char* end = text;
  for (const std::uint32_t threshold : copy.channelGainThreshold) {
    end = writeBlank(writeUnsigned(end, threshold));
  }
  *end = '\0';
  printer.PushAttribute("channelGainThreshold", text);
}

void writeHeader(XmlPrinter& printer, const SimulationAWBBGStats& copy) {
  printer.PushAttribute("usesY", copy.flags & BayerGridOutput::kUsesY);
  printer.PushAttribute("hasSatInfo", (copy.flags & BayerGridOutput::kHasSatInfo) >> 1);
  printer.PushAttribute("numROIs", copy.numROIs);
  printer.PushAttribute("horizontal_num", copy.horizontal_num);
  printer.PushAttribute("vertical_num", copy.vertical_num);
  writeFloatAttribute(printer, "BLStretchFactor", &copy.BLStretchFactor);
  writeThresholds(printer, copy);
}

template <typename Value>
void writeValues(XmlPrinter& printer, const SimulationAWBBGStats& copy, std::size_t offset) {
  printer.pushNumbers(copy.numROIs, [&](char* out, std::size_t i) {
    return writeItem(out, load<Value>(&copy.regions[i], offset));
  });
}

void writeRegions(XmlPrinter& printer, const SimulationAWBBGStats& copy) {
  for (const RegionField& field : kRegionFields) {
    printer.OpenElement(field.name);
    if (copy.numROIs == 0) {
      printer.pushCharacter(' ');
    } else if (field.width == 8) {
      writeValues<std::uint64_t>(printer, copy, field.offset);
    } else {
      writeValues<std::uint16_t>(printer, copy, field.offset);
    }
    printer.CloseElement();
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
  const auto printer = newXmlPrinter(path);
  if (printer == nullptr) {
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
  printer->OpenElement("SimulationData");
  printer->OpenElement("AWBBGStats");
  writeHeader(*printer, *copy);
  writeRegions(*printer, *copy);
  printer->CloseElement();
  printer->CloseElement();
  finishAndLog(*printer, path, kDebug);
}
