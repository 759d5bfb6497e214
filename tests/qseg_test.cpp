// The scene segmentation: one large document, its label map and its bounds.
#include <simulation/records.h>

#include <functional>
#include <memory>
#include <stdexcept>

#include "tests/support/camera_data.h"

namespace {

const std::string kDumped =
    kCamera + "tmp/RequestID[57]_camId[2]/simulation_AWB_QsegImageData_camId[2].xml";
const std::string kReplayed = kCamera + "simulation_AWB_QsegImageData_camId[2].xml";
constexpr std::size_t kSize = sizeof(QSegImageInfo);

struct QSeg : CameraDataTest {
  QSeg() { fill(3); }

  /// Every byte of the record differs with the seed. A request id below 2^63,
  /// and no float that is not a number.
  void fill(unsigned int seed) {
    memcpy(static_cast<void*>(record.get()), pattern(kSize, seed).data(), kSize);
    record->requestId >>= 1;
    for (QSegInstInfo& instance : record->qsegInstInfos) instance.requestId >>= 1;
    record->qsegSceneClassConf = 0.1F * static_cast<float>(seed);
  }
  void run(std::uint32_t mode) {
    SimulationInfo info = infoFor(mode);
    simulation.SimulationForQsegImageData(&info, record.get(), 57, 2);
  }
  void readBack(const std::string& document) {
    writeFile(kReplayed, document);
    run(1);
  }
  std::string bytes() const { return {reinterpret_cast<const char*>(record.get()), kSize}; }

  const std::unique_ptr<QSegImageInfo> record = std::make_unique<QSegImageInfo>();
};

std::string labels(std::size_t count, const std::string& label) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += label;
  return text;
}

std::string map(const std::string& text) {
  return "<a><qsegStatsInfo>" + text + "</qsegStatsInfo></a>";
}

std::string instances(std::size_t empty, const std::string& last) {
  return "<a><qsegInstInfos>" + labels(empty, "<i/>") + "<i>" + last + "</i></qsegInstInfos></a>";
}

TEST_F(QSeg, DocumentAsAWhole) {
  *record = {};
  record->requestId = ~0ULL;
  record->notRecorded = 77;
  record->isQSegInfoValid = -1;
  record->horizontalRegionCount = 4294967295U;
  record->verticalRegionCount = 480;
  record->qsegInstCount = 65535;
  record->qsegSceneClass = 3;
  record->qsegSceneClassConf = 0.1F;
  record->qsegInstInfos[9] = {9, -2, {1, 2, 3, 4}, 5, 6, 7, {{8, 9, 10, 11}, {}, {}}, 12};
  record->qsegCroppedWindowInfo = {0, 1, 640, 480};
  run(0);

  const auto rectangle = [](const std::string& indent, const char* name, unsigned int left,
                            unsigned int top, unsigned int width, unsigned int height) {
    const auto line = [&](const char* element, unsigned int value) {
      return indent + "    <" + element + ">" + std::to_string(value) + "</" + element + ">\n";
    };
    return indent + "<" + name + ">\n" + line("left", left) + line("top", top) +
           line("width", width) + line("height", height) + indent + "</" + name + ">\n";
  };
  const std::string i8(8, ' '), i12(12, ' '), i16(16, ' ');
  const auto instance = [&](const QSegInstInfo& one) {
    const auto line = [&](const char* name, auto value) {
      return i12 + "<" + name + ">" + std::to_string(value) + "</" + name + ">\n";
    };
    std::string text =
        i8 + "<qsegInstInfo>\n" + line("requestId", one.requestId) + line("ID", one.ID) +
        line("nConf", one.nConf) + line("nSegIdx", one.nSegIdx) +
        line("eTrackStatus", one.eTrackStatus) + line("eObjectType", one.eObjectType) +
        rectangle(i12, "roi", one.roi.left, one.roi.top, one.roi.width, one.roi.height) + i12 +
        "<partROIs>\n";
    for (const QSegRect& part : one.partROIs) {
      text += rectangle(i16, "partROI", part.left, part.top, part.width, part.height);
    }
    return text + i12 + "</partROIs>\n" + i8 + "</qsegInstInfo>\n";
  };
  std::string expected =
      "<QSegImageInfo>\n"
      "    <requestId>18446744073709551615</requestId>\n"
      "    <isQSegInfoValid>-1</isQSegInfoValid>\n"
      "    <horizontalRegionCount>4294967295</horizontalRegionCount>\n"
      "    <verticalRegionCount>480</verticalRegionCount>\n"
      "    <qsegInstCount>65535</qsegInstCount>\n"
      "    <qsegSceneClass>3</qsegSceneClass>\n"
      "    <qsegSceneClassConf>0.1</qsegSceneClassConf>\n"
      "    <qsegStatsInfo>" +
      labels(307200, "0 ") + "</qsegStatsInfo>\n    <qsegInstInfos>\n";
  for (const QSegInstInfo& one : record->qsegInstInfos) expected += instance(one);
  expected += "    </qsegInstInfos>\n" +
              rectangle("    ", "qsegCroppedWindowInfo", 0, 1, 640, 480) + "</QSegImageInfo>\n";
  EXPECT_TRUE(readFile(kDumped) == expected);
  EXPECT_EQ(takeLog(), (LogLines{{3, "dump " + kDumped + " success"}}));
}

