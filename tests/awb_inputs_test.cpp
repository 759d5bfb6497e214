// White-balance inputs: what single ones do unlike the others.
#include <algorithm>

#include "core/bytes.h"
#include "tests/support/all_records.h"

namespace {

using testing::KilledBySignal;
using AwbInput = CameraDataTest;

/// "saved INDEX WORD" makes the file of a tuning mode; "live INDEX WORD" reads it back over
/// such a record and shows what that then is, and the byte behind it.
bool perform(const Names& words, std::ostream& out) {
  const RecordOperation& record = recordNamed("AWBTuningMode");
  std::string mode = std::string(60, words[0][0]) + '#';
  simulation::store(mode.data(), 16, static_cast<std::uint16_t>(std::stoul(words.at(1))));
  simulation::store(mode.data(), 24, static_cast<std::uint32_t>(std::stoul(words.at(2))));
  if (words[0] == "saved") writeFile(record.replayed(), mode.substr(0, 60));
  if (words[0] == "live") record.run(1, mode.data());
  std::replace(mode.begin(), mode.end(), '\0', '0');
  out << "= " << mode[0] << mode[59] << mode[60] << '\n';
  return words[0] == "saved" || words[0] == "live";
}

TEST_F(AwbInput, TuningModeIsReplayedOnlyOntoItsOwnSensorMode) {
  playGolden("AWBTuningMode.calls", perform);
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
