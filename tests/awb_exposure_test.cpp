// What white balance gets to know of the exposure.
#include <simulation/records.h>

#include "tests/support/camera_data.h"
#include "tests/support/camx_memory.h"

namespace {

const std::string kDocument =
    "<SimulationData>\n"
    "    <AWBAlgoExposureInformation luxIndex=\"250.5\" AECSettled=\"-1\" "
    "frameDuration=\"33333333\">\n"
    "        <BETemplateMatrix>1 0.333333 1e-05 -2.5e+06 </BETemplateMatrix>\n"
    "    </AWBAlgoExposureInformation>\n"
    "</SimulationData>\n";

/// The live record and what follows it in the caller's memory.
struct Live {
  AWBExposureInfo info = {1.0F, 0x00000100, 7, {1.5F, 2.5F, 3.5F, 4.5F}};
  float beyond = 5.5F;
};

struct AwbExposure : CameraDataTest {
  void run(std::uint32_t mode) {
    SimulationInfo info = infoFor(mode);
    simulation.SimulationForAWBAECData(&info, &live.info, 57, 1);
  }
  void readBack(const std::string& document) {
    live = {};
    writeFile(file, document);
    run(1);
  }
  void expectLive(float luxIndex, std::uint32_t settled, std::uint64_t duration) {
    EXPECT_EQ(live.info.luxIndex, luxIndex);
    EXPECT_EQ(live.info.AECSettled, settled);
    EXPECT_EQ(live.info.frameDuration, duration);
  }
  void expectMatrix(const std::vector<float>& matrix) {
    EXPECT_EQ(std::vector<float>(live.info.BETemplateMatrix, live.info.BETemplateMatrix + 4),
              matrix);
    EXPECT_EQ(live.beyond, 5.5F);
  }

  Live live;
  const std::string file = kCamera + "simulation_AWB_AECData_camId[1].xml";
  const std::string dumped =
      kCamera + "tmp/RequestID[57]_camId[1]/simulation_AWB_AECData_camId[1].xml";
};

TEST_F(AwbExposure, DocumentAsAWhole) {
  live.info = {250.5F, 0xFFFFFFFF, 33333333, {1, 1.0F / 3, 1e-5F, -2.5e6F}};
  run(0);
  EXPECT_EQ(readFile(dumped), kDocument);
  EXPECT_EQ(takeLog(), (LogLines{{2, "dump " + dumped + " success"}}));
}

TEST_F(AwbExposure, SettledIsReplayedAsOneByte) {
  readBack(kDocument);
  expectLive(250.5F, 0x00000101, 33333333);
  expectMatrix({1, 0.333333F, 1e-5F, -2.5e6F});
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(AwbExposure, AttributesThatAreMissingOrMalformedStayLive) {
  const struct {
    const char* attributes;
    float luxIndex;
    std::uint32_t settled;
    std::uint64_t duration;
  } cases[] = {
      {"", 1.0F, 0x100, 7},
      {"luxIndex='dark' AECSettled='maybe' frameDuration='long'", 1.0F, 0x100, 7},
      {"luxIndex='2' AECSettled='true' frameDuration='0x10'", 2.0F, 0x101, 16},
      {"AECSettled='0'", 1.0F, 0x100, 7},
      {"AECSettled='256'", 1.0F, 0x101, 7},
  };
  for (const auto& row : cases) {
    readBack(std::string("<a><AWBAlgoExposureInformation ") + row.attributes + "/></a>");
    expectLive(row.luxIndex, row.settled, row.duration);
    expectMatrix({1.5F, 2.5F, 3.5F, 4.5F});
    EXPECT_EQ(takeLog(), (LogLines{{6, "read BETemplateMatrix element failed"}}));
  }
  live.info.AECSettled = 0x1FF;
  writeFile(file, "<a><AWBAlgoExposureInformation AECSettled='false'/></a>");
  run(1);
  EXPECT_EQ(live.info.AECSettled, 0x100U);
}

TEST_F(AwbExposure, MatrixTakesUpToFourNumbers) {
  const struct {
    const char* text;
    std::vector<float> matrix;
  } cases[] = {{"", {1.5F, 2.5F, 3.5F, 4.5F}},   {"8 9", {8, 9, 3.5F, 4.5F}},
               {"8 9 10 11 12", {8, 9, 10, 11}}, {"8 x 10", {8, 2.5F, 3.5F, 4.5F}},
               {"-1,5", {-1, 2.5F, 3.5F, 4.5F}}, {"1e99 2", {1.5F, 2.5F, 3.5F, 4.5F}}};
  for (const auto& row : cases) {
    readBack(std::string("<a><AWBAlgoExposureInformation><BETemplateMatrix>") + row.text +
             "</BETemplateMatrix></AWBAlgoExposureInformation></a>");
    expectMatrix(row.matrix);
  }
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(AwbExposure, Failures) {
  const LogLine load = {6, "load " + file + " failed"};
  const LogLine information = {6, "read AWBAlgoExposureInformation element failed"};
  run(1);
  EXPECT_EQ(takeLog(), LogLines{load});
  for (const std::string first : {"<?xml version=\"1.0\"?>", "<!-- -->", "<a/>"}) {
    readBack(first + kDocument);
    EXPECT_EQ(takeLog(), LogLines{information}) << first;
  }
  readBack(kDocument + "<damaged");
  EXPECT_EQ(takeLog(), LogLines{load});
  expectLive(1.0F, 0x100, 7);

  run(2);
  {
    const NoMemory noMemory(NoMemory::kObjects);
    run(1);
  }
  EXPECT_EQ(takeLog(), LogLines{});
  char prefix[128];
  simulation.getFilesPath(0, FileType::AWB, prefix, 57, 1);
  ASSERT_EQ(symlink("/dev/full", dumped.c_str()), 0);
  run(0);
  EXPECT_EQ(takeLog(),
            (LogLines{{6, "dump " + dumped + " failed, Error: XML_ERROR_FILE_READ_ERROR"}}));
}

}  // namespace
