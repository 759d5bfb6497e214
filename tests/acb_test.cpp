// ACB records: the folder they name and two planes in one file.
#include <simulation/records.h>
#include <sys/stat.h>

#include <filesystem>
#include <utility>

#include "tests/support/camera_data.h"

namespace {

namespace fs = std::filesystem;

const std::string kImage = "simulation_ACB_acb_camId[3].bin";
const std::string kWritten = kCamera + kImageFolder + kImage;

struct Acb : CameraDataTest {
  std::string planes = "yyyyyyyycccc";
  AcbImage image = {{}, {planes.data(), {}, 8}, {planes.data() + 8, {}, 4}};

  LogLines run(std::uint32_t mode, std::uint32_t ySize = 8) {
    SimulationInfo info = infoFor(mode);
    image.y.size = ySize;
    sim().SimulationForACB(&info, &image, kRequest, kCamId);
    return takeLog();
  }
};

TEST_F(Acb, EveryDumpRewritesTheFileUnlessAPlaneIsNull) {
  void* const c = std::exchange(image.c.data, nullptr);
  EXPECT_EQ(run(0), LogLines{});
  EXPECT_EQ(tree(), (Names{"IMG_0001/", "tmp/"}));
  image.c.data = c;
  run(0);
  EXPECT_EQ(readFile(kWritten), "yyyyyyyycccc");
  EXPECT_EQ(run(0, 3), LogLines{});
  EXPECT_EQ(readFile(kWritten), "yyycccc");
  struct stat status = {};
  ASSERT_EQ(stat(kWritten.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0666U);
}

TEST_F(Acb, ReadbackFillsThePlanesAsFarAsTheFileGoes) {
  const struct {
    std::uint32_t mode;
    const char *file, *planes;
  } cases[] = {{1, "012", "012yyyyycccc"},
               {1, "0123456789", "0123456789cc"},
               {1, "0123456789abexcess", "0123456789ab"},
               {2, "0123456789ab", "yyyyyyyycccc"}};
  for (const auto& row : cases) {
    planes.replace(0, 12, "yyyyyyyycccc");
    writeFile(kCamera + kImage, row.file);
    EXPECT_EQ(run(row.mode), LogLines{});
    EXPECT_EQ(planes, row.planes);
  }
}

TEST_F(Acb, FailuresNameThePlane) {
  const std::string read = kCamera + kImage;
  EXPECT_EQ(run(1), (LogLines{{6, "Failed to open file " + read + " for reading"}}));
  fs::create_directory(read);  // opens, can't be read
  EXPECT_EQ(run(1), (LogLines{{6, "Failed to read Y plane data from file " + read}}));
  EXPECT_EQ(run(1, 0), (LogLines{{6, "Failed to read C plane data from file " + read}}));
  fs::create_directories(kWritten);
  EXPECT_EQ(run(0), (LogLines{{6, "Failed to open file " + kWritten + " for writing"}}));
  fs::remove(kWritten);
  fs::create_symlink("/dev/full", kWritten);
  EXPECT_EQ(run(0), (LogLines{{6, "Failed to write Y plane data to file " + kWritten}}));
  EXPECT_EQ(run(0, 0), (LogLines{{6, "Failed to write C plane data to file " + kWritten}}));
}

}  // namespace
