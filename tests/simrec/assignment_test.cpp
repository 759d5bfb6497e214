// What set makes of a record, and what it refuses.
#include "simrec/assignment.h"

#include <sstream>

#include "simrec/derivation.h"
#include "simrec/error.h"
#include "tests/simrec/temp_folder.h"

namespace {

using namespace simrec;

constexpr char kExposure[] = "simulation_AWB_AECData_camId[0].xml";
constexpr char kTuning[] = "simulation_AWB_TuningMode_camId[0].bin";

/// As the library writes it.
std::string exposure(const std::string& lux, const std::string& settled, const std::string& time,
                     const std::string& matrix) {
  return "<SimulationData>\n    <AWBAlgoExposureInformation luxIndex=\"" + lux +
         "\" AECSettled=\"" + settled + "\" frameDuration=\"" + time +
         "\">\n        <BETemplateMatrix>" + matrix +
         "</BETemplateMatrix>\n    </AWBAlgoExposureInformation>\n</SimulationData>\n";
}

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return (std::ostringstream() << file.rdbuf()).str();
}

struct Row {
  const char* change;
  std::string due;  ///< the record, or a part of what is told
};

const Row kRows[] = {
    {"AWB_AECData.luxIndex=8.0", exposure("8", "-3", "5", "1 2 3 nan ")},
    {"AWB_AECData.luxIndex= -1e-3", exposure("-0.001", "-3", "5", "1 2 3 nan ")},
    {"AWB_AECData.luxIndex=NaN", exposure("nan", "-3", "5", "1 2 3 nan ")},
    {"AWB_AECData.luxIndex=-inf", exposure("-inf", "-3", "5", "1 2 3 nan ")},
    {"AWB_AECData.luxIndex*=1.5", exposure("3.75", "-3", "5", "1 2 3 nan ")},
    {"AWB_AECData.luxIndex*=inf", exposure("inf", "-3", "5", "1 2 3 nan ")},
    {"AWB_AECData.luxIndex*=0", exposure("0", "-3", "5", "1 2 3 nan ")},
    {"AWB_AECData.AECSettled=-2147483648", exposure("2.5", "-2147483648", "5", "1 2 3 nan ")},
    {"AWB_AECData.AECSettled*=1.5", exposure("2.5", "-4", "5", "1 2 3 nan ")},
    {"AWB_AECData.frameDuration=18446744073709551615",
     exposure("2.5", "-3", "18446744073709551615", "1 2 3 nan ")},
    {"AWB_AECData.frameDuration*=3", exposure("2.5", "-3", "15", "1 2 3 nan ")},
    {"AWB_AECData.BETemplateMatrix[3]=.25", exposure("2.5", "-3", "5", "1 2 3 0.25 ")},
    {"AWB_AECData.BETemplateMatrix=7", exposure("2.5", "-3", "5", "7 7 7 7 ")},
    {"AWB_AECData.BETemplateMatrix*=2", exposure("2.5", "-3", "5", "2 4 6 nan ")},
    {"TuningMode.sensorMode=513", std::string(16, 'm') + "\1\2" + std::string(42, 'm')},
    {"AWB_AECData.luxIndex=1e39", "beyond a float's range"},
    {"AWB_AECData.luxIndex=1e-50", "too near to 0"},
    {"AWB_AECData.luxIndex*=1e-60", "too near to 0"},
    {"AWB_AECData.luxIndex*=0.0", exposure("0", "-3", "5", "1 2 3 nan ")},
    {"AWB_AECData.luxIndex*=3e38", "beyond a float's range"},
    {"AWB_AECData.luxIndex=bright", "is no number"},
    {"AWB_AECData.luxIndex*=", "there is no number"},
    {"AWB_AECData.luxIndex[0]=1", "luxIndex is no list"},
    {"AWB_AECData.luxIndex.x=1", "luxIndex has no members of its own"},
    {"AWB_AECData.frameDuration=18446744073709551616", "beyond 64 bits"},
    {"AWB_AECData.frameDuration=-1", "beyond 64 bits"},
    {"AWB_AECData.frameDuration*=-1", "beyond 64 bits"},
    {"AWB_AECData.frameDuration=1.5", "is no number"},
    {"AWB_AECData.frameDuration*=nan", "is no number"},
    {"AWB_AECData.AECSettled=2147483648", "beyond 32 bits with a sign"},
    {"AWB_AECData.BETemplateMatrix[4]=1", "BETemplateMatrix ends at [3]"},
    {"AWB_AECData.BETemplateMatrix[x]=1", "'BETemplateMatrix[x]' is no member"},
    {"AWB_AECData.Lux=1", "AWB_AECData has no member Lux"},
    {"AWB_ParsedAWBStatsOutput.RSum=1", "no AWB_ParsedAWBStatsOutput in IMG_1"},
    {"QsegImageData.qsegInstInfos.ID=1", "qsegInstInfos wants an index"},
    {"QsegImageData.qsegInstInfos[0]=1", "qsegInstInfos has members of its own"},
    {"TuningMode.sensorMode=65536", "beyond 16 bits"},
    {"AECData.LuxIndex=1", "AECData"},
    {"luxIndex=1", "is no change"},
    {".luxIndex=1", "is no change"},
    {"=1", "is no change"},
    {"AWB_AECData.luxIndex", "is no change"},
};

