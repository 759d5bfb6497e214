// ACB records: the folder they name, two planes in one file, the orientation.
#include <simulation/records.h>

#include <filesystem>
#include <utility>

#include "tests/support/camera_data.h"

namespace {

namespace fs = std::filesystem;

const std::string kFolder = kCamera + "IMG_0001/";
const std::string kImage = "simulation_ACB_acb_camId[0].bin";
const std::string kOrientation = "simulation_ACB_acb_orientation_camId[0].xml";

struct Acb : CameraDataTest {
  std::string planes = "yyyyyyyycccc";
  AcbImage image = {{}, {planes.data(), {}, 8}, {planes.data() + 8, {}, 4}};

  LogLines runImage(std::uint32_t mode, std::uint32_t ySize = 8) {
    SimulationInfo info = infoFor(mode);
    image.y.size = ySize;
    simulation.SimulationForACB(&info, &image, 77, 0);
    return takeLog();
  }
  int runOrientation(std::uint32_t mode, int orientation) {
    SimulationInfo info = infoFor(mode);
    AcbDeviceOrientation record = {7, orientation};
    simulation.SimulationForACBdeviceOri(&info, &record, 77, 0);
    return record.orientation;
  }
};

TEST_F(Acb, DumpFolderIsMadeOneLevelDeep) {
  char path[128];
  simulation.getACBAWBFilesPath(-1, FileType::AE, path, 1, 2, nullptr);
  EXPECT_EQ(path, kCamera + "simulation_AE");
  EXPECT_EQ(tree(), std::vector<std::string>{});
  simulation.getACBAWBFilesPath(0, FileType::AE, path, 1, 2, std::string("a/b").data());
  EXPECT_EQ(path, kCamera + "a/b/simulation_AE");
  EXPECT_EQ(tree(), std::vector<std::string>{"tmp/"});
  EXPECT_EQ(takeLog(), (LogLines{{6, "dirPath:" + kCamera + "a/b create fail"}}));
}

TEST_F(Acb, EveryDumpRewritesTheFileUnlessAPlaneIsNull) {
  void* const c = std::exchange(image.c.data, nullptr);
  EXPECT_EQ(runImage(0), LogLines{});
  EXPECT_EQ(tree(), (std::vector<std::string>{"IMG_0001/", "tmp/"}));
  image.c.data = c;
  runImage(0);
  EXPECT_EQ(readFile(kFolder + kImage), "yyyyyyyycccc");
  EXPECT_EQ(runImage(0, 3), LogLines{});
  EXPECT_EQ(readFile(kFolder + kImage), "yyycccc");
}

TEST_F(Acb, ReadbackFillsThePlanesAsFarAsTheFileGoes) {
  for (const auto& [file, result] :
       {std::pair("012", "012yyyyycccc"), std::pair("0123456789", "0123456789cc"),
        std::pair("0123456789abexcess", "0123456789ab")}) {
    planes.replace(0, 12, "yyyyyyyycccc");
    writeFile(kCamera + kImage, file);
    EXPECT_EQ(runImage(1), LogLines{});
    EXPECT_EQ(planes, result);
  }
}

TEST_F(Acb, FailuresNameThePlane) {
  const std::string read = kCamera + kImage;
  EXPECT_EQ(runImage(1), (LogLines{{6, "Failed to open file " + read + " for reading"}}));
  fs::create_directory(read);  // opens, can't be read
  EXPECT_EQ(runImage(1), (LogLines{{6, "Failed to read Y plane data from file " + read}}));
  EXPECT_EQ(runImage(1, 0), (LogLines{{6, "Failed to read C plane data from file " + read}}));
  const std::string written = kFolder + kImage;
  fs::create_directories(written);
  EXPECT_EQ(runImage(0), (LogLines{{6, "Failed to open file " + written + " for writing"}}));
  fs::remove(written);
  fs::create_symlink("/dev/full", written);
  EXPECT_EQ(runImage(0), (LogLines{{6, "Failed to write Y plane data to file " + written}}));
  EXPECT_EQ(runImage(0, 0), (LogLines{{6, "Failed to write C plane data to file " + written}}));
}

TEST_F(Acb, OrientationIsReplacedByAnIntegerOnly) {
  runOrientation(0, -90);
  const std::string dumped = readFile(kFolder + kOrientation);
  EXPECT_EQ(dumped, "<ExtExposure>\n    <orientation>-90</orientation>\n</ExtExposure>\n");
  fs::remove(kFolder + kOrientation);
  fs::create_symlink("/dev/full", kFolder + kOrientation);
  runOrientation(0, 0);
  for (const auto& [file, orientation] :
       {std::pair(dumped, -90),
        std::pair(std::string("<Any><orientation>up</orientation></Any>"), 5),
        std::pair(std::string("<Any><Angle>9</Angle></Any>"), 5),
        std::pair(std::string("<!-- -->"), 5), std::pair(std::string(), 5)}) {
    writeFile(kCamera + kOrientation, file);
    EXPECT_EQ(runOrientation(1, 5), orientation) << file;
  }
  EXPECT_EQ(takeLog(), (LogLines{{2, "dump " + kFolder + kOrientation + " success"},
                                 {6, "dump " + kFolder + kOrientation + " fail"},
                                 {6, "dump " + kCamera + kOrientation + " fail error:13"}}));
}

}  // namespace