TEST_F(QSeg, RoundTripReplacesEverythingThatIsRecorded) {
  run(0);
  const std::string dumped = readFile(kDumped);
  fill(4);
  const std::uint32_t live = record->notRecorded;
  takeLog();
  readBack(dumped);
  EXPECT_EQ(takeLog(), (LogLines{{6, "readback " + kReplayed + " success"}}));
  EXPECT_EQ(record->notRecorded, live);
  run(0);
  EXPECT_TRUE(readFile(kDumped) == dumped);
}

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
    fill(5);
    const std::string before = bytes();
    std::string expected = before;
    expected.replace(offsetof(QSegImageInfo, qsegStatsInfo), row.stored.size(), row.stored);
    readBack(map(row.text));
    EXPECT_TRUE(bytes() == expected) << row.text;
  }
}

TEST_F(QSeg, BadLabelsThrowBeforeAnythingIsStored) {
  const std::string before = bytes();
  EXPECT_THROW(readBack(map("1 2  3 ")), std::invalid_argument);
  EXPECT_THROW(readBack(map("1 x ")), std::invalid_argument);
  EXPECT_THROW(readBack(map("1 2147483648 ")), std::out_of_range);
  EXPECT_THROW(readBack(map(labels(307201, "1 ") + "x ")), std::invalid_argument);
  EXPECT_TRUE(bytes() == before);
  EXPECT_EXIT(readBack(map(labels(307201, "1 "))), testing::KilledBySignal(SIGABRT), "");
  readBack(map(labels(307200, "1 ")));
  EXPECT_EQ(record->qsegStatsInfo[307199], 1);
}

TEST_F(QSeg, HeaderConversions) {
  const struct {
    const char* text;
    std::function<bool(const QSegImageInfo&)> holds;
  } cases[] = {
      {"<a><requestId> 12</requestId></a>", [](auto& r) { return r.requestId == 12; }},
      {"<a><requestId>-1</requestId></a>", [](auto& r) { return r.requestId == ~0ULL; }},
      {"<a><qsegInstCount>70000</qsegInstCount></a>",
       [](auto& r) { return r.qsegInstCount == 4464; }},
      {"<a><verticalRegionCount>4294967301</verticalRegionCount></a>",
       [](auto& r) { return r.verticalRegionCount == 5; }},
      {"<a><isQSegInfoValid>-7up</isQSegInfoValid></a>",
       [](auto& r) { return r.isQSegInfoValid == -7; }},
      {"<a><qsegSceneClassConf>1e-3</qsegSceneClassConf></a>",
       [](auto& r) { return r.qsegSceneClassConf == 1e-3F; }},
      {"<a><qsegInstInfos><i/><x><ID>4294967295</ID></x></qsegInstInfos></a>",
       [](auto& r) { return r.qsegInstInfos[1].ID == -1; }},
      {"<a><qsegInstInfos><i><partROIs><p/><p/><q><top>9</top></q></partROIs></i></qsegInstInfos>"
       "</a>",
       [](auto& r) { return r.qsegInstInfos[0].partROIs[2].top == 9; }},
      {"<a><qsegCroppedWindowInfo><width>8</width></qsegCroppedWindowInfo></a>",
       [](auto& r) { return r.qsegCroppedWindowInfo.width == 8; }},
  };
  for (const auto& row : cases) {
    readBack(row.text);
    EXPECT_TRUE(row.holds(*record)) << row.text;
    EXPECT_EQ(takeLog(), (LogLines{{6, "readback " + kReplayed + " success"}}));
  }
}

