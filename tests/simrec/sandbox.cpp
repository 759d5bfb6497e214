#include "tests/simrec/sandbox.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <private_data.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

int simrecMain(int argc, char** argv);

namespace {

/// What a process has written to a file in memory.
std::string drain(int file) {
  std::string text(static_cast<std::size_t>(lseek(file, 0, SEEK_END)), '\0');
  EXPECT_EQ(pread(file, text.data(), text.size(), 0), static_cast<ssize_t>(text.size()));
  close(file);
  return text;
}

int perform(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "simrec");
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  const int status = simrecMain(static_cast<int>(pointers.size()), pointers.data());
  std::fflush(nullptr);
  return status;
}

std::string describe(const fs::path& path, bool whole) {
  struct stat status;
  if (lstat(path.c_str(), &status) != 0) return "gone";
  std::ostringstream text;
  if (whole && !S_ISDIR(status.st_mode)) {
    text << status.st_ino << ' ' << std::oct << status.st_mode << std::dec << ' ' << status.st_uid
         << ' ' << status.st_mtim.tv_sec << '.' << status.st_mtim.tv_nsec << ' ';
  }
  if (S_ISREG(status.st_mode)) text << contentOf(path);
  if (S_ISLNK(status.st_mode)) text << "to " << fs::read_symlink(path).string();
  if (S_ISFIFO(status.st_mode)) text << "a FIFO";
  if (S_ISDIR(status.st_mode)) text << "a folder";
  return text.str();
}

Picture look(bool whole) {
  Picture picture;
  const fs::path root = kData.substr(0, kData.size() - 1);
  for (fs::recursive_directory_iterator at(root), end; at != end; ++at) {
    if (at->path() == root / ".simrec") {
      at.disable_recursion_pending();
    } else {
      picture[at->path().lexically_relative(root)] = describe(at->path(), whole);
    }
  }
  return picture;
}

}  // namespace

Outcome simrec(const std::vector<std::string>& arguments, const std::function<void()>& before,
               const std::function<void(pid_t)>& meanwhile) {
  const int out = memfd_create("out", 0), err = memfd_create("err", 0);
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
    dup2(out, STDOUT_FILENO);
    dup2(err, STDERR_FILENO);
    before();
    _exit(perform(arguments));
  }
  meanwhile(child);
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, drain(out), drain(err)};
}

bool isRefusal(const Outcome& outcome) {
  const std::string& line = outcome.err;
  return outcome.status == 2 && line.rfind("simrec: ", 0) == 0 &&
         line.find('\n') == line.size() - 1 && outcome.out.empty();
}

void put(const std::string& path, const std::string& content) {
  fs::create_directories(fs::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << content;
}

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return (std::ostringstream() << file.rdbuf()).str();
}

void age(const std::string& path, long seconds) {
  const timespec time = {std::time(nullptr) - seconds, 123456789};
  const timespec times[] = {time, time};
  EXPECT_EQ(utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW), 0) << path;
}

Picture picture() { return look(true); }

Picture contents() { return look(false); }

void fill() {
  for (const auto& entry : fs::directory_iterator(kData)) fs::remove_all(entry.path());
  const std::string aec = "simulation_AE_AECData_camId[0]_ev[0].xml";
  const std::string roi = "simulation_AWB_FaceROI_camId[0].bin";
  for (const char* image : {"IMG_A/", "IMG_B/"}) {
    put(kData + image + aec, image + std::string("exposure"));
    put(kData + image + roi,
        image + std::string(image == std::string("IMG_A/") ? 300'000 : 9, 'r'));
    put(kData + image + "simulation_AWB_TuningMode_camId[1].bin", image);
  }
  put(kData + "IMG_A/simulation_LSC[p]_index[3]_ev[0].xml", "third");
  put(kData + "IMG_A/simulation_LSC[p]_index[17]_ev[0].xml", "seventeenth");
  put(kData + "tmp/RequestID[57]_camId[0]/" + aec, "of a request");
  put(kData + aec, "a user's own");
  put(kData + roi, contentOf(kData + "IMG_A/" + roi));
  put(kData + "simulation_LSC[p]_index[9]_ev[0].xml", "a user's, too");
  put(kData + "notes.txt", "no record");
  fs::create_hard_link(kData + "notes.txt", kData + "simulation_notes");
  fs::create_symlink("/nowhere", kData + "simulation_AWB_TuningMode_camId[1].bin");
  EXPECT_EQ(mkfifo((kData + "simulation_fifo").c_str(), 0600), 0);
  EXPECT_EQ(chmod((kData + aec).c_str(), 0640), 0);
  for (const auto& entry : fs::directory_iterator(kData)) age(entry.path(), 5000);
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!testing::GTEST_FLAG(list_tests)) {
    const std::string problem = simulation_host::useEmptyCameraData();
    if (!problem.empty()) {
      std::fprintf(stderr, "the tests need a private /data: %s\n", problem.c_str());
      return 2;
    }
  }
  return RUN_ALL_TESTS();
}
