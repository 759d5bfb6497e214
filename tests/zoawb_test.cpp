// OTP and the spectral sensor: what their dumps don't show.
#include <simulation/records.h>

#include <array>
#include <cstring>

#include "tests/support/all_records.h"

namespace {

struct OtpTable {
  WBOTPCalibrationHead head;
  std::array<WBOTPCalibrationEntry, 256> entries;
};

using ZoAwb = CameraDataTest;

TEST_F(ZoAwb, OtpFileIsLoadedForEachEntryAndNoOther) {
  const RecordOperation& record = recordNamed("OTPCalibrationFactor");
  for (const std::uint32_t count : {0U, 1U, 3U, 255U}) {
    OtpTable table = {{count}, {}};
    table.entries.fill({{3, 4}, 5, 6});
    clearCameraData();
    record.run(1, reinterpret_cast<char*>(&table));
    EXPECT_EQ(takeLog().size(), count);
    writeFile(record.replayed(), "<a><bOverG>2</bOverG></a>");
    record.run(1, reinterpret_cast<char*>(&table));
    for (std::size_t i = 0; i < 256; ++i) {
      const WBOTPCalibrationEntry expected = {{3, 4}, 5, i < count ? 2.0F : 6.0F};
      EXPECT_EQ(std::memcmp(&table.entries[i], &expected, sizeof expected), 0) << count << ' ' << i;
    }
  }
}

TEST_F(ZoAwb, SpectralChannelNumberComesFromAnEditedFile) {
  const RecordOperation& record = recordNamed("ZoAWBSpectralSensorInfo");
  SpectralSensorInfo data = {};
  writeFile(record.replayed(), "<a><channelNum>4294967303</channelNum></a>");
  record.run(1, reinterpret_cast<char*>(&data));
  EXPECT_EQ(data.channelNum, 7U);
}

}  // namespace
