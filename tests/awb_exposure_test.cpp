// What white balance gets to know of the exposure: what a readback leaves live.
#include <simulation/records.h>

#include <cstring>

#include "tests/support/camera_data.h"

namespace {

/// The live record and what follows it in the caller's memory.
struct Live {
  AWBExposureInfo info = {1.0F, 0x00000100, 7, {1.5F, 2.5F, 3.5F, 4.5F}};
  float beyond = 5.5F;
};

const std::string kMatrix = "BETemplateMatrix";

struct AwbExposure : CameraDataTest {
  void expectReadback(const std::string& document, const AWBExposureInfo& expected,
                      const std::string& missingElement = "") {
    Live live;
    SimulationInfo info = infoFor(1);
    writeFile(kCamera + "simulation_AWB_AECData_camId[3].xml", document);
    simulation.SimulationForAWBAECData(&info, &live.info, kRequest, kCamId);
    EXPECT_EQ(std::memcmp(&live.info, &expected, sizeof expected), 0) << document;
    EXPECT_EQ(live.beyond, 5.5F);
    const LogLines line = {{6, "read " + missingElement + " element failed"}};
    EXPECT_EQ(takeLog(), missingElement.empty() ? LogLines{} : line) << document;
  }
};

TEST_F(AwbExposure, WhatIsMissingOrMalformedStaysLive) {
  const struct {
    std::string information;
    AWBExposureInfo expected;
    std::string missingElement;
  } cases[] = {
      {">", Live().info, kMatrix},
      {"luxIndex='dark' AECSettled='maybe' frameDuration='long'>", Live().info, kMatrix},
      {"luxIndex='2' AECSettled='true'>", {2, 0x101, 7, {1.5F, 2.5F, 3.5F, 4.5F}}, kMatrix},
      {"AECSettled='256' frameDuration='8'>", {1, 0x101, 8, {1.5F, 2.5F, 3.5F, 4.5F}}, kMatrix},
      {"AECSettled='0'>", Live().info, kMatrix},
      {"><BETemplateMatrix/>", Live().info, ""},
      {"><BETemplateMatrix>8 9</BETemplateMatrix>", {1, 0x100, 7, {8, 9, 3.5F, 4.5F}}, ""},
      {"><BETemplateMatrix>8 9 10 11 12</BETemplateMatrix>", {1, 0x100, 7, {8, 9, 10, 11}}, ""},
      {"><BETemplateMatrix>8 x 10</BETemplateMatrix>", {1, 0x100, 7, {8, 2.5F, 3.5F, 4.5F}}, ""},
  };
  for (const auto& row : cases) {
    expectReadback(
        "<a><AWBAlgoExposureInformation " + row.information + "</AWBAlgoExposureInformation></a>",
        row.expected, row.missingElement);
  }
  for (const std::string first : {"<?xml version=\"1.0\"?>", "<!-- -->", "<a/>"}) {
    expectReadback(first + golden("AWBAECData"), Live().info, "AWBAlgoExposureInformation");
  }
}

}  // namespace
