// The services every record builds on: flags, paths and folders, raw files, log.
#include <fcntl.h>
#include <sys/stat.h>

#include <array>

#include "core/log.h"
#include "core/path.h"
#include "tests/support/camera_data.h"

namespace {

using Core = CameraDataTest;

constexpr std::array kTypeNames = {"IMG", "AWB",        "ZOAWB",        "OfflineAWB", "AE",
                                   "LSC", "AnchorPick", "SRAnchorPick", "FACE",       "ACB"};

TEST_F(Core, EachFlagQueryReadsItsOwnBit) {
  for (int flags = 0; flags < 256; ++flags) {
    const auto byte = static_cast<unsigned char>(flags);
    EXPECT_EQ(simulation.isSimulationEnable(byte), flags % 2 == 1) << flags;
    EXPECT_EQ(simulation.getSimulationMode(byte), flags / 2 % 2 == 1) << flags;
    EXPECT_EQ(simulation.getSimulationAEMode(byte), flags / 4 % 2 == 1) << flags;
  }
  EXPECT_EQ(SimulationMgr::getInstance(), &simulation);
}

TEST_F(Core, DumpPrefixMakesTheRequestFolder) {
  char path[128];
  for (int call = 0; call < 2; ++call) {
    simulation.getFilesPath(0, FileType::AE, path, 57, 1);
    EXPECT_EQ(path, kCamera + "tmp/RequestID[57]_camId[1]/simulation_AE");
    EXPECT_EQ(tree(), (std::vector<std::string>{"tmp/", "tmp/RequestID[57]_camId[1]/"}));
  }
  struct stat status = {};
  ASSERT_EQ(stat((kCamera + "tmp/RequestID[57]_camId[1]").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0777U);
  EXPECT_EQ(takeLog(), LogLines{});
}

TEST_F(Core, ReadbackPrefixIsTheSameForEveryRequestAndMakesNothing) {
  for (const int mode : {1, 2, 5, -1}) {
    for (std::size_t type = 0; type < kTypeNames.size(); ++type) {
      char path[128];
      simulation.getFilesPath(mode, static_cast<FileType>(type), path, 57, 1);
      EXPECT_EQ(path, kCamera + "simulation_" + kTypeNames[type]);
    }
  }
  EXPECT_EQ(tree(), std::vector<std::string>{});
}

TEST_F(Core, IdsBeyondIntAreShownSigned) {
  char path[128];
  simulation.getFilesPath(0, FileType::IMG, path, 4294967295U, 2147483648U);
  EXPECT_EQ(path, kCamera + "tmp/RequestID[-1]_camId[-2147483648]/simulation_IMG");
}

TEST_F(Core, FileTypeWithoutNameAborts) {
  char path[128];
  const auto none = static_cast<FileType>(10);
  EXPECT_EXIT(simulation.getFilesPath(1, none, path, 57, 1), testing::KilledBySignal(SIGABRT), "");
  EXPECT_EXIT(simulation.getFilesPath(0, none, path, 57, 1), testing::KilledBySignal(SIGABRT), "");
  EXPECT_EQ(tree(), (std::vector<std::string>{"tmp/", "tmp/RequestID[57]_camId[1]/"}));
}

TEST_F(Core, FolderThatCannotBeMadeIsLoggedAndItsPathReturned) {
  const ReadOnlyCameraData readOnly;
  char path[128];
  simulation.getFilesPath(0, FileType::AWB, path, 7, 0);
  EXPECT_EQ(path, kCamera + "tmp/RequestID[7]_camId[0]/simulation_AWB");
  simulation.makeTmpFileFloder();
  EXPECT_EQ(takeLog(),
            (LogLines{{6, "tempdirPath:/data/vendor/camera/tmp create fail"},
                      {6, "dirPath:" + kCamera + "tmp/RequestID[7]_camId[0] create fail"},
                      {6, "tempdirPath:/data/vendor/camera/tmp create fail"}}));
}

TEST_F(Core, FolderThatAppearsInBetweenIsSilent) {
  // A dangling link is not there for access() and EEXIST for mkdir().
  ASSERT_EQ(symlink("nowhere", (kCamera + "tmp").c_str()), 0);
  simulation.makeTmpFileFloder();
  EXPECT_EQ(takeLog(), LogLines{});
  EXPECT_FALSE(simulation.isFileExists((kCamera + "tmp").data()));
  EXPECT_TRUE(simulation.isFileExists(std::string(kCamera).data()));
}

TEST_F(Core, PathsAreCutAt127Characters) {
  const std::string text(100, 'x');
  EXPECT_EQ(simulation::Path(text, "-", -2147483647 - 1, "-", text).view(),
            (text + "--2147483648-" + text).substr(0, 127));
  EXPECT_EQ(simulation::Path(text, text).view().size(), 127U);
  EXPECT_EQ(simulation::Path(text, text, 7).c_str()[127], '\0');
  const char* const missing = nullptr;
  EXPECT_EQ(simulation::Path("a", missing, 4294967295U).view(), "a(null)-1");
}

TEST_F(Core, ReadFromFile) {
  const std::string path = kCamera + "data";
  const std::string open = "open file:" + path + " failed No such file or directory";
  const std::string size = "read fileName:" + path + " size(";
  const std::string unequal = ") is not equal to we need(4)";
  const struct {
    const char* content;
    int offset;
    ssize_t count;
    std::string buffer;
    LogLines log;
  } cases[] = {
      {nullptr, 0, -1, "....", {{6, open}}},
      {"0123456789ab", 0, 4, "0123", {}},
      {"0123456789ab", -5, 4, "0123", {}},
      {"0123456789ab", 8, 4, "89ab", {}},
      {"0123456789ab", 10, 2, "ab..", {{6, size + "2" + unequal}}},
      {"0123456789ab", 99, 0, "....", {{6, size + "0" + unequal}}},
  };
  for (const auto& row : cases) {
    if (row.content != nullptr) writeFile(path, row.content);
    std::string buffer = "....";
    EXPECT_EQ(simulation.ReadFromFile(buffer.data(), std::string(path).data(), 4, row.offset),
              row.count);
    EXPECT_EQ(buffer, row.buffer) << row.offset;
    EXPECT_EQ(takeLog(), row.log) << row.offset;
  }
}

TEST_F(Core, ReadErrorIsLoggedWithTheLowBitsOfTheSize) {
  char byte = 'x';
  std::string folder = kCamera;
  const std::string begin = "read fileName:" + folder + " size(-1) is not equal to we need(";
  EXPECT_EQ(simulation.ReadFromFile(&byte, folder.data(), 5000000001UL, 0), -1);
  EXPECT_EQ(simulation.ReadFromFile(&byte, folder.data(), ~0UL, 0), -1);
  EXPECT_EQ(takeLog(), (LogLines{{6, begin + "705032705)"}, {6, begin + "-1)"}}));
}

TEST_F(Core, WritetoFileOpensAsTheCallerSays) {
  std::string path = kCamera + "data";
  const struct {
    int flags;
    const char* result;
  } cases[] = {{O_RDWR | O_CREAT, "newolder"},
               {O_WRONLY | O_APPEND, "longoldernew"},
               {O_WRONLY | O_TRUNC, "new"}};
  for (const auto& row : cases) {
    writeFile(path, std::string("longolder").substr(row.flags == (O_RDWR | O_CREAT) ? 1 : 0));
    std::string data = "new";
    EXPECT_EQ(simulation.WritetoFile(data.data(), path.data(), 3, row.flags), 3);
    EXPECT_EQ(readFile(path), row.result);
  }
  EXPECT_EQ(takeLog(), LogLines{});
  path = kCamera + "new";
  simulation.WritetoFile(path.data(), path.data(), 1, O_WRONLY | O_CREAT);
  struct stat status = {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0777U);
}

TEST_F(Core, WritetoFileLogsAFailedOpenTwiceUnlessTheSizeIsAllOnes) {
  std::string path = kCamera + "missing/data";
  char byte = 'x';
  const LogLine open = {6, "open file:" + path + " failed; No such file or directory"};
  EXPECT_EQ(simulation.WritetoFile(&byte, path.data(), 5000000001UL, O_RDWR | O_CREAT), -1);
  EXPECT_EQ(takeLog(),
            (LogLines{open,
                      {6,
                       "write size(-1) is not equal to we need(705032705) ,may be somthing "
                       "wrong"}}));
  EXPECT_EQ(simulation.WritetoFile(&byte, path.data(), ~0UL, O_RDWR | O_CREAT), -1);
  EXPECT_EQ(takeLog(), LogLines{open});
}

TEST_F(Core, FullDiskIsAShortWrite) {
  std::string path = "/dev/full";
  char byte = 'x';
  EXPECT_EQ(simulation.WritetoFile(&byte, path.data(), 1, O_WRONLY), -1);
  EXPECT_EQ(takeLog(),
            (LogLines{{6, "write size(-1) is not equal to we need(1) ,may be somthing wrong"}}));
}

TEST_F(Core, LogCutsAt1023Characters) {
  const std::string text(2000, 'y');
  simulation::SimulationLog(3, "%s", text.c_str());
  EXPECT_EQ(takeLog(), (LogLines{{3, text.substr(0, 1023)}}));
}

}  // namespace
