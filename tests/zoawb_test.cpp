// OTP and the spectral sensor: what their dumps don't show.
#include <simulation/records.h>

#include <array>
#include <cstring>

#include "tests/support/camera_data.h"

namespace {

using ZoAwb = CameraDataTest;

TEST_F(ZoAwb, OtpFileIsLoadedForEachEntryAndNoOther) {
  struct {
    WBOTPCalibrationHead head;
    std::array<WBOTPCalibrationEntry, 256> entries;
  } table;
  for (const std::uint32_t count : {0U, 1U, 3U, 255U}) {
    SimulationInfo info = infoFor(1);
    const std::string file = kCamera + "simulation_AWB_OTPData_camId[3].xml";
    table.head.entries = count;
    table.entries.fill({{3, 4}, 5, 6});
    remove(file.c_str());
    sim().SimulationForOTPCalibrationFactor(&info, &table, kRequest, kCamId);
    EXPECT_EQ(takeLog().size(), count);
    writeFile(file, "<a><bOverG>2</bOverG></a>");
    sim().SimulationForOTPCalibrationFactor(&info, &table, kRequest, kCamId);
    for (std::size_t i = 0; i < 256; ++i) {
      const WBOTPCalibrationEntry expected = {{3, 4}, 5, i < count ? 2.0F : 6.0F};
      EXPECT_EQ(std::memcmp(&table.entries[i], &expected, sizeof expected), 0) << count << ' ' << i;
    }
  }
}

TEST_F(ZoAwb, SpectralChannelNumberComesFromAnEditedFile) {
  SpectralSensorInfo record = {};
  SimulationInfo info = infoFor(1);
  writeFile(kCamera + "simulation_ZOAWB_SpectralSensorInfo.xml",
            "<a><channelNum>7</channelNum></a>");
  sim().SimulationForZoAWBSpectralSensorInfo(&info, &record, kRequest, kCamId);
  EXPECT_EQ(record.channelNum, 7U);
}

}  // namespace
