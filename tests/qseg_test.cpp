// The scene segmentation: the bounds of its label map, and odd calls.
#include <simulation/records.h>

#include <cstring>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/camera_data.h"

namespace {

struct QSeg : CameraDataTest {
  /// Reads back a label map of `count` ones and `rest`.
  void readLabels(std::size_t count, const std::string& rest = "") {
    std::string text = "<a><qsegStatsInfo>";
    for (std::size_t i = 0; i < count; ++i) text += "1 ";
    writeFile(path, text + rest + "</qsegStatsInfo></a>");
    sim().readQsegImageData(record.get(), path.data());
  }

  std::string path = kCamera + "document.xml";
  const std::unique_ptr<QSegImageInfo> record = std::make_unique<QSegImageInfo>();
};

TEST_F(QSeg, MoreLabelsThanTheMapHoldsAbortUnlessOneIsBad) {
  EXPECT_THROW(readLabels(320000, "x "), std::invalid_argument);
  EXPECT_EQ(record->qsegStatsInfo[0], 0);
  EXPECT_EXIT(readLabels(307201), testing::KilledBySignal(SIGABRT), "");
  readLabels(307200);
  EXPECT_EQ(record->qsegStatsInfo[307199], 1);
  EXPECT_EQ(record->qsegInstInfos[0].requestId, 0U);
}

// Plain labels are taken many at a time, and runs of one label: odd ones stand at all
// places among them.
TEST_F(QSeg, LabelsAreReadAsTheStandardConversionReadsThem) {
  const std::vector<std::string> odd = {"007",      "-1",          "+5",  "256", "999", "1234",
                                        "00012345", "12x",         "\n3", "-",   "x",   "1-",
                                        "x9",       "77777777777", "1:2", ":",   "7/7", ""};
  std::mt19937 random(7);
  for (int round = 0; round < (SIMULATION_SLOW_TESTS ? 100 : 300); ++round) {
    std::string text;
    std::string expected(reinterpret_cast<char*>(record->qsegStatsInfo), QSegImageInfo::kStatsSize);
    const std::string before = expected;
    bool bad = false;
    std::string label = "7";
    for (unsigned i = 0; i < 1000; ++i) {
      const bool isOdd = random() % 2000 == 0;
      const bool changes = isOdd || round % 2 == 0 || random() % 40 == 0;
      if (changes) label = isOdd ? odd[random() % odd.size()] : std::to_string(random() % 256);
      text += label + ' ';
      try {
        expected[i] = static_cast<char>(std::stoi(label));
      } catch (const std::logic_error&) {
        bad = true;
      }
    }
    writeFile(path, "<a><qsegStatsInfo>" + text + "12</qsegStatsInfo></a>");
    const auto read = [this] { sim().readQsegImageData(record.get(), path.data()); };
    if (bad) {
      EXPECT_THROW(read(), std::logic_error) << text;
    } else {
      EXPECT_NO_THROW(read()) << text;
    }
    ASSERT_EQ(0,
              std::memcmp(record->qsegStatsInfo, (bad ? before : expected).data(), before.size()))
        << text;
  }
}

TEST_F(QSeg, DumpOfNothingIsLogged) {
  sim().dumpQsegImageData(nullptr, path.data());
  EXPECT_EQ(takeLog(), (LogLines{{6, "failed, pQSegImageInfo is null"}}));
}

}  // namespace