TEST_F(QSeg, RejectedTextThrowsAndKeepsWhatWasReadBefore) {
  for (const char* text : {"<requestId/>", "<requestId>x</requestId>", "<isQSegInfoValid/>"}) {
    const std::string before = bytes();
    EXPECT_THROW(readBack(std::string("<a>") + text + "</a>"), std::invalid_argument) << text;
    EXPECT_TRUE(bytes() == before);
  }
  EXPECT_THROW(readBack("<a><requestId>9223372036854775808</requestId></a>"), std::out_of_range);
  EXPECT_THROW(readBack("<a><qsegSceneClass>x</qsegSceneClass><requestId>5</requestId></a>"),
               std::invalid_argument);
  EXPECT_EQ(record->requestId, 5U);
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(QSeg, MoreInstancesOrPartsThanTheRecordHoldsAbort) {
  const std::string id = "<ID>1</ID>";
  const std::string part = "<p><left>1</left></p>";
  const auto parts = [](const std::string& text) { return "<partROIs>" + text + "</partROIs>"; };
  readBack(instances(9, id));
  EXPECT_EQ(record->qsegInstInfos[9].ID, 1);
  readBack(instances(10, "<roi/>" + parts("<p/>")));  // stores nothing
  readBack(instances(0, parts("<p/><p/>" + part)));
  EXPECT_THROW(readBack(instances(10, "<ID>x</ID>")), std::invalid_argument);
  const auto aborted = testing::KilledBySignal(SIGABRT);
  EXPECT_EXIT(readBack(instances(10, id)), aborted, "");
  EXPECT_EXIT(readBack(instances(10, "<roi><top>1</top></roi>")), aborted, "");
  EXPECT_EXIT(readBack(instances(10, parts(part))), aborted, "");
  EXPECT_EXIT(readBack(instances(0, parts("<p/><p/><p/>" + part))), aborted, "");
}

TEST_F(QSeg, FailuresAreLoggedAndLeaveTheRecord) {
  const std::string before = bytes();
  run(1);
  readBack("<a><requestId>5</requestId>");
  readBack("<!-- first --><a><requestId>5</requestId></a>");
  run(2);
  EXPECT_TRUE(bytes() == before);
  EXPECT_EQ(takeLog(), (LogLines{{6, "load " + kReplayed + " failed"},
                                 {6, "load " + kReplayed + " failed"},
                                 {6, "readback " + kReplayed + " success"}}));
  simulation.dumpQsegImageData(nullptr, std::string(kReplayed).data());
  simulation.dumpQsegImageData(record.get(), std::string("/dev/full").data());
  simulation.dumpQsegImageData(record.get(), std::string("/nowhere/file").data());
  EXPECT_EQ(
      takeLog(),
      (LogLines{{6, "failed, pQSegImageInfo is null"},
                {6, "dump /dev/full failed, Error: XML_ERROR_FILE_READ_ERROR"},
                {6, "dump /nowhere/file failed, Error: XML_ERROR_FILE_COULD_NOT_BE_OPENED"}}));
}

}  // namespace
