// XML back to Bayer-grid statistics: the regions only, since the live frame
// keeps its own header.
#include <simulation/simulation.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "awb/bayer_grid.h"
#include "core/bytes.h"
#include "core/listed_numbers.h"
#include "core/log.h"
#include "core/number_text.h"
#include "core/xml_document.h"

namespace simulation {
namespace {

/// A region without the gap at its end.
constexpr std::size_t kRegionFieldsSize =
    offsetof(BGRegionStats, YCount) + sizeof(BGRegionStats::YCount);

/// The values end at the first text that isn't one.
template <typename Value>
void readValues(std::string_view text, SimulationAWBBGStats& copy, std::size_t offset) {
  const char* cursor = text.data();
  const char* const end = cursor + text.size();
  std::size_t count = 0;
  const auto put = [&](Value value) { store(&copy.regions[count++], offset, value); };
  for (Value value;; put(value)) {
    takeListedNumbers<Value>(cursor, end, BayerGridOutput::kMaxRegions - count, put);
    if (count == BayerGridOutput::kMaxRegions || !extract(cursor, end, value)) return;
  }
}

void readField(const tinyxml2::XMLElement& element, const RegionField& field,
               SimulationAWBBGStats& copy) {
  const std::string_view text = textOf(element);  // empty after a dump of no regions
  if (field.width == 8) {
    readValues<std::uint64_t>(text, copy, field.offset);
  } else {
    readValues<std::uint16_t>(text, copy, field.offset);
  }
}

bool readFields(const tinyxml2::XMLElement& parent, SimulationAWBBGStats& copy) {
  for (const RegionField& field : kRegionFields) {
    const tinyxml2::XMLElement* element = findElement(parent, field.name);
    if (element == nullptr) return false;
    readField(*element, field, copy);
  }
  return true;
}

/// Pair i gets region i and region i + 1, so neighbouring pairs overlap.
void replayPairs(const SimulationAWBBGStats& copy, std::size_t count, char* regions) {
  for (std::size_t i = 0; i < count; ++i) {
    char* const pair = regions + i * sizeof(BGRegionPair);
    std::memcpy(pair, &copy.regions[i], sizeof(BGRegionStats));
    std::memcpy(pair + offsetof(BGRegionPair, second), &copy.regions[i + 1], kRegionFieldsSize);
  }
}

/// The file tells the count and the form, not the live header. What is beyond the
/// working copy isn't replayed.
void replayRegions(const tinyxml2::XMLElement& element, const SimulationAWBBGStats& copy,
                   void* stats) {
  const std::size_t count =
      std::min(element.UnsignedAttribute("numROIs"), BayerGridOutput::kMaxRegions);
  char* const regions = static_cast<char*>(stats) + offsetof(BayerGridOutput, regions);
  if (element.UnsignedAttribute("hasSatInfo") != 0) {
    replayPairs(copy, count, regions);
  } else {
    std::memcpy(regions, copy.regions, count * sizeof(BGRegionStats));
  }
}

}  // namespace
}  // namespace simulation

using namespace simulation;

void Simulation::readAWBStatsForSimulation(void* stats, char* path) {
  const XmlDocument document = newXmlDocument();
  if (document == nullptr) {
    SimulationLog(kError, "create XMLDocument failed");
    return;
  }
  const tinyxml2::XMLNode* root = loadXmlRoot(*document, path);
  if (root == nullptr) return;
  WorkingCopy copy = newWorkingCopy();
  if (copy == nullptr) {
    SimulationLog(kError, "failed, SimulationAWBBGStats is null");
    return;
  }
  const tinyxml2::XMLElement* element = findElement(*root, "AWBBGStats");
  if (element == nullptr) {
    (void)copy.release();  // kept: here the pipeline accounts for a copy that is never freed
    return;
  }
  if (!readFields(*element, *copy)) return;
  replayRegions(*element, *copy, stats);
  SimulationLog(kError, "readback %s success", path);
}
