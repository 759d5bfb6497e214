// The scene segmentation: its label map, its conversions and its bounds.
#include <simulation/records.h>

#include <cstring>
#include <memory>
#include <stdexcept>

#include "tests/support/camera_data.h"

namespace {

const std::string kReplayed = kCamera + "simulation_AWB_QsegImageData_camId[3].xml";

std::string repeated(std::size_t count, const std::string& text) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) all += text;
  return all;
}

std::string element(const std::string& name, const std::string& children) {
  return "<" + name + ">" + children + "</" + name + ">";
}

std::string map(const std::string& text) { return element("qsegStatsInfo", text); }

/// A list whose item after `empty` ones is `last`.
std::string items(const std::string& list, std::size_t empty, const std::string& last) {
  return element(list, repeated(empty, "<i/>") + element("x", last));
}
std::string instances(std::size_t empty, const std::string& last) {
  return items("qsegInstInfos", empty, last);
}

struct QSeg : CameraDataTest {
  void readBack(const std::string& children) {
    writeFile(kReplayed, element("a", children));
    SimulationInfo info = infoFor(1);
    simulation.SimulationForQsegImageData(&info, record.get(), kRequest, kCamId);
  }
  std::string bytes() const {
    return {reinterpret_cast<const char*>(record.get()), sizeof(QSegImageInfo)};
  }

  const std::unique_ptr<QSegImageInfo> record = std::make_unique<QSegImageInfo>();
};

TEST_F(QSeg, LabelTokens) {
  const struct {
    std::string text;
    std::string stored;  ///< the leading bytes; the rest stays
  } cases[] = {
      {"1 22 255 ", "\x01\x16\xff"},
      {"300 -1 65536 7 ", std::string("\x2c\xff\0\x07", 4)},
      {"5 6", "\x05"},
      {"9", ""},
      {"+4 \n8 0012 3x ", "\x04\x08\x0c\x03"},
      {"", ""},
      {" ", ""},  // a blank text is none
  };
  for (const auto& row : cases) {
    std::memset(record->qsegStatsInfo, 'U', sizeof record->qsegStatsInfo);
    std::string expected = bytes();
    expected.replace(offsetof(QSegImageInfo, qsegStatsInfo), row.stored.size(), row.stored);
    readBack(map(row.text));
    EXPECT_TRUE(bytes() == expected) << row.text;
  }
}

TEST_F(QSeg, RejectedTextThrowsAndKeepsWhatWasReadBefore) {
  for (const std::string& text :
       {map("1 2  3 "), map("1 x "), map(repeated(307201, "1 ") + "x "),
        std::string("<requestId/>"), element("requestId", "x"), std::string("<isQSegInfoValid/>"),
        element("qsegSceneClass", "x") + element("requestId", "5"),
        instances(10, element("ID", "x"))}) {
    const std::string before = bytes();
    EXPECT_THROW(readBack(text), std::invalid_argument) << text.substr(0, 50);
    EXPECT_TRUE(bytes().substr(8) == before.substr(8)) << text.substr(0, 50);
  }
  EXPECT_EQ(record->requestId, 5U);
  EXPECT_THROW(readBack(map("1 2147483648 ")), std::out_of_range);
  EXPECT_THROW(readBack(element("requestId", "9223372036854775808")), std::out_of_range);
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(QSeg, Conversions) {
  readBack(element("requestId", "-1") + element("isQSegInfoValid", "-7up") +
           element("verticalRegionCount", "4294967301") + element("qsegInstCount", " 70000") +
           element("qsegSceneClassConf", "1e-3") + instances(1, element("ID", "4294967295")) +
           element("qsegCroppedWindowInfo", element("width", "8")));
  EXPECT_EQ(record->requestId, ~0ULL);
  EXPECT_EQ(record->isQSegInfoValid, -7);
  EXPECT_EQ(record->verticalRegionCount, 5U);
  EXPECT_EQ(record->qsegInstCount, 4464);
  EXPECT_EQ(record->qsegSceneClassConf, 1e-3F);
  EXPECT_EQ(record->qsegInstInfos[1].ID, -1);
  EXPECT_EQ(record->qsegCroppedWindowInfo.width, 8U);
  EXPECT_EQ(takeLog(), (LogLines{{6, "readback " + kReplayed + " success"}}));
  simulation.dumpQsegImageData(record.get(), std::string(kReplayed).data());
  EXPECT_NE(readFile(kReplayed).find(element("requestId", "18446744073709551615")),
            std::string::npos);
}

TEST_F(QSeg, MoreThanTheRecordHoldsAborts) {
  const std::string id = element("ID", "1");
  const std::string part = element("left", "1");
  readBack(map(repeated(307200, "1 ")) + instances(9, id));
  EXPECT_EQ(record->qsegStatsInfo[307199], 1);
  EXPECT_EQ(record->qsegInstInfos[9].ID, 1);
  readBack(instances(10, "<roi/><partROIs><p/></partROIs>"));  // stores nothing
  readBack(instances(0, items("partROIs", 2, part)));
  EXPECT_EQ(record->qsegInstInfos[0].partROIs[2].left, 1U);
  for (const std::string& text :
       {map(repeated(307201, "1 ")), instances(10, id),
        instances(10, element("roi", element("top", "1"))),
        instances(10, items("partROIs", 0, part)), instances(0, items("partROIs", 3, part))}) {
    EXPECT_EXIT(readBack(text), testing::KilledBySignal(SIGABRT), "") << text.substr(0, 50);
  }
}

TEST_F(QSeg, OddFilesAreLogged) {
  const std::string before = bytes();
  writeFile(kReplayed, "<!-- first --><a><requestId>5</requestId></a>");
  simulation.readQsegImageData(record.get(), std::string(kReplayed).data());
  EXPECT_TRUE(bytes() == before);
  simulation.dumpQsegImageData(nullptr, std::string(kReplayed).data());
  simulation.dumpQsegImageData(record.get(), std::string("/nowhere/file").data());
  EXPECT_EQ(
      takeLog(),
      (LogLines{{6, "readback " + kReplayed + " success"},
                {6, "failed, pQSegImageInfo is null"},
                {6, "dump /nowhere/file failed, Error: XML_ERROR_FILE_COULD_NOT_BE_OPENED"}}));
}

}  // namespace
