// Lens shading: the number in the file name, the text of a grid, and where a
// readback puts what it finds.
#include <simulation/records.h>

#include <array>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "tests/support/camera_data.h"

namespace {

std::string fileName(int index) {
  return "simulation_LSC[cam]_index[" + std::to_string(index) + "]_ev[-2].xml";
}

struct Lsc : CameraDataTest {
  Lsc() { Simulation::m_LscIndex.clear(); }

  bool run(std::uint32_t mode, const void* table, const char* folderName = "IMG_0001") {
    SimulationInfo info = infoFor(mode, folderName);
    return simulation.simulationForLscMeta(&info, table, gains.data(), 9, "cam", -2);
  }

  std::vector<float> gains = std::vector<float>(884, -1);
};

TEST_F(Lsc, TableIsDumpedAsFourGridsAndReadBack) {
  std::vector<float> table(884);
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = static_cast<float>(i) / 64 - 1;
  std::ostringstream text;
  text << std::fixed << "<SimulationData>\n    <LensShadingInfo width=\"17\" height=\"13\">\n";
  for (std::size_t channel = 0; channel < 4; ++channel) {
    const char* const name = std::array{"rGain", "grGain", "gbGain", "bGain"}[channel];
    text << "        <" << name << '>';
    for (std::size_t i = 0; i < 221; ++i) {
      text << table[i * 4 + channel] << (i % 17 == 16 ? " \n" : " ");
    }
    text << "</" << name << ">\n";
  }
  text << "    </LensShadingInfo>\n</SimulationData>\n";

  const std::string folder = kCamera + "IMG_0001/";
  for (const int index : {0, 1}) {
    EXPECT_TRUE(run(0, table.data()));
    EXPECT_EQ(readFile(folder + fileName(index)), text.str());
    EXPECT_EQ(takeLog(), (LogLines{{6, "dump " + folder + fileName(index) + " success"}}));
  }
  std::filesystem::copy(folder + fileName(0), kCamera + fileName(2));
  EXPECT_TRUE(run(1, table.data()));
  EXPECT_EQ(gains, table);
}

TEST_F(Lsc, EveryCallWithATableCounts) {
  EXPECT_FALSE(run(1, nullptr));
  EXPECT_EQ(Simulation::m_LscIndex.size(), 0U);
  EXPECT_FALSE(run(2, "table"));
  EXPECT_FALSE(run(1, "table"));
  unsigned short& index = Simulation::m_LscIndex.at("IMG_0001cam-2");
  EXPECT_EQ(index, 1);
  index = 65535;
  EXPECT_FALSE(run(1, "table"));
  EXPECT_EQ(takeLog(), (LogLines{{6, "load " + kCamera + fileName(1) + " failed"},
                                 {6, "load " + kCamera + fileName(0) + " failed"}}));
}

TEST_F(Lsc, ReadbackTakesElementsInOrderAndTextsWhole) {
  const auto info = [](const std::string& channels) {
    return "<Any><LensShadingInfo>" + channels + "</LensShadingInfo></Any>";
  };
  const struct {
    std::string file;
    bool found;
    std::vector<float> gains;  ///< the beginning; -1 is live
    bool throws = false;
  } cases[] = {
      {"<!-- no root -->", false, {-1}},
      {"<Any/>", false, {-1}},
      {info("<grGain>5 </grGain>"), true, {-1, -1}},
      {info("<a>5 </a><rGain>1 2\n \n3 4</rGain><a>6 </a><rGain/><b>7</b><c>8 9 </c>"),
       true,
       {1, 6, -1, -1, 8, -1, -1, -1, 9}},
      {info("<rGain>1 </rGain><a>2  3 </a><b>4 </b>"), false, {1, -1, -1}, true},
  };
  for (const auto& row : cases) {
    Simulation::m_LscIndex.clear();
    gains.assign(gains.size(), -1);
    writeFile(kCamera + fileName(0), row.file);
    if (row.throws) {
      EXPECT_THROW(run(1, "table"), std::invalid_argument) << row.file;
    } else {
      EXPECT_EQ(run(1, "table"), row.found) << row.file;
    }
    EXPECT_EQ(std::vector(gains.data(), gains.data() + row.gains.size()), row.gains) << row.file;
  }
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(Lsc, DumpThatFailsIsLoggedAndTrue) {
  const std::string full = kCamera + "full/";
  std::filesystem::create_directory(full);
  std::filesystem::create_symlink("/dev/full", full + fileName(0));
  EXPECT_TRUE(run(0, gains.data(), "full"));
  EXPECT_TRUE(run(0, gains.data(), "a/b"));
  EXPECT_EQ(
      takeLog(),
      (LogLines{{6, "dump " + full + fileName(0) + " failed, Error: XML_ERROR_FILE_READ_ERROR"},
                {6, "filePath:" + kCamera + "a/b/ create fail"},
                {6, "dump " + kCamera + "a/b/" + fileName(0) +
                        " failed, Error: XML_ERROR_FILE_COULD_NOT_BE_OPENED"}}));
}

TEST_F(Lsc, NoCallOfAnyThreadIsLost) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int call = 0; call < 10000; ++call) run(2, "table");
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(Simulation::m_LscIndex.at("IMG_0001cam-2"), 39999);
}

}  // namespace
