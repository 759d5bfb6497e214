// Whatever a folder holds: every command ends with a documented status, nothing is printed raw,
// no file hides another.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "core/raw_file.h"
#include "simrec/comparison.h"
#include "simrec/error.h"
#include "simrec/json.h"
#include "simrec/overview.h"
#include "simrec/record.h"
#include "simrec/text.h"
#include "tests/simrec/temp_folder.h"

namespace {

namespace fs = std::filesystem;
using namespace simrec;

struct Ended {
  int status;
  std::string output;  ///< stdout and stderr
};

/// Runs simrec; as an ordinary user where this is a superuser's process and `ordinary`.
Ended run(std::vector<std::string> arguments, bool ordinary = false) {
  int ends[2];
  EXPECT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  if (child == 0) {
    dup2(ends[1], STDOUT_FILENO);
    dup2(ends[1], STDERR_FILENO);
    close(ends[0]);
    if (ordinary && geteuid() == 0 && setuid(65534) != 0) _exit(99);
    std::vector<char*> words;
    std::string program = SIMREC_PROGRAM;
    words.push_back(program.data());
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    execv(program.c_str(), words.data());
    _exit(98);
  }
  close(ends[1]);
  const simulation::FileDescriptor end(ends[0]);
  std::string output;
  char piece[4096];
  while (const std::size_t size = readUpTo(end, piece, sizeof piece)) output.append(piece, size);
  int status = 0;
  waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + status, output};
}

/// Line feeds between lines, and otherwise only what shows.
bool isPrintable(const std::string& text) {
  std::string line;
  for (const char character : text) line += character == '\n' ? ' ' : character;
  return printable(line) == line && isUtf8(line);
}

/// A data folder with everything odd in it.
class HostileData : public testing::Test {
 protected:
  HostileData() {
    folder.write("IMG_1/simulation_LSC[\n\x1b[31m\xff\xe2\x80\xae]_index[0]_ev[0].xml",
                 "<a>\x1b</a>");
    folder.write("IMG_1/\x1b]0;title\x07\xc2\x9b", "");
    folder.write("IMG_\n\x1b[2J\xff/simulation_AWB_OTPData_camId[0].xml", "<\x1b[1m>");
    folder.write("IMG_2/simulation_ZOAWB_SyncInfo_camId[0].xml",
                 "<AWBsyncInfo \xff='' ><syncinfo>\x1b\n\xff</syncinfo><\xc2\x9b/></AWBsyncInfo>");
    const std::string sound =
        folder.write("IMG_2/simulation_ZOAWB_WideAlwaysOnStatus_camId[0].xml",
                     "<WideAlwaysOnStatus><status>4711</status></WideAlwaysOnStatus>");
    const std::string odd = folder.path() + "/IMG_2/simulation_";
    truncate(folder.write("IMG_2/simulation_ACB_acb_camId[0].bin", "").c_str(), 1LL << 32);
    truncate(folder.write("IMG_2/simulation_AWB_OTPData_camId[0].xml", "").c_str(), 1LL << 32);
    mkfifo((odd + "ZOAWB_SpectralSensorInfo.xml").c_str(), 0666);
    mkfifo((folder.path() + "/IMG_1/.simrec.json").c_str(), 0666);
    fs::create_symlink(sound, odd + "ZOAWB_WideAlwaysOnStatus_camId[1].xml");
    fs::create_symlink("/nowhere", odd + "ZOAWB_PureColorRes_camId[1].xml");
    fs::create_symlink("/dev/zero", odd + "ZOAWB_FaceDectionInfo_camId[1].bin");
    fs::create_symlink(".", odd + "AWB_AECData_camId[1].xml");
    fs::create_symlink("simulation_FACE_FaceROI_camId[1].bin", odd + "FACE_FaceROI_camId[1].bin");
    fs::create_directory(odd + "AWB_FaceROI_camId[0].bin");
    chmod(folder.write("IMG_2/simulation_AWB_TuningMode_camId[0].bin", "x").c_str(), 0);
    folder.write("IMG_3/simulation_AWB_TuningMode_camId[0].bin", "x");
    folder.write("IMG_4/simulation_AWB_TuningMode_camId[0].bin", "x");
    folder.write("tmp/RequestID[1]_camId[0]/simulation_AWB_TuningMode_camId[0].bin", "x");
    fs::create_symlink("IMG_loop", folder.path() + "/IMG_loop");
    chmod(folder.path().c_str(), 0755);
    chmod((folder.path() + "/IMG_3").c_str(), 0);
    chmod((folder.path() + "/IMG_4").c_str(), 0444);  // its files can be listed, not looked at
    chmod((folder.path() + "/tmp").c_str(), 0);
  }

  const TempFolder folder;
};

