// The services every record builds on: flags, paths and folders, raw files, log.
#include <fcntl.h>
#include <sys/stat.h>

#include "core/log.h"
#include "core/path.h"
#include "tests/support/camera_data.h"

namespace {

const std::string kTempNotMade = "tempdirPath:/data/vendor/camera/tmp create fail";

struct Core : CameraDataTest {
  std::string prefix(int mode, FileType type, unsigned int request = kRequest,
                     unsigned int camId = kCamId) {
    char path[128];
    sim().getFilesPath(mode, type, path, request, camId);
    return path;
  }
};

unsigned int permissions(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 ? status.st_mode & 0777 : 0;
}

TEST_F(Core, EachFlagQueryReadsItsOwnBit) {
  for (int flags = 0; flags < 256; ++flags) {
    const auto byte = static_cast<unsigned char>(flags);
    EXPECT_EQ(sim().isSimulationEnable(byte), flags % 2 == 1) << flags;
    EXPECT_EQ(sim().getSimulationMode(byte), flags / 2 % 2 == 1) << flags;
    EXPECT_EQ(sim().getSimulationAEMode(byte), flags / 4 % 2 == 1) << flags;
  }
}

TEST_F(Core, DumpPrefixMakesTheRequestFolder) {
  for (int call = 0; call < 2; ++call) {
    EXPECT_EQ(prefix(0, FileType::AE), kCamera + kTmpFolder + "simulation_AE");
    EXPECT_EQ(tree(), (Names{"tmp/", kTmpFolder}));
  }
  EXPECT_EQ(permissions(kCamera + kTmpFolder), 0777U);
  EXPECT_EQ(takeLog(), LogLines{});
  EXPECT_EQ(prefix(0, FileType::IMG, 4294967295U, 2147483648U),
            kCamera + "tmp/RequestID[-1]_camId[-2147483648]/simulation_IMG");
}

TEST_F(Core, ReadbackPrefixNamesTheFamilyAndMakesNothing) {
  std::uint32_t type = 0;
  for (const char* name : {"IMG", "AWB", "ZOAWB", "OfflineAWB", "AE", "LSC", "AnchorPick",
                           "SRAnchorPick", "FACE", "ACB"}) {
    for (const int mode : {1, 2, -1}) {
      EXPECT_EQ(prefix(mode, static_cast<FileType>(type)), kCamera + "simulation_" + name);
    }
    ++type;
  }
  for (const int mode : {1, 0}) {
    EXPECT_EQ(tree(), Names{});
    EXPECT_EXIT(prefix(mode, static_cast<FileType>(type)), testing::KilledBySignal(SIGABRT), "");
  }
}

TEST_F(Core, FolderThatCannotBeMadeIsLoggedAndItsPathReturned) {
  const ReadOnlyCameraData readOnly;
  EXPECT_EQ(prefix(0, FileType::AWB), kCamera + kTmpFolder + "simulation_AWB");
  sim().makeTmpFileFloder();
  EXPECT_EQ(takeLog(),
            (LogLines{{6, kTempNotMade},
                      {6, "dirPath:" + kCamera + "tmp/RequestID[12]_camId[3] create fail"},
                      {6, kTempNotMade}}));
}

TEST_F(Core, FolderThatAppearsInBetweenIsSilent) {
  // A dangling link is not there for access() and EEXIST for mkdir().
  ASSERT_EQ(symlink("nowhere", (kCamera + "tmp").c_str()), 0);
  sim().makeTmpFileFloder();
  EXPECT_EQ(takeLog(), LogLines{});
  EXPECT_FALSE(sim().isFileExists((kCamera + "tmp").data()));
  EXPECT_TRUE(sim().isFileExists(std::string(kCamera).data()));
}

TEST_F(Core, PathsAreCutAt127Characters) {
  const std::string text(100, 'x');
  EXPECT_EQ(simulation::Path(text, "-", -2147483647 - 1, "-", text).view(),
            (text + "--2147483648-" + text).substr(0, 127));
  EXPECT_EQ(simulation::Path(text, text, 7).c_str()[127], '\0');
  const char* const missing = nullptr;
  EXPECT_EQ(simulation::Path("a", missing, 4294967295U).view(), "a(null)-1");
}

TEST_F(Core, WritetoFileOpensAsTheCallerSays) {
  std::string path = kCamera + "data";
  const struct {
    const char* before;
    int flags;
    const char* after;
  } cases[] = {{"ongolder", O_RDWR | O_CREAT, "newolder"},
               {"older", O_WRONLY | O_APPEND, "oldernew"},
               {"older", O_WRONLY | O_TRUNC, "new"}};
  for (const auto& row : cases) {
    writeFile(path, row.before);
    EXPECT_EQ(sim().WritetoFile(std::string("new").data(), path.data(), 3, row.flags), 3);
    EXPECT_EQ(readFile(path), row.after);
  }
  EXPECT_EQ(takeLog(), LogLines{});
  path = kCamera + "new";
  sim().WritetoFile(path.data(), path.data(), 1, O_WRONLY | O_CREAT);
  EXPECT_EQ(permissions(path), 0777U);
}

TEST_F(Core, FilesAreReadAtOffsetsAndFailuresShowTheLowBitsOfTheSize) {
  const std::string data = kCamera + "data", nowhere = kCamera + "nowhere/data";
  const std::string unequal = ") is not equal to we need(", missing = " No such file or directory";
  const std::string readData = "read fileName:" + data + " size(";
  const std::string readFolder = "read fileName:/dev size(-1" + unequal;
  const std::string written = "write size(-1" + unequal, wrong = ") ,may be somthing wrong";
  const std::string open = "open file:" + nowhere + " failed";
  const struct {
    bool write;
    std::string path;
    unsigned long size;
    int offset;
    ssize_t count;
    std::string buffer, log;
  } cases[] = {
      {false, data, 4, 0, 4, "0123", ""},
      {false, data, 4, -5, 4, "0123", ""},
      {false, data, 4, 8, 4, "89ab", ""},
      {false, data, 4, 10, 2, "ab..", readData + "2" + unequal + "4)|"},
      {false, data, 4, 99, 0, "....", readData + "0" + unequal + "4)|"},
      {false, nowhere, 1, 0, -1, "....", open + missing + "|"},
      {false, "/dev", 5000000001UL, 0, -1, "....", readFolder + "705032705)|"},
      {false, "/dev", ~0UL, 0, -1, "....", readFolder + "-1)|"},
      {true, nowhere, 5000000001UL, 0, -1, "....",
       open + ";" + missing + "|" + written + "705032705" + wrong + "|"},
      {true, nowhere, ~0UL, 0, -1, "....", open + ";" + missing + "|"},  // needs -1 bytes
      {true, "/dev/full", 1, 0, -1, "....", written + "1" + wrong + "|"},
  };
  writeFile(data, "0123456789ab");
  for (auto row : cases) {
    std::string buffer = "....", log;
    EXPECT_EQ(row.write ? sim().WritetoFile(buffer.data(), row.path.data(), row.size, O_WRONLY)
                        : sim().ReadFromFile(buffer.data(), row.path.data(), row.size, row.offset),
              row.count);
    for (const LogLine& line : takeLog()) log += line.text + "|";
    EXPECT_EQ(buffer, row.buffer);
    EXPECT_EQ(log, row.log);
  }
}

TEST_F(Core, LogCutsAt1023Characters) {
  const std::string text(2000, 'y');
  simulation::SimulationLog(3, "%s", text.c_str());
  EXPECT_EQ(takeLog(), (LogLines{{3, text.substr(0, 1023)}}));
}

}  // namespace