TEST(SimrecAssignment, IsTheChangeOfOneMemberOrRefused) {
  const std::string origin = exposure("2.5", "-3", "5", "1 2 3 nan ");
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.change);
    const TempFolder folder;
    folder.write(std::string("IMG_1/") + kExposure, origin);
    folder.write(std::string("IMG_1/") + kTuning, std::string(60, 'm'));
    const Store store(folder.path());
    try {
      derive(store, {store.find("IMG_1"), "new", {parseAssignment(row.change)}, {}});
      const bool tuning = row.due[0] == 'm';
      EXPECT_EQ(contentOf(folder.path() + "/new/" + (tuning ? kTuning : kExposure)), row.due);
      EXPECT_EQ(contentOf(folder.path() + "/new/" + (tuning ? kExposure : kTuning)),
                tuning ? origin : std::string(60, 'm'));
    } catch (const Error& error) {
      EXPECT_NE(std::string(error.what()).find(row.due), std::string::npos) << error.what();
      EXPECT_FALSE(std::filesystem::exists(folder.path() + "/new"));
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path() + "/.simrec"));
  }
}

/// Changes of several kinds, cameras and members at once; a record that is damaged or of another
/// form than the library's can't be written again.
TEST(SimrecAssignment, ChangesOfOneCameraLeaveTheOthers) {
  const TempFolder folder;
  const std::string other = "simulation_AWB_AECData_camId[1].xml";
  folder.write(std::string("IMG_1/") + kExposure, exposure("2", "1", "5", "1 2 3 4 "));
  folder.write("IMG_1/" + other, exposure("2", "1", "5", "1 2 3 "));
  const Store store(folder.path());
  const auto set = [&](const char* name, std::optional<int> camera) {
    return derive(store, {store.find("IMG_1"),
                          name,
                          {parseAssignment("AWB_AECData.luxIndex=3"),
                           parseAssignment("AWB_AECData.luxIndex*=2")},
                          camera});
  };
  EXPECT_EQ(set("new", 0).changed, std::vector<std::string>{kExposure});
  EXPECT_EQ(contentOf(folder.path() + "/new/" + kExposure), exposure("6", "1", "5", "1 2 3 4 "));
  EXPECT_EQ(contentOf(folder.path() + "/new/" + other), exposure("2", "1", "5", "1 2 3 "));
  const std::string longest(256, 'n');
  for (const char* name :
       {"both", "new", "tmp", "staged", "a/b", ".x", "", longest.c_str(), kTuning}) {
    EXPECT_THROW(set(name, std::nullopt), Error) << name;
  }
  EXPECT_THROW(set("third", 2), Error);
  EXPECT_FALSE(std::filesystem::exists(folder.path() + "/both"));
}

}  // namespace
