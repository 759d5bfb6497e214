#include <fcntl.h>
#include <simulation/records.h>
#include <unistd.h>

#include <memory>
#include <sstream>

#include "bench/plain/files.h"
#include "bench/plain/plain.h"

namespace bench::plain {
namespace {

using tinyxml2::XMLElement;
using Regions = std::unique_ptr<BGRegionStats[]>;

template <typename Value>
void dumpField(XMLElement& parent, const char* name, const Regions& regions, std::size_t count,
               Value BGRegionStats::*field) {
  std::ostringstream text;
  for (std::size_t i = 0; i < count; ++i) text << regions[i].*field << " ";
  append(parent, name, text.str().c_str());
}

template <typename Value>
void readField(const XMLElement& parent, const char* name, const Regions& regions, std::size_t,
               Value BGRegionStats::*field) {
  std::istringstream text(parent.FirstChildElement(name)->GetText());
  Value value;
  for (std::size_t i = 0; i < BayerGridOutput::kMaxRegions && text >> value; ++i) {
    regions[i].*field = value;
  }
}

template <typename DoSum, typename DoCount>
void forEachField(DoSum sum, DoCount count) {
  sum("RSum", &BGRegionStats::RSum);
  sum("BSum", &BGRegionStats::BSum);
  sum("GRorGSum", &BGRegionStats::GRorGSum);
  sum("GBSum", &BGRegionStats::GBSum);
  sum("YSum", &BGRegionStats::YSum);
  count("RCount", &BGRegionStats::RCount);
  count("BCount", &BGRegionStats::BCount);
  count("GRorGCount", &BGRegionStats::GRorGCount);
  count("GBCount", &BGRegionStats::GBCount);
  count("YCount", &BGRegionStats::YCount);
}

void dumpHeader(XMLElement& element, const BayerGridOutput& grid) {
  element.SetAttribute("usesY", grid.flags & 1);
  element.SetAttribute("hasSatInfo", grid.flags >> 1 & 1);
  element.SetAttribute("numROIs", grid.numROIs);
  element.SetAttribute("horizontal_num", grid.horizontal_num);
  element.SetAttribute("vertical_num", grid.vertical_num);
  element.SetAttribute("BLStretchFactor", grid.BLStretchFactor);
  std::ostringstream thresholds;
  for (const std::uint32_t threshold : grid.channelGainThreshold) thresholds << threshold << " ";
  element.SetAttribute("channelGainThreshold", thresholds.str().c_str());
}

void dump(const std::string& path, const BayerGridOutput& grid) {
  tinyxml2::XMLDocument document;
  const Regions copy(new BGRegionStats[BayerGridOutput::kMaxRegions + 1]());
  const bool paired = (grid.flags & BayerGridOutput::kHasSatInfo) != 0;
  for (std::size_t i = 0; i < grid.numROIs; ++i) {
    copy[i] = paired ? grid.pairs[i].first : grid.regions[i];
  }
  XMLElement& element = append(append(document, "SimulationData"), "AWBBGStats");
  dumpHeader(element, grid);
  const auto field = [&](const char* name, auto member) {
    dumpField(element, name, copy, grid.numROIs, member);
  };
  forEachField(field, field);
  document.SaveFile(path.c_str());
}

void readBack(const std::string& path, BayerGridOutput& grid) {
  tinyxml2::XMLDocument document;
  document.LoadFile(path.c_str());
  const Regions copy(new BGRegionStats[BayerGridOutput::kMaxRegions + 1]());
  const XMLElement& element = *document.FirstChildElement()->FirstChildElement("AWBBGStats");
  const auto field = [&](const char* name, auto member) {
    readField(element, name, copy, 0, member);
  };
  forEachField(field, field);
  const std::size_t count = element.UnsignedAttribute("numROIs");
  const bool paired = element.UnsignedAttribute("hasSatInfo") != 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (paired) {
      grid.pairs[i] = {copy[i], copy[i + 1]};
    } else {
      grid.regions[i] = copy[i];
    }
  }
}

void statistics(Call& call, const char* name, void* data) {
  auto& grid = *static_cast<BayerGridOutput*>(data);
  const std::string path = requestFile(call, name, ".xml");
  isDump(call) ? dump(path, grid) : readBack(path, grid);
}

}  // namespace

void parsedStatistics(Call& call, void* data) {
  statistics(call, "AWB_ParsedAWBStatsOutput_preview", data);
}

void snapshotStatistics(Call& call, void* data) {
  statistics(call, "AWB_ParsedAWBStatsOutput_snapshot", data);
}

void offlineStatistics(Call& call, void* data) {
  auto& grid = *static_cast<BayerGridOutput*>(data);
  char* const config = static_cast<char*>(data) + sizeof grid;
  const std::string statsPath = namedFile(call, "OfflineAWB_ParsedAWBStatsOutput", ".xml");
  const std::string configPath = namedFile(call, "OfflineAWB_ISPAWBBGStatsConfig", ".bin");
  if (isDump(call)) {
    if (access(statsPath.c_str(), F_OK) != 0) dump(statsPath, grid);
    if (access(configPath.c_str(), F_OK) != 0) {
      writeFile(configPath, config, kConfigSize, O_RDWR | O_CREAT);
    }
  } else {
    readBack(statsPath, grid);
    Bytes staging(kConfigSize);
    if (readFile(configPath, staging.data(), kConfigSize) == kConfigSize) {
      std::copy(staging.begin(), staging.end(), config);
    }
  }
}

}  // namespace bench::plain
