// The auto exposure record: its document, and what each damage to it leaves live.
#include <simulation/records.h>

#include "core/bytes.h"
#include "tests/support/camera_data.h"
#include "tests/support/camx_memory.h"
#include "tests/support/comma_locale.h"

namespace {

using simulation::load;
using simulation::store;
using Layout = AECOutputLayout;

const char* const kElements[] = {"LuxIndex",          "DigitalGain",       "ExposureIndexShort",
                                 "ExposureIndexLong", "ExposureIndexSafe", "DrcGain",
                                 "DrcGainDark"};

const std::string kDocument =
    "<SimulationData>\n"
    "    <LuxIndex>250.5</LuxIndex>\n"
    "    <DigitalGain>1.0000001</DigitalGain>\n"
    "    <ExposureIndexShort ExposureTime=\"18446744073709551615\" Gain=\"1.5\" "
    "Sensitivity=\"123456.79\"/>\n"
    "    <ExposureIndexLong ExposureTime=\"33000000\" Gain=\"2.5\" "
    "Sensitivity=\"4.2949673e+09\"/>\n"
    "    <ExposureIndexSafe ExposureTime=\"0\" Gain=\"-3.5\" Sensitivity=\"0\"/>\n"
    "    <DrcGain>0.1</DrcGain>\n"
    "    <DrcGainDark>2.5e-08</DrcGainDark>\n"
    "</SimulationData>\n";

/// The values of kDocument in the first `count` elements, over `record`.
std::string replayed(std::string record, std::size_t count) {
  const AECExposure exposures[3] = {
      {~0ULL, 1.5F, 123456.789F, {}}, {33000000, 2.5F, 4294967296.0F, {}}, {0, -3.5F, 0.0F, {}}};
  if (count > 0) store(record.data(), Layout::luxIndex, 250.5F);
  if (count > 1) store(record.data(), Layout::digitalGain, 1.0000001F);
  for (std::size_t i = 0; i < 3 && i + 2 < count; ++i) {
    std::memcpy(&record[Layout::exposures + 32 * i], &exposures[i], 16);
  }
  if (count > 5) store(record.data(), Layout::drcGain, 0.1F);
  if (count > 6) store(record.data(), Layout::drcGainDark, 2.5e-8F);
  return record;
}

struct AecData : CameraDataTest {
  void run(std::uint32_t mode, std::uint32_t step = 2) {
    SimulationInfo info = infoFor(mode);
    simulation.SimulationForAECData(&info, record.data(), 57, 1, &step);
  }
  void readBack(const std::string& document) {
    record = live;
    writeFile(replayedFile, document);
    run(1);
  }

  const std::string live = pattern(2048, 1);
  std::string record = replayed(live, 7);
  const std::string replayedFile = kCamera + "simulation_AE_AECData_camId[1]_ev[2].xml";
  const std::string folder = kCamera + "tmp/RequestID[57]_camId[1]/";
  const std::string dumpedFile = folder + "simulation_AE_AECData_camId[1]_ev[2].xml";
  const LogLine success = {6, "readback " + replayedFile + " success"};
};

TEST_F(AecData, OneDocumentForEachStep) {
  const std::string before = record;
  run(0);
  EXPECT_EQ(readFile(dumpedFile), kDocument);
  EXPECT_EQ(record, before);
  EXPECT_EQ(takeLog(), (LogLines{{6, "dump " + dumpedFile + " success"}}));
  run(0, 4294967295U);
  EXPECT_EQ(tree(folder), (std::vector<std::string>{"simulation_AE_AECData_camId[1]_ev[-1].xml",
                                                    "simulation_AE_AECData_camId[1]_ev[2].xml"}));
}

TEST_F(AecData, CommaOfTheProcessDoesNotMatter) {
  const CommaLocale comma;
  run(0);
  EXPECT_EQ(readFile(dumpedFile), kDocument);
  readBack(kDocument);
  EXPECT_EQ(record, replayed(live, 7));
}

TEST_F(AecData, ReadbackStopsAtTheFirstMissingElement) {
  readBack(kDocument);
  EXPECT_EQ(record, replayed(live, 7));
  EXPECT_EQ(takeLog(), LogLines{success});
  for (std::size_t i = 0; i < std::size(kElements); ++i) {
    const std::string name = kElements[i];
    readBack(withoutLine(kDocument, '<' + name));
    EXPECT_EQ(record, replayed(live, i)) << name;
    EXPECT_EQ(takeLog(), (LogLines{{6, "read " + name + " element failed"}}));
  }
}

TEST_F(AecData, OnlyTheFirstNodeOfTheDocumentCounts) {
  const std::string inner = kDocument.substr(16, kDocument.size() - 16 - 18);
  const LogLine missingLux = {6, "read LuxIndex element failed"};
  const LogLine noRoot = {6, "[" + replayedFile + "] read xml root failed"};
  const struct {
    std::string document;
    std::size_t count;
    LogLine log;
  } cases[] = {
      {"<other>" + inner + "</other>", 7, success},
      {"<?xml version=\"1.0\"?>" + kDocument, 0, missingLux},
      {"<!-- edited -->" + kDocument, 0, missingLux},
      {"<a/>" + kDocument, 0, missingLux},
      {kDocument + "<damaged", 7, success},
      {"<SimulationData>" + inner, 0, noRoot},
      {"", 0, noRoot},
  };
  for (const auto& row : cases) {
    readBack(row.document);
    EXPECT_EQ(record, replayed(live, row.count)) << row.document;
    EXPECT_EQ(takeLog(), LogLines{row.log}) << row.document;
  }
  ASSERT_EQ(unlink(replayedFile.c_str()), 0);
  run(1);
  EXPECT_EQ(takeLog(), LogLines{noRoot});
}

TEST_F(AecData, ValuesThatAreMissingOrNoNumbersStayLive) {
  readBack(
      "<a><LuxIndex>bright</LuxIndex><DigitalGain/>"
      "<ExposureIndexShort ExposureTime='soon' Gain='7' Sensitivity='high'/>"
      "<ExposureIndexLong ExposureTime='5' Sensitivity=' 6.5x'/>"
      "<ExposureIndexSafe/><DrcGain> +8 </DrcGain><DrcGainDark><!--7-->9</DrcGainDark></a>");
  std::string expected = live;
  store(expected.data(), Layout::exposures + 8, 7.0F);
  store(expected.data(), Layout::exposures + 32, std::uint64_t{5});
  store(expected.data(), Layout::exposures + 32 + 12, 6.5F);
  store(expected.data(), Layout::drcGain, 8.0F);
  EXPECT_EQ(record, expected);
  EXPECT_EQ(takeLog(), LogLines{success});
}

TEST_F(AecData, OtherModesAndFailures) {
  writeFile(replayedFile, kDocument);
  record = live;
  run(2);
  EXPECT_EQ(takeLog(), LogLines{});
  {
    const NoMemory noMemory(NoMemory::kObjects);
    run(1);
    EXPECT_EQ(takeLog(), (LogLines{{6, "create XMLDocument " + replayedFile + " failed"}}));
  }
  EXPECT_EQ(record, live);
  EXPECT_EQ(tree().size(), 1U);
  const ReadOnlyCameraData readOnly;
  run(0);
  EXPECT_EQ(
      takeLog().back(),
      (LogLine{6, "dump " + dumpedFile + " failed, Error: XML_ERROR_FILE_COULD_NOT_BE_OPENED"}));
}

}  // namespace
