// Face-detection results: where each block lies, and that the first dump stays.
#include <array>

#include "tests/support/camera_data.h"

namespace {

/// "fd MODE" and six blocks, each "SIZE:BYTES"; without bytes there is no memory.
bool perform(const Names& words, std::ostream& out) {
  SimulationInfo info = infoFor(static_cast<std::uint32_t>(std::stoul(words.at(1))));
  std::array<std::string, 6> blocks;
  const auto size = [&](std::size_t i) { return std::stoul(words.at(i + 2)); };
  const auto data = [&](std::size_t i) {
    blocks[i] = words[i + 2].substr(words[i + 2].find(':') + 1);
    return blocks[i].empty() ? nullptr : blocks[i].data();
  };
  sim().SimulationForFDResult(&info, data(0), size(0), data(1), size(1), data(2), size(2), data(3),
                              size(3), data(4), size(4), data(5), size(5), kRequest, kCamId);
  out << '=';
  for (const std::string& block : blocks) out << ' ' << (block.empty() ? "-" : block);
  out << '\n';
  return words[0] == "fd";
}

using Face = CameraDataTest;

TEST_F(Face, DoesAsItsFileSays) { playGolden("FDResult.calls", perform); }

TEST_F(Face, ResultOffsetsThatWrapAbortWhereTheyAreNeeded) {
  const Names sizes = {"fd", "1", "1:", "0:", "0:", "0:", "18446744073709551615:", "0:"};
  EXPECT_EXIT(perform(sizes, std::cout), testing::KilledBySignal(SIGABRT), "");
}

}  // namespace
