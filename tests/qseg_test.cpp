// The scene segmentation: the bounds of its label map, and odd calls.
#include <simulation/records.h>

#include <memory>
#include <stdexcept>

#include "tests/support/camera_data.h"

namespace {

struct QSeg : CameraDataTest {
  /// Reads back a label map of `count` ones and `rest`.
  void readLabels(std::size_t count, const std::string& rest = "") {
    std::string text = "<a><qsegStatsInfo>";
    for (std::size_t i = 0; i < count; ++i) text += "1 ";
    writeFile(path, text + rest + "</qsegStatsInfo></a>");
    simulation.readQsegImageData(record.get(), path.data());
  }

  std::string path = kCamera + "document.xml";
  const std::unique_ptr<QSegImageInfo> record = std::make_unique<QSegImageInfo>();
};

TEST_F(QSeg, MoreLabelsThanTheMapHoldsAbortUnlessOneIsBad) {
  EXPECT_THROW(readLabels(307201, "x "), std::invalid_argument);
  EXPECT_EQ(record->qsegStatsInfo[0], 0);
  EXPECT_EXIT(readLabels(307201), testing::KilledBySignal(SIGABRT), "");
  readLabels(307200);
  EXPECT_EQ(record->qsegStatsInfo[307199], 1);
  EXPECT_EQ(record->qsegInstInfos[0].requestId, 0U);
}

TEST_F(QSeg, DumpsThatCannotBeMadeAreLogged) {
  simulation.dumpQsegImageData(nullptr, path.data());
  simulation.dumpQsegImageData(record.get(), std::string("/nowhere/file").data());
  EXPECT_EQ(
      takeLog(),
      (LogLines{{6, "failed, pQSegImageInfo is null"},
                {6, "dump /nowhere/file failed, Error: XML_ERROR_FILE_COULD_NOT_BE_OPENED"}}));
}

}  // namespace
