// White-balance inputs: what single ones do unlike the others.
#include "tests/support/camera_data.h"

namespace {

using testing::KilledBySignal;

struct AwbInput : CameraDataTest {
  std::string readTuningMode(std::string live) {
    SimulationInfo info = infoFor(1);
    sim().SimulationForAWBTuningMode(&info, live.data(), kRequest, kCamId);
    return live;
  }
  void runExtension(std::uint32_t mode, int count) {
    SimulationInfo info = infoFor(mode);
    sim().SimulationForAWBExtensionInfo(&info, &value, count, kRequest, kCamId);
  }
  float value = 1.5F;
  const std::string prefix = kCamera + "simulation_AWB_";
};

TEST_F(AwbInput, TuningModeIsReplayedOnlyOntoItsOwnSensorMode) {
  const std::string file = prefix + "TuningMode_camId[3].bin";
  const std::string different = "different sensor mode for tuning mode readback:";
  const struct {
    std::size_t offset;
    char saved, live;
    std::string log;
  } cases[] = {{16, 3, 5, different + "3 now:5"},
               {17, 3, 0, different + "768 now:0"},
               {17, '\xFF', 0, different + "65280 now:0"},
               {24, 1, 2, ""},
               {27, 1, 2, ""}};
  for (const auto& row : cases) {
    writeFile(file, std::string(60, '\0').replace(row.offset, 1, 1, row.saved));
    const std::string live = std::string(60, '\0').replace(row.offset, 1, 1, row.live);
    EXPECT_EQ(readTuningMode(live + "x"), live + "x") << row.offset;
    const LogLines log = takeLog();
    EXPECT_EQ(log.size() == 2 ? log[1].text : "", row.log);
  }
  remove(file.c_str());  // as good as all zeros
  EXPECT_EQ(readTuningMode(pattern(60, 3).replace(16, 2, 2, '\0').replace(24, 4, 4, '\0')),
            std::string(60, '\0'));
}

TEST_F(AwbInput, ExtensionInfoCounts) {
  runExtension(0, 0);
  EXPECT_EQ(readFile(kCamera + kTmpFolder + "simulation_AWB_ExtensionInfo_camId[3].bin"), "");
  writeFile(prefix + "ExtensionInfo_camId[3].bin", "file");
  runExtension(1, 0);
  EXPECT_EQ(value, 1.5F);
  runExtension(2, -1);
  EXPECT_EQ(takeLog(), LogLines{});
  EXPECT_EXIT(runExtension(0, -1), KilledBySignal(SIGABRT), "");
  EXPECT_EXIT(runExtension(1, -1), KilledBySignal(SIGABRT), "");
}

TEST_F(AwbInput, ExtExposureIgnoresTheFirstTenRequests) {
  float values[6] = {};
  const auto run = [&](std::uint32_t mode, unsigned int request) {
    SimulationInfo info = infoFor(mode);
    sim().SimulationForAWBExtExposure(&info, values, request, kCamId);
  };
  writeFile(prefix + "ExtExposure_camId[3].xml", "<a><frameLuma>2</frameLuma></a>");
  run(0, 9);
  run(1, 9);
  EXPECT_EQ(tree().size(), 1U);
  EXPECT_EQ(values[3], 0.0F);
  run(0, 10);
  EXPECT_EQ(tree().size(), 4U);
  run(1, 10);
  EXPECT_EQ(values[3], 2.0F);
}

}  // namespace
