// Any file as the Bayer-grid statistics, of which a file tells how many there are.
#include <tinyxml2.h>

#include <algorithm>

#include "fuzz/support/fuzz.h"

const char* const fuzz::kRecordFiles[] = {"simulation_AWB_ParsedAWBStatsOutput_0_camId[0].xml",
                                          nullptr};

namespace {

/// What a readback should find, by the parser alone.
struct Expected {
  bool loaded = false;
  bool found = false;       ///< the element of the statistics
  bool complete = false;    ///< and all of its lists
  std::size_t regions = 0;  ///< bytes of the regions that are replayed
};

Expected expect() {
  tinyxml2::XMLDocument document;
  Expected result;
  const bool loaded = document.LoadFile(fuzz::kInputFile) == tinyxml2::XML_SUCCESS;
  const tinyxml2::XMLNode* root = loaded ? document.FirstChild() : nullptr;
  result.loaded = root != nullptr;
  const auto* stats = result.loaded ? root->FirstChildElement("AWBBGStats") : nullptr;
  result.found = result.complete = stats != nullptr;
  for (const char* name : {"RSum", "BSum", "GRorGSum", "GBSum", "YSum", "RCount", "BCount",
                           "GRorGCount", "GBCount", "YCount"}) {
    result.complete = result.complete && stats->FirstChildElement(name) != nullptr;
  }
  if (!result.complete) return result;
  const bool paired = stats->UnsignedAttribute("hasSatInfo") != 0;
  result.regions = std::min(stats->UnsignedAttribute("numROIs"), BayerGridOutput::kMaxRegions) *
                   (paired ? sizeof(BGRegionPair) : sizeof(BGRegionStats));
  return result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::setInput(fuzz::textOf(data, size));
  SimulationInfo info = fuzz::readback();
  const Expected expected = expect();
  constexpr std::size_t kHeader = offsetof(BayerGridOutput, regions);
  fuzz::Record stats(kHeader + expected.regions);
  const fuzz::Result result = fuzz::run(fuzz::Outcome::kReturned, [&](Simulation& simulation) {
    simulation.SimulationForAWBParsedStatsOutput(&info, stats.data(), 1, 0, "0");
  });
  fuzz::require(result.claimsSuccess() == expected.complete, "success means all lists");
  fuzz::require(expected.complete || stats.isLive(), "a failure replays nothing");
  fuzz::require(stats.isLive(0, kHeader), "the header stays live");
  fuzz::require(!result.keptDocument, "the document is released");
  fuzz::require(result.keptBlocks == (expected.loaded && !expected.found ? 1 : 0),
                "the working copy is kept on one path only");
  return 0;
}
