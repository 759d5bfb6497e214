// ACB images: two planes in one file.
#include <simulation/records.h>

#include "tests/support/camera_data.h"

namespace {

/// "acb MODE SIZE": of the Y plane. Behind it what there is not: "noY", "noC", "noImage".
bool perform(const Names& words, std::ostream& out) {
  std::string planes = "yyyyyyyycccc";
  AcbImage image = {{}, {planes.data(), {}, 8}, {planes.data() + 8, {}, 4}};
  SimulationInfo info = infoFor(static_cast<std::uint32_t>(std::stoul(words[1])));
  image.y.size = static_cast<std::uint32_t>(std::stoul(words[2]));
  if (words.back() == "noY") image.y.data = nullptr;
  if (words.back() == "noC") image.c.data = nullptr;
  sim().SimulationForACB(&info, words.back() == "noImage" ? nullptr : &image, kRequest, kCamId);
  out << "= " << planes << '\n';
  return words[0] == "acb";
}

using Acb = CameraDataTest;
TEST_F(Acb, DoesAsItsFileSays) { playGolden("ACB.calls", perform); }

}  // namespace