TEST_F(HostileData, EveryCommandEndsWithADocumentedStatus) {
  const std::string nasty = "IMG_\n\x1b[2J\xff";
  const std::vector<std::string> captures = {"IMG_1",    nasty,    "IMG_2", "IMG_3",   "IMG_4",
                                             "IMG_loop", "staged", "1/0",   "IMG_\x1b"};
  std::vector<std::vector<std::string>> commands = {{"list"}, {"list", "--sort", "time"}};
  for (const std::string& capture : captures) {
    commands.push_back({"show", capture});
    commands.push_back({"show", capture, "ZOAWB_*", "LSC", "--lists"});
    commands.push_back({"diff", capture, "IMG_2", "--camera", "1"});
    commands.push_back({"diff", "IMG_1", capture, "LSC", "AWB_*"});
  }
  for (const bool ordinary : {false, true}) {
    for (std::vector<std::string> command : commands) {
      command.insert(command.end(), {"--data", folder.path()});
      const Ended plain = run(command, ordinary);
      EXPECT_TRUE(plain.status >= 0 && plain.status <= 2) << command[0] << ' ' << command[1];
      EXPECT_TRUE(isPrintable(plain.output)) << plain.output;
      command.emplace_back("--json");
      const Ended json = run(command, ordinary);
      EXPECT_EQ(json.status, plain.status);
      EXPECT_TRUE(json.status == 2 || Json::accept(json.output)) << json.output;
    }
  }
}

TEST_F(HostileData, NoFileHidesAnother) {
  const std::string list = run({"list", "--data", folder.path()}, true).output;
  for (const char* name : {"IMG_1", "IMG_2", "IMG_3", "IMG_4", "tmp", "IMG_\\n\\x1b[2J"}) {
    EXPECT_NE(list.find(name), std::string::npos) << name << '\n' << list;
  }
  const std::string show = run({"show", "IMG_2", "--data", folder.path()}, true).output;
  for (const char* part :
       {"4711", "more than 64 MB of XML", "4.0 GB", "a FIFO, device or socket", "a link to nowhere",
        "a folder", "Permission denied", "\"\\x1b\\n\xEF\xBF\xBD\" is no number"}) {
    EXPECT_NE(show.find(part), std::string::npos) << part << '\n' << show;
  }
}

TEST_F(HostileData, IsExportedWithARowForEachRecord) {
  const std::string out = folder.path() + "/out";
  fs::create_directory(out);
  chmod(out.c_str(), 0777);
  for (const bool ordinary : {false, true}) {
    for (const std::string format : {"jsonl", "csv", "sqlite"}) {
      const Ended ended = run({"export", "--lists", "--format", format, "-o", out + "/" + format,
                               "--data", folder.path()},
                              ordinary && geteuid() == 0);
      EXPECT_EQ(ended.status, 0) << ended.output;
      EXPECT_TRUE(isPrintable(ended.output)) << ended.output;
      const bool limited = ordinary || geteuid() != 0;
      EXPECT_NE(ended.output.find(limited ? "15 records of 4 " : "17 records of 6 "),
                std::string::npos)
          << ended.output;
      for (const char* closed : {"IMG_3: Permission denied", "tmp: Permission denied"}) {
        EXPECT_EQ(ended.output.find(closed) != std::string::npos, limited) << ended.output;
      }
      fs::remove_all(out + "/" + format);
    }
  }
}

TEST(SimrecHostile, FilesMayVanishWhileTheyAreRead) {
  const TempFolder folder;
  const Capture capture = {"IMG", folder.path() + "/IMG"};
  std::atomic<bool> done = false;
  std::thread changing([&] {
    for (unsigned int i = 0; i < 3000; ++i) {
      const std::string path =
          folder.write("IMG/simulation_AE_AECData_camId[0]_ev[" + std::to_string(i % 9) + "].xml",
                       "<SimulationData/>");
      if (i % 3 == 0) fs::remove(path);
      if (i % 50 == 0) fs::remove_all(folder.path() + "/IMG");
    }
    done = true;
  });
  while (!done) {
    overviewOf(capture);
    try {
      const std::vector<File> files = filesOf(capture);
      for (const File& file : files) readRecord(capture.path, file);
      for (const RecordPair& pair : pairRecords(files, files)) {
        compareRecords(capture.path, capture.path, pair);
      }
    } catch (const Error&) {  // the folder itself is gone
    }
  }
  changing.join();
}

/// Every input that fuzzing kept, as a record of every kind.
TEST(SimrecHostile, KeptInputsAreRecordsOfAnyKind) {
  const TempFolder folder;
  for (const auto& entry : fs::recursive_directory_iterator(SIMREC_CORPUS)) {
    if (!entry.is_regular_file()) continue;
    File file;
    file.name = entry.path().filename().string();
    for (const catalogue::Kind& kind : catalogue::kinds()) {
      file.parts = catalogue::FileName{&kind};
      const Record record = readRecord(entry.path().parent_path().string(), file);
      std::string text;
      appendValues(text, record, true);
      EXPECT_TRUE(Json::accept(text)) << entry.path() << " as " << kind.name;
      for (const std::string& problem : record.problems) {
        EXPECT_EQ(problem, printable(problem)) << entry.path() << " as " << kind.name;
      }
    }
  }
}

}  // namespace
