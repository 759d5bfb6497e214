// Lens shading: the number in the file name, and what a call returns.
#include "tests/support/camera_data.h"

namespace {

std::string fileName(int index) {
  return "simulation_LSC[cam]_index[" + std::to_string(index) + "]_ev[-2].xml";
}

struct Lsc : CameraDataTest {
  Lsc() { Simulation::m_LscIndex.clear(); }

  bool run(std::uint32_t mode, const void* table, const char* folderName = "IMG_0001") {
    SimulationInfo info = infoFor(mode, folderName);
    return sim().simulationForLscMeta(&info, table, gains.data(), 9, "cam", -2);
  }

  std::vector<float> gains = std::vector<float>(884, -1);
};

TEST_F(Lsc, EveryCallWithATableCounts) {
  EXPECT_FALSE(run(1, nullptr));
  EXPECT_EQ(Simulation::m_LscIndex.size(), 0U);
  EXPECT_FALSE(run(2, "table"));
  EXPECT_FALSE(run(1, "table"));
  EXPECT_TRUE(run(0, gains.data()));
  EXPECT_TRUE(run(0, gains.data(), "a/b"));
  unsigned short& index = Simulation::m_LscIndex.at("IMG_0001cam-2");
  EXPECT_EQ(index, 2);
  index = 65535;
  EXPECT_FALSE(run(1, "table"));
  const std::string second = kCamera + "IMG_0001/" + fileName(2);
  EXPECT_EQ(takeLog(), (LogLines{{6, "load " + kCamera + fileName(1) + " failed"},
                                 {6, "dump " + second + " success"},
                                 {6, "filePath:" + kCamera + "a/b/ create fail"},
                                 {6, "dump " + kCamera + "a/b/" + fileName(0) +
                                         " failed, Error: XML_ERROR_FILE_COULD_NOT_BE_OPENED"},
                                 {6, "load " + kCamera + fileName(0) + " failed"}}));
}

TEST_F(Lsc, ReadbackTellsWhetherThereIsATable) {
  int index = 0;
  for (const char* table : {"", "<LensShadingInfo/>"}) {
    writeFile(kCamera + fileName(index++), std::string("<Any>") + table + "</Any>");
    EXPECT_EQ(run(1, "table"), *table != '\0');
  }
}

}  // namespace
