// What white balance gets to know of the exposure.
#include <simulation/records.h>

#include <cstring>

#include "tests/support/camera_data.h"

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
  void readBackInformation(const std::string& rest) {
    readBack("<a><AWBAlgoExposureInformation " + rest + "</AWBAlgoExposureInformation></a>");
  }
  void expect(const AWBExposureInfo& expected) {
    EXPECT_EQ(std::memcmp(&live.info, &expected, sizeof expected), 0)
        << live.info.luxIndex << ' ' << live.info.AECSettled << ' ' << live.info.frameDuration
        << ' ' << live.info.BETemplateMatrix[0];
    EXPECT_EQ(live.beyond, 5.5F);
  }

  Live live;
  const std::string file = kCamera + "simulation_AWB_AECData_camId[1].xml";
  const std::string dumped =
      kCamera + "tmp/RequestID[57]_camId[1]/simulation_AWB_AECData_camId[1].xml";
};

TEST_F(AwbExposure, DocumentAsAWholeComesBackWithOneByteOfSettled) {
  live.info = {250.5F, -1, 33333333, {1, 1.0F / 3, 1e-5F, -2.5e6F}};
  run(0);
  EXPECT_EQ(readFile(dumped), kDocument);
  EXPECT_EQ(takeLog(), (LogLines{{2, "dump " + dumped + " success"}}));
  readBack(kDocument);
  expect({250.5F, 0x00000101, 33333333, {1, 0.333333F, 1e-5F, -2.5e6F}});
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(AwbExposure, AttributesThatAreMissingOrMalformedStayLive) {
  const struct {
    const char* attributes;
    AWBExposureInfo expected;
  } cases[] = {
      {">", Live().info},
      {"luxIndex='dark' AECSettled='maybe' frameDuration='long'>", Live().info},
      {"luxIndex='2' AECSettled='true'>", {2.0F, 0x101, 7, {1.5F, 2.5F, 3.5F, 4.5F}}},
      {"AECSettled='256' frameDuration='8'>", {1.0F, 0x101, 8, {1.5F, 2.5F, 3.5F, 4.5F}}},
      {"AECSettled='0'>", Live().info},
  };
  for (const auto& row : cases) {
    readBackInformation(row.attributes);
    expect(row.expected);
    EXPECT_EQ(takeLog(), (LogLines{{6, "read BETemplateMatrix element failed"}}));
  }
}

TEST_F(AwbExposure, MatrixTakesUpToFourNumbers) {
  const struct {
    const char* text;
    AWBExposureInfo expected;
  } cases[] = {{"", Live().info},
               {"8 9", {1.0F, 0x100, 7, {8, 9, 3.5F, 4.5F}}},
               {"8 9 10 11 12", {1.0F, 0x100, 7, {8, 9, 10, 11}}},
               {"8 x 10", {1.0F, 0x100, 7, {8, 2.5F, 3.5F, 4.5F}}}};
  for (const auto& row : cases) {
    readBackInformation(std::string("><BETemplateMatrix>") + row.text + "</BETemplateMatrix>");
    expect(row.expected);
  }
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(AwbExposure, Failures) {
  const LogLine load = {6, "load " + file + " failed"};
  run(1);
  readBack(kDocument + "<damaged");
  EXPECT_EQ(takeLog(), (LogLines{load, load}));
  for (const std::string first : {"<?xml version=\"1.0\"?>", "<!-- -->", "<a/>"}) {
    readBack(first + kDocument);
    EXPECT_EQ(takeLog(), (LogLines{{6, "read AWBAlgoExposureInformation element failed"}}));
  }
  run(2);
  expect(Live().info);
  char prefix[128];
  simulation.getFilesPath(0, FileType::AWB, prefix, 57, 1);
  ASSERT_EQ(symlink("/dev/full", dumped.c_str()), 0);  // opens, but takes no byte
  run(0);
  EXPECT_EQ(takeLog(),
            (LogLines{{6, "dump " + dumped + " failed, Error: XML_ERROR_FILE_READ_ERROR"}}));
}

}  // namespace
