// The small records of the extended white balance, OTP and spectral sensor: what
// their readbacks make of texts that a dump doesn't write.
#include <simulation/records.h>

#include <array>
#include <cstring>
#include <stdexcept>

#include "tests/support/camera_data.h"

namespace {

struct ZoAwb : CameraDataTest {
  void readBack(Operation run, const std::string& name, const std::string& document, void* data) {
    SimulationInfo info = infoFor(1);
    writeFile(kCamera + "simulation_" + name, document);
    run(&info, data);
  }
};

TEST_F(ZoAwb, XmlRecordsAreAppliedFieldByField) {
  ZOAWBLightSrcClassify live = {};
  const auto read = [&](const std::string& document) {
    readBack(call<&Simulation::SimulationForZOAWBLightSrcClassify>,
             "ZOAWB_LightSrcClassify_camId[3].xml", document, &live);
    return live.lightClass;
  };
  EXPECT_EQ(read("<?xml version=\"1.0\"?><any><lightClass> 9x</lightClass></any>"), 9);
  EXPECT_EQ(read("<!-- no element -->"), 9);
  for (const std::string last : {"<lightClass>x</lightClass>", "<lightClass/>"}) {
    live.firstCTConfid = 0;
    EXPECT_THROW(read("<a>" + last + "<firstCTConfid>2</firstCTConfid></a>"),
                 std::invalid_argument);
    EXPECT_EQ(live.firstCTConfid, 2.0F);
  }
  EXPECT_THROW(read("<a><lightClass>2147483648</lightClass></a>"), std::out_of_range);
  EXPECT_THROW(read("<a><firstCTValue>1e99</firstCTValue></a>"), std::out_of_range);
}

TEST_F(ZoAwb, OtpFileIsReadIntoEachEntryAndWhatItLacksStays) {
  struct {
    WBOTPCalibrationHead head;
    std::array<WBOTPCalibrationEntry, 256> entries = {};
  } table;
  std::string document = "<a><rOverG>none</rOverG><bOverG>2</bOverG></a>";
  for (const std::uint32_t count : {0U, 1U, 3U, 255U}) {
    table.head.entries = count;
    table.entries.fill({{3, 4}, 5, 6});
    readBack(call<&Simulation::SimulationForOTPCalibrationFactor>, "AWB_OTPData_camId[3].xml",
             document, &table);
    for (std::size_t i = 0; i < 256; ++i) {
      const WBOTPCalibrationEntry expected = {{3, 4}, 5, i < count ? 2.0F : 6.0F};
      EXPECT_EQ(std::memcmp(&table.entries[i], &expected, sizeof expected), 0) << count << ' ' << i;
    }
  }
  EXPECT_EQ(takeLog(), LogLines{});
  table.head.entries = 3;
  readBack(call<&Simulation::SimulationForOTPCalibrationFactor>, "AWB_OTPData_camId[3].xml", "",
           &table);
  EXPECT_EQ(takeLog().size(), 3U) << "the file is loaded for each entry";
}

struct Spectral : ZoAwb {
  void read(const std::string& children) {
    readBack(call<&Simulation::SimulationForZoAWBSpectralSensorInfo>,
             "ZOAWB_SpectralSensorInfo.xml", "<a>" + children + "</a>", &record);
  }
  SpectralSensorInfo record = {};
};

TEST_F(Spectral, ReadbackConversions) {
  read(
      "<channelNum>7</channelNum><flickerFrequency>-1</flickerFrequency><atime>-5</atime>"
      "<als_gain>4294967298</als_gain><again_idx>4294967295</again_idx>");
  EXPECT_EQ(record.channelNum, 7U);
  EXPECT_EQ(record.flickerFrequency, 4294967296.0F);
  EXPECT_EQ(record.als_gain, 2U);
  EXPECT_EQ(record.atime, -5);
  EXPECT_EQ(record.again_idx, -1);
  EXPECT_THROW(read("<cct>2</cct><lux/>"), std::invalid_argument);
  EXPECT_EQ(record.cct, 2.0F);
  EXPECT_THROW(read("<sensorType>4294967295</sensorType>"), std::out_of_range);
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(Spectral, ChannelsAreReadUntilATextIsNoNumber) {
  read("<channelDatas>1 2 3</channelDatas>");
  read("<channelDatas>\n+4 x 6</channelDatas>");
  read("<channelDatas/>");
  const float expected[] = {4, 2, 3, 0};
  EXPECT_EQ(std::memcmp(record.channelDatas, expected, sizeof expected), 0);
  const std::string twenty = "<channelDatas>1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20";
  read(twenty + " x 22</channelDatas>");
  EXPECT_EQ(record.channelDatas[19], 20.0F);
  EXPECT_EXIT(read(twenty + " 21</channelDatas>"), testing::KilledBySignal(SIGABRT), "");
}

}  // namespace
