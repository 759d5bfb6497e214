// The small records of the extended white balance, OTP and spectral sensor.
#include <simulation/records.h>

#include <array>
#include <cstring>
#include <stdexcept>

#include "tests/support/camera_data.h"

namespace {

using Operation = void (Simulation::*)(SimulationInfo*, void*, unsigned int, unsigned int);

const std::string kFolder = kCamera + "tmp/RequestID[57]_camId[2]/";

struct ZoAwb : CameraDataTest {
  void run(Operation operation, std::uint32_t mode, void* data, unsigned int camera = 2) {
    SimulationInfo info = infoFor(mode);
    Simulation& target = simulation;  // g++ 12's sanitizer takes the member for the fixture
    (target.*operation)(&info, data, 57, camera);
  }
};

TEST_F(ZoAwb, BinaryRecords) {
  const struct {
    Operation run;
    const char* file;
    std::size_t size;
  } records[] = {
      {&Simulation::SimulationForZOAWBFaceDectionInfo,
       "simulation_ZOAWB_FaceDectionInfo_camId[2].bin", 964},
      {&Simulation::SimulationForZOAWBFaceColorDectionInfo,
       "simulation_ZOAWB_FaceColorDectionInfo_camId[2].bin", 204},
  };
  for (const auto& record : records) {
    const std::string saved = pattern(record.size, 1);
    run(record.run, 0, std::string(saved).data());
    EXPECT_EQ(readFile(kFolder + record.file), saved);
    writeFile(kCamera + record.file, saved + "excess");
    std::string live = pattern(record.size, 2);
    run(record.run, 2, live.data());
    EXPECT_EQ(live, pattern(record.size, 2));
    run(record.run, 1, live.data());
    EXPECT_EQ(live, saved);
    EXPECT_EQ(takeLog(), LogLines{});
    writeFile(kCamera + record.file, saved.substr(0, 100));
    run(record.run, 1, live.data());
    EXPECT_EQ(live, saved);
    EXPECT_EQ(takeLog(), (LogLines{{6, "read fileName:" + kCamera + record.file +
                                           " size(100) is not equal to we need(" +
                                           std::to_string(record.size) + ") or pData is NULL"}}));
  }
}

/// A record of 32-bit words, as an XML document.
struct XmlRecord {
  Operation run;
  const char* file;
  std::string document;
  std::string words;  ///< the record that it is dumped from and replayed to
};

template <typename Record>
std::string wordsOf(const Record& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

/// "<root>" and a line for each child; the children's names alternate with texts.
std::string documentOf(const std::string& root, const std::vector<std::string>& children) {
  std::string text = "<" + root + ">\n";
  for (std::size_t i = 0; i + 1 < children.size(); i += 2) {
    text += "    <" + children[i] + ">" + children[i + 1] + "</" + children[i] + ">\n";
  }
  return text + "</" + root + ">\n";
}

const XmlRecord kXmlRecords[] = {
    {&Simulation::SimulationForZOAWBWideAlwaysOnStatus,
     "simulation_ZOAWB_WideAlwaysOnStatus_camId[2].xml",
     documentOf("WideAlwaysOnStatus", {"status", "-2147483648"}),
     wordsOf(ZOAWBWideAlwaysOnStatus{-2147483647 - 1})},
    {&Simulation::SimulationForZOAWBSyncInfo, "simulation_ZOAWB_SyncInfo_camId[2].xml",
     documentOf("AWBsyncInfo", {"syncinfo", "3"}), wordsOf(ZOAWBSyncInfo{3})},
    {&Simulation::SimulationForZOAWBPureColorRes, "simulation_ZOAWB_PureColorRes_camId[2].xml",
     documentOf("PureColorRes", {"enabled", "1", "singlePureColorConfid", "0.1",
                                 "pureColorBackgrdFaceConfid", "-2.5e-08"}),
     wordsOf(ZOAWBPureColorRes{1, 0.1F, -2.5e-8F})},
    {&Simulation::SimulationForZOAWBLightSrcClassify,
     "simulation_ZOAWB_LightSrcClassify_camId[2].xml",
     documentOf("LightSrcClassify", {"enabled", "-1", "firstCTConfid", "0.5", "secondCTConfid",
                                     "0.25", "firstCTValue", "5012.5", "secondCTValue", "123456.79",
                                     "lightClassConfid", "1", "lightClass", "7"}),
     wordsOf(ZOAWBLightSrcClassify{-1, 0.5F, 0.25F, 5012.5F, 123456.789F, 1, 7})},
};

TEST_F(ZoAwb, XmlRecords) {
  for (const XmlRecord& record : kXmlRecords) {
    run(record.run, 0, std::string(record.words).data());
    EXPECT_EQ(readFile(kFolder + record.file), record.document);
    EXPECT_EQ(takeLog(), (LogLines{{2, "dump " + kFolder + record.file + " success"}}));

    std::string live(record.words.size(), '\x55');
    run(record.run, 1, live.data());
    EXPECT_EQ(takeLog(), (LogLines{{6, "read " + kCamera + record.file + " fail error:3"}}));
    EXPECT_EQ(live, std::string(live.size(), '\x55'));
    writeFile(kCamera + record.file, "<?xml version=\"1.0\"?>" + record.document);
    run(record.run, 2, live.data());
    EXPECT_EQ(live, std::string(live.size(), '\x55'));
    run(record.run, 1, live.data());
    EXPECT_EQ(live, record.words);
    EXPECT_EQ(takeLog(), LogLines{});
    remove((kFolder + record.file).c_str());
    ASSERT_EQ(symlink("/dev/full", (kFolder + record.file).c_str()), 0);
    run(record.run, 0, live.data());
    EXPECT_EQ(takeLog(), (LogLines{{6, "dump " + kFolder + record.file +
                                           " failed, Error: XML_ERROR_FILE_READ_ERROR"}}));
  }
}

TEST_F(ZoAwb, XmlRecordsAreAppliedFieldByField) {
  const XmlRecord& record = kXmlRecords[3];
  const auto readBack = [&](const char* document, ZOAWBLightSrcClassify live = {}) {
    writeFile(kCamera + record.file, document);
    run(record.run, 1, &live);
    return live;
  };
  EXPECT_EQ(readBack("<any><lightClass> 9x</lightClass></any>").lightClass, 9);
  EXPECT_EQ(readBack("<!-- no element -->").lightClass, 0);
  ZOAWBLightSrcClassify live = {};
  for (const char* last : {"<lightClass>x</lightClass>", "<lightClass/>"}) {
    writeFile(kCamera + record.file,
              std::string("<a>") + last + "<firstCTConfid>2</firstCTConfid></a>");
    EXPECT_THROW(run(record.run, 1, &live), std::invalid_argument);
    EXPECT_EQ(live.firstCTConfid, 2.0F);
  }
  EXPECT_THROW(readBack("<a><lightClass>2147483648</lightClass></a>"), std::out_of_range);
  EXPECT_THROW(readBack("<a><firstCTValue>1e99</firstCTValue></a>"), std::out_of_range);
}

struct Otp : ZoAwb {
  struct Table {
    WBOTPCalibrationHead head;
    WBOTPCalibrationEntry entries[4];
  };
  void readBack(const std::string& document) {
    writeFile(kCamera + "simulation_AWB_OTPData_camId[2].xml", document);
    run(&Simulation::SimulationForOTPCalibrationFactor, 1, &table);
  }
  Table table = {{3}, {{{1, 2}, 0.5F, 0.75F}, {{3, 4}, 5, 6}, {{7, 8}, 9, 10}, {{11, 12}, 13, 14}}};
};

TEST_F(Otp, FirstPairIsDumpedAndLandsInEveryEntry) {
  run(&Simulation::SimulationForOTPCalibrationFactor, 0, &table);
  const std::string dumped = kFolder + "simulation_AWB_OTPData_camId[2].xml";
  EXPECT_EQ(readFile(dumped), documentOf("WBOTPData", {"rOverG", "0.5", "bOverG", "0.75"}));
  EXPECT_EQ(takeLog(), (LogLines{{2, "dump " + dumped + " success"}}));

  readBack("<a><rOverG>1.5</rOverG><bOverG>none</bOverG></a>");
  const Table expected = {
      {3}, {{{1, 2}, 1.5F, 0.75F}, {{3, 4}, 1.5F, 6}, {{7, 8}, 1.5F, 10}, {{11, 12}, 13, 14}}};
  EXPECT_EQ(memcmp(&table, &expected, sizeof table), 0);
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(Otp, FileIsLoadedOnceForEachEntry) {
  const Table before = table;
  const LogLine failed = {6,
                          "dump " + kCamera + "simulation_AWB_OTPData_camId[2].xml fail error:3"};
  run(&Simulation::SimulationForOTPCalibrationFactor, 1, &table);
  EXPECT_EQ(takeLog(), LogLines(3, failed));
  table.head.entries = 0;
  run(&Simulation::SimulationForOTPCalibrationFactor, 1, &table);
  EXPECT_EQ(takeLog(), LogLines{});
  table.head.entries = 3;
  EXPECT_EQ(memcmp(&table, &before, sizeof table), 0);
}

TEST_F(Otp, TableOf255EntriesEnds) {
  struct {
    WBOTPCalibrationHead head = {255};
    std::array<WBOTPCalibrationEntry, 256> entries = {};
  } large;
  writeFile(kCamera + "simulation_AWB_OTPData_camId[2].xml", "<a><bOverG>2</bOverG></a>");
  run(&Simulation::SimulationForOTPCalibrationFactor, 1, &large);
  EXPECT_EQ(large.entries[254].bOverG, 2.0F);
  EXPECT_EQ(large.entries[255].bOverG, 0.0F);
}

struct Spectral : ZoAwb {
  static constexpr Operation kRun = &Simulation::SimulationForZoAWBSpectralSensorInfo;
  const std::string replayed = kCamera + "simulation_ZOAWB_SpectralSensorInfo.xml";

  void readBack(const std::string& children, unsigned int camera = 2) {
    writeFile(replayed, "<a>" + children + "</a>");
    run(kRun, 1, &record, camera);
  }
  SpectralSensorInfo record = {1,  5012.5F, 123456.789F, 0.1F,        0.2F,  0.3F, {},
                               20, 0.3127F, 0.329F,      4294967295U, 50.5F, -100, -2147483647 - 1,
                               7};
};

TEST_F(Spectral, DocumentAsAWhole) {
  record.channelDatas[1] = 1.5F;
  record.channelDatas[2] = 1.0F / 3;
  record.channelDatas[19] = 1234567.0F;
  run(kRun, 0, &record);
  const std::string dumped = kFolder + "simulation_ZOAWB_SpectralSensorInfo.xml";
  EXPECT_EQ(readFile(dumped),
            documentOf("SpectralSensorInfo",
                       {"enabled",
                        "1",
                        "cct",
                        "5012.5",
                        "lux",
                        "123456.79",
                        "irRatio1",
                        "0.1",
                        "irRatio2",
                        "0.2",
                        "irRatio3",
                        "0.30000001",
                        "channelDatas",
                        "0 1.5 0.333333 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1.23457e+06 ",
                        "x",
                        "0.3127",
                        "y",
                        "0.329",
                        "als_gain",
                        "4294967295",
                        "flickerFrequency",
                        "50.5",
                        "atime",
                        "-100",
                        "again_idx",
                        "-2147483648",
                        "sensorType",
                        "7"}));
  EXPECT_EQ(takeLog(), (LogLines{{2, "dump " + dumped + " success"}}));

  // What does not come back: the channels' digits past six, channelNum, 50.5.
  SpectralSensorInfo expected = record;
  expected.channelDatas[2] = 0.333333F;
  expected.channelDatas[19] = 1.23457e+06F;
  expected.channelNum = 9;
  expected.flickerFrequency = 50;
  writeFile(replayed, readFile(dumped));
  record = {};
  record.channelNum = 9;
  run(kRun, 1, &record, 0);
  EXPECT_EQ(wordsOf(record), wordsOf(expected));
}

TEST_F(Spectral, ReadbackConversions) {
  readBack("<channelNum>7</channelNum>", 5);
  EXPECT_EQ(record.channelNum, 7U);
  EXPECT_EQ(record.enabled, 1);
  readBack(
      "<flickerFrequency>-1</flickerFrequency><als_gain>4294967298</als_gain>"
      "<atime>-5</atime><again_idx>4294967295</again_idx>");
  EXPECT_EQ(record.flickerFrequency, 4294967296.0F);
  EXPECT_EQ(record.als_gain, 2U);
  EXPECT_EQ(record.atime, -5);
  EXPECT_EQ(record.again_idx, -1);
  EXPECT_THROW(readBack("<cct>2</cct><lux/>"), std::invalid_argument);
  EXPECT_EQ(record.cct, 2.0F);
  EXPECT_THROW(readBack("<sensorType>4294967295</sensorType>"), std::out_of_range);
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(Spectral, ChannelsAreReadUntilATextIsNoNumber) {
  readBack("<channelDatas>1 2 3</channelDatas>");
  readBack("<channelDatas>\n+4 x 6</channelDatas>");
  readBack("<channelDatas/>");
  EXPECT_EQ(record.channelDatas[0], 4.0F);
  EXPECT_EQ(record.channelDatas[1], 2.0F);
  EXPECT_EQ(record.channelDatas[2], 3.0F);
  EXPECT_EQ(record.channelDatas[3], 0.0F);
  const std::string twenty = "<channelDatas>1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20";
  readBack(twenty + " x 22</channelDatas>");
  EXPECT_EQ(record.channelDatas[19], 20.0F);
  EXPECT_EXIT(readBack(twenty + " 21</channelDatas>"), testing::KilledBySignal(SIGABRT), "");
}

TEST_F(Spectral, FailuresAreLogged) {
  run(kRun, 1, &record);
  EXPECT_EQ(takeLog(), (LogLines{{6, "read " + replayed + " fail "}}));
  const ReadOnlyCameraData readOnly;
  run(kRun, 0, &record);
  EXPECT_EQ(takeLog().back(),
            (LogLine{6, "dump " + kFolder + "simulation_ZOAWB_SpectralSensorInfo.xml failed"}));
}

}  // namespace
