// Any file as the Bayer-grid statistics, of which a file tells how many there are.
#include <tinyxml2.h>

#include <algorithm>
#include <sstream>

#include "fuzz/support/plain_replay.h"

const char* const fuzz::kRecordFiles[] = {"simulation_AWB_ParsedAWBStatsOutput_0_camId[0].xml",
                                          nullptr};

namespace {

constexpr std::size_t kHeader = offsetof(BayerGridOutput, regions);

/// The regions that lists fill, and one more that follows the last into a pair.
using Regions = std::vector<BGRegionStats>;

/// What a stream finds in a list.
template <typename Value>
void replayList(const tinyxml2::XMLElement& element, Regions& regions,
                Value BGRegionStats::*field) {
  std::istringstream text(fuzz::plainText(element));
  Value value;
  for (std::size_t i = 0; i < BayerGridOutput::kMaxRegions && text >> value; ++i) {
    regions[i].*field = value;
  }
}

/// False where a list is missing.
bool replayLists(const tinyxml2::XMLElement& stats, Regions& regions) {
  const auto replay = [&](const char* name, auto field) {
    const tinyxml2::XMLElement* const list = stats.FirstChildElement(name);
    if (list != nullptr) replayList(*list, regions, field);
    return list != nullptr;
  };
  using Region = BGRegionStats;
  return replay("RSum", &Region::RSum) && replay("BSum", &Region::BSum) &&
         replay("GRorGSum", &Region::GRorGSum) && replay("GBSum", &Region::GBSum) &&
         replay("YSum", &Region::YSum) && replay("RCount", &Region::RCount) &&
         replay("BCount", &Region::BCount) && replay("GRorGCount", &Region::GRorGCount) &&
         replay("GBCount", &Region::GBCount) && replay("YCount", &Region::YCount);
}

/// What a readback should find, by the parser and streams alone.
struct Expected {
  bool loaded = false;
  bool found = false;     ///< the element of the statistics
  bool complete = false;  ///< and all of its lists
  std::size_t count = 0;  ///< of the regions that are replayed
  bool paired = false;
  Regions regions = Regions(BayerGridOutput::kMaxRegions + 1);

  std::size_t size() const {
    return kHeader + count * (paired ? sizeof(BGRegionPair) : sizeof(BGRegionStats));
  }
};

Expected expect() {
  tinyxml2::XMLDocument document;
  Expected result;
  const bool loaded = document.LoadFile(fuzz::kInputFile) == tinyxml2::XML_SUCCESS;
  const tinyxml2::XMLNode* root = loaded ? document.FirstChild() : nullptr;
  result.loaded = root != nullptr;
  const auto* stats = result.loaded ? root->FirstChildElement("AWBBGStats") : nullptr;
  result.found = stats != nullptr;
  result.complete = result.found && replayLists(*stats, result.regions);
  if (!result.complete) return result;
  result.paired = stats->UnsignedAttribute("hasSatInfo") != 0;
  result.count = std::min(stats->UnsignedAttribute("numROIs"), BayerGridOutput::kMaxRegions);
  return result;
}

/// The gap at the end of a pair's second region stays live.
void replay(const Expected& expected, std::string& record) {
  constexpr std::size_t kFields = offsetof(BGRegionStats, YCount) + sizeof(std::uint16_t);
  std::size_t at = kHeader;
  const auto copy = [&](std::size_t region, std::size_t size) {
    std::memcpy(record.data() + at, &expected.regions[region], size);
    at += sizeof(BGRegionStats);
  };
  for (std::size_t i = 0; i < expected.count; ++i) {
    copy(i, sizeof(BGRegionStats));
    if (expected.paired) copy(i + 1, kFields);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::setInput(fuzz::textOf(data, size));
  SimulationInfo info = fuzz::readback();
  const Expected expected = expect();
  fuzz::Record stats(expected.size());
  replay(expected, stats.live());
  const fuzz::Result result = fuzz::run(fuzz::Outcome::kReturned, [&](Simulation& simulation) {
    simulation.SimulationForAWBParsedStatsOutput(&info, stats.data(), 1, 0, "0");
  });
  fuzz::require(result.claimsSuccess() == expected.complete, "success means all lists");
  fuzz::require(stats.isLive(), "the regions are the file's, the header stays live");
  fuzz::require(!result.keptDocument, "the document is released");
  fuzz::require(result.keptBlocks == (expected.loaded && !expected.found ? 1 : 0),
                "the working copy is kept on one path only");
  return 0;
}
