// White-balance inputs: what single ones do unlike the others.
#include "tests/support/all_records.h"

namespace {

using testing::KilledBySignal;
using AwbInput = CameraDataTest;

TEST_F(AwbInput, TuningModeIsReplayedOnlyOntoItsOwnSensorMode) {
  const RecordOperation& record = recordNamed("AWBTuningMode");
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
    writeFile(record.replayed(), std::string(60, '\0').replace(row.offset, 1, 1, row.saved));
    const std::string live = std::string(60, '\0').replace(row.offset, 1, 1, row.live) + "x";
    std::string data = live;
    record.run(1, data.data());
    EXPECT_EQ(data, live) << row.offset;
    const LogLines log = takeLog();
    EXPECT_EQ(log.size() == 2 ? log[1].text : "", row.log);
  }
  clearCameraData();  // as good as all zeros
  std::string data = pattern(60, 3).replace(16, 2, 2, '\0').replace(24, 4, 4, '\0');
  record.run(1, data.data());
  EXPECT_EQ(data, std::string(60, '\0'));
}

TEST_F(AwbInput, ExtensionInfoCounts) {
  const RecordOperation& record = recordNamed("AWBExtensionInfo");
  float value = 1.5F;
  const auto run = [&](std::uint32_t mode, int count) {
    SimulationInfo info = infoFor(mode);
    sim().SimulationForAWBExtensionInfo(&info, &value, count, kRequest, kCamId);
  };
  run(0, 0);
  EXPECT_EQ(readFile(record.dumped()), "");
  writeFile(record.replayed(), "file");
  run(1, 0);
  EXPECT_EQ(value, 1.5F);
  run(2, -1);
  EXPECT_EQ(takeLog(), LogLines{});
  EXPECT_EXIT(run(0, -1), KilledBySignal(SIGABRT), "");
  EXPECT_EXIT(run(1, -1), KilledBySignal(SIGABRT), "");
}

TEST_F(AwbInput, ExtExposureIgnoresTheFirstTenRequests) {
  const RecordOperation& record = recordNamed("AWBExtExposure");
  const std::string live = record.memory(1);
  writeFile(record.replayed(), "<a><frameLuma>2</frameLuma></a>");
  for (const unsigned int request : {9U, 10U}) {
    std::string data = live;
    record.run(0, data.data(), request);
    EXPECT_EQ(tree().size(), request < 10 ? 1U : 4U);
    record.run(1, data.data(), request);
    EXPECT_EQ(data == live, request < 10);
  }
}

}  // namespace
