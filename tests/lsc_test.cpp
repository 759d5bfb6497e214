// Lens shading: the number in the file name, and what a call returns.
#include <simulation/records.h>

#include "tests/support/camera_data.h"

namespace {

/// "lsc MODE FOLDER", behind it "notable" or "noname": without these, as with the folder
/// "nofolder"; or "index LAST".
bool perform(const Names& words, std::ostream& out) {
  static LscTable table;
  const auto number = static_cast<std::uint32_t>(std::stoul(words[1]));
  if (words[0] == "lsc") {
    SimulationInfo info = infoFor(number, words[2] == "nofolder" ? nullptr : words[2].c_str());
    const void* const live = words.back() == "notable" ? nullptr : table;
    const char* const name = words.back() == "noname" ? nullptr : "cam";
    out << "= returns " << sim().simulationForLscMeta(&info, live, &table[0][0][0], 9, name, -2);
  } else {
    out << "= was "
        << std::exchange(Simulation::m_LscIndex.at("IMGcam-2"),
                         static_cast<unsigned short>(number));
  }
  out << '\n';
  return words[0] == "lsc" || words[0] == "index";
}

using Lsc = CameraDataTest;
TEST_F(Lsc, DoesAsItsFileSays) {
  Simulation::m_LscIndex.clear();
  playGolden("LscMeta.calls", perform);
}

}  // namespace
