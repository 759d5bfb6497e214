// The auto exposure record: what each damage to its document leaves live.
#include <simulation/records.h>

#include "core/bytes.h"
#include "tests/support/camera_data.h"

namespace {

using simulation::store;

constexpr struct {
  const char* element;
  std::size_t offset, size;
} kMembers[] = {{"LuxIndex", 1168, 4},
                {"DigitalGain", 1200, 4},
                {"ExposureIndexShort", 1840, 16},
                {"ExposureIndexLong", 1872, 16},
                {"ExposureIndexSafe", 1904, 16},
                {"DrcGain", 1204, 4},
                {"DrcGainDark", 1272, 4}};

struct AecData : CameraDataTest {
  std::string readBack(const std::string& text) {
    std::uint32_t step = 2;
    SimulationInfo info = infoFor(1);
    std::string record = live;
    writeFile(file, text);
    simulation.SimulationForAECData(&info, record.data(), kRequest, kCamId, &step);
    return record;
  }
  /// The live record with the first `count` members of the document.
  std::string withMembers(std::size_t count) {
    std::string record = live;
    const std::string whole = readBack(document);
    for (std::size_t i = 0; i < count; ++i) {
      record.replace(kMembers[i].offset, kMembers[i].size, whole, kMembers[i].offset,
                     kMembers[i].size);
    }
    takeLog();
    return record;
  }

  const std::string live = pattern(2048, 1);
  const std::string document = golden("AECData");
  const std::string file = kCamera + "simulation_AE_AECData_camId[3]_ev[2].xml";
  const LogLine success = {6, "readback " + file + " success"};
};

TEST_F(AecData, ReadbackStopsAtTheFirstMissingElement) {
  for (std::size_t i = 0; i < std::size(kMembers); ++i) {
    const std::string name = kMembers[i].element;
    const std::string expected = withMembers(i);
    EXPECT_EQ(readBack(withoutLine(document, '<' + name)), expected) << name;
    EXPECT_EQ(takeLog(), (LogLines{{6, "read " + name + " element failed"}}));
  }
}

TEST_F(AecData, OnlyTheFirstNodeOfTheDocumentCounts) {
  const LogLine missingLux = {6, "read LuxIndex element failed"};
  const LogLine noRoot = {6, "[" + file + "] read xml root failed"};
  std::string renamed = document;
  renamed.replace(1, 14, "other").replace(renamed.rfind('/') + 1, 14, "other");
  const struct {
    std::string document;
    std::size_t count;
    LogLine log;
  } cases[] = {
      {renamed, 7, success},
      {"<?xml version=\"1.0\"?>" + document, 0, missingLux},
      {"<!-- edited -->" + document, 0, missingLux},
      {"<a/>" + document, 0, missingLux},
      {document + "<damaged", 7, success},
      {"", 0, noRoot},
  };
  for (const auto& row : cases) {
    const std::string expected = withMembers(row.count);
    EXPECT_EQ(readBack(row.document), expected) << row.document;
    EXPECT_EQ(takeLog(), LogLines{row.log}) << row.document;
  }
}

TEST_F(AecData, ValuesThatAreMissingOrNoNumbersStayLive) {
  std::string expected = live;
  store(expected.data(), 1840 + 8, 7.0F);
  store(expected.data(), 1872, std::uint64_t{5});
  store(expected.data(), 1872 + 12, 6.5F);
  store(expected.data(), 1204, 8.0F);
  EXPECT_EQ(readBack("<a><LuxIndex>bright</LuxIndex><DigitalGain/>"
                     "<ExposureIndexShort ExposureTime='soon' Gain='7' Sensitivity='high'/>"
                     "<ExposureIndexLong ExposureTime='5' Sensitivity=' 6.5x'/><ExposureIndexSafe/>"
                     "<DrcGain> +8 </DrcGain><DrcGainDark><!--7-->9</DrcGainDark></a>"),
            expected);
  EXPECT_EQ(takeLog(), LogLines{success});
}

}  // namespace
