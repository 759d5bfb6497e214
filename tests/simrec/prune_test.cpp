// What prune chooses and takes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <set>

#include "tests/simrec/sandbox.h"

namespace {

namespace fs = std::filesystem;

using Command = std::vector<std::string>;
using Names = std::set<std::string>;

constexpr long kMinute = 60, kHour = 3600;

/// Five images of 100 bytes each, from 1 to 5 hours old, the oldest with a file of somebody
/// else's; three requests; what no prune takes.
void fillForPrune() {
  fill();
  for (const char* name : {"IMG_A", "IMG_B", "tmp"}) fs::remove_all(kData + name);
  const auto capture = [](const std::string& folder, long seconds) {
    put(kData + folder + "/simulation_one", std::string(60, 'x'));
    put(kData + folder + "/simulation_two", std::string(40, 'x'));
    age(kData + folder + "/simulation_one", seconds);
    age(kData + folder + "/simulation_two", seconds + kHour);
  };
  for (const int hours : {1, 2, 3, 4, 5}) capture("IMG_" + std::to_string(hours), hours * kHour);
  put(kData + "IMG_3/.simrec.json", "{}");
  age(kData + "IMG_3/.simrec.json", 3 * kHour + 1);
  put(kData + "IMG_5/notes", "somebody's");
  capture("tmp/RequestID[1]_camId[0]", 5 * kMinute);
  capture("tmp/RequestID[2]_camId[0]", 11 * kMinute);
  capture("tmp/RequestID[3]_camId[0]", 9 * kHour);
  put(kData + "tmp/RequestID[3]_camId[0]/being_written", "");
  capture("tmp/other", 9 * kHour);
  put(kData + "folder/notes", "no capture");
  age(kData + "folder/notes", 9 * kHour);
  fs::create_directory_symlink("IMG_5", kData + "IMG_link");
}

Names files() {
  Names names;
  for (const auto& file : contents()) names.insert(file.first);
  return names;
}

/// What has gone, by the folder that it was in; a folder that has gone itself with a '/'.
Names gone(const Names& before) {
  const Names now = files();
  Names folders;
  for (const std::string& name : before) {
    if (now.count(name) != 0) continue;
    const std::string folder = fs::path(name).parent_path();
    if (name.find("simulation_") != name.npos || name.find(".json") != name.npos) {
      folders.insert(folder + (now.count(folder) != 0 ? "" : "/"));
    }
  }
  return folders;
}

TEST(Prune, TakesWhatIsChosen) {
  const std::string second = "tmp/RequestID[2]_camId[0]/";
  const struct {
    const char* name;
    Command options;
    Names gone;
  } kRows[] = {
      {"nothing", {}, {}},
      {"older", {"--older", "150m"}, {"IMG_3/", "IMG_4/", "IMG_5"}},
      {"older in seconds", {"--older", "17999s"}, {"IMG_5"}},
      {"none is as old", {"--older", "1d"}, {}},
      {"all but the newest", {"--keep", "2"}, {"IMG_3/", "IMG_4/", "IMG_5"}},
      {"more than there are", {"--keep", "9"}, {}},
      {"as many bytes", {"--max-bytes", "302"}, {"IMG_4/", "IMG_5"}},
      {"a byte less", {"--max-bytes", "301"}, {"IMG_3/", "IMG_4/", "IMG_5"}},
      {"as many as there are", {"--max-bytes", "1K"}, {}},
      {"what is kept never goes",
       {"--max-bytes", "0", "--older", "1s", "--keep", "3"},
       {"IMG_4/", "IMG_5"}},
      {"either", {"--max-bytes", "302", "--older", "150m"}, {"IMG_3/", "IMG_4/", "IMG_5"}},
      {"leftovers", {"--leftovers"}, {second}},
      {"leftovers of an age",
       {"--leftovers", "--older", "12m"},
       {"IMG_1/", "IMG_2/", "IMG_3/", "IMG_4/", "IMG_5"}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    fillForPrune();
    const Picture before = picture();
    Command command = {"prune", "--dry-run"};
    command.insert(command.end(), row.options.begin(), row.options.end());
    const Outcome dry = simrec(command);
    EXPECT_EQ(picture(), before);
    command[1] = "--yes";
    const Names names = files();
    const Outcome outcome = simrec(command);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(gone(names), row.gone);
    EXPECT_EQ(std::count(dry.out.begin(), dry.out.end(), '\n'),
              static_cast<long>(row.gone.size()) + 1);
    for (const auto& [name, what] : picture()) EXPECT_EQ(before.at(name), what) << name;
    EXPECT_FALSE(fs::exists(kData + ".simrec"));
  }
}

TEST(Prune, AsksAndUnderstandsNumbers) {
  fillForPrune();
  const Picture before = picture();
  for (const Command& options :
       {Command{"--keep", "0"}, Command{"--older", "5"}, Command{"--older", "-5s"},
        Command{"--older", "99999999999999d"}, Command{"--max-bytes", "5T"},
        Command{"--max-bytes", "99999999999G"}, Command{"--keep", "-1"}, Command{"--keep", "x"},
        Command{"--keep", "99999999999999999999"}}) {
    Command command = {"prune"};
    command.insert(command.end(), options.begin(), options.end());
    const Outcome outcome = simrec(command);
    EXPECT_TRUE(isRefusal(outcome) && outcome.err.size() < 100) << outcome.err;
  }
  EXPECT_EQ(picture(), before);
}

TEST(Prune, TakesYesOnATerminal) {
  const struct {
    std::string answer;
    int status;
  } kRows[] = {{"y\n", 0}, {"Yes\n", 0}, {"YES\n", 0}, {"no\n", 1}, {"\n", 1}, {"\4", 1}};
  for (const auto& row : kRows) {
    fill();
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (terminal < 0 || unlockpt(terminal) != 0) GTEST_SKIP() << "there are no terminals";
    const auto answer = [&] {
      dup2(open(ptsname(terminal), O_RDWR | O_NOCTTY), STDIN_FILENO);
      if (write(terminal, row.answer.data(), row.answer.size()) < 1) _exit(77);
    };
    const Outcome outcome = simrec({"prune", "--keep", "0"}, answer);
    close(terminal);
    EXPECT_EQ(outcome.status, row.status) << row.answer;
    EXPECT_EQ(fs::exists(kData + "IMG_A"), row.status == 1) << row.answer;
    EXPECT_NE(outcome.out.find(row.status == 1 ? "nothing is removed" : " removed"),
              std::string::npos);
    EXPECT_EQ(outcome.err.back() == '\n', row.answer == "\4") << "the prompt of the shell";
  }
}

TEST(Prune, TimesMayBeAnything) {
  for (const long seconds : {2'000'000'000L, 20'000'000'000L, -20'000'000'000L}) {
    fillForPrune();
    for (const char* file : {"one", "two"}) age(kData + "IMG_1/simulation_" + file, seconds);
    const Outcome told = simrec({"prune", "--older", "1d", "--dry-run"});
    EXPECT_EQ(told.out.find("IMG_1 ") != told.out.npos, seconds > 0) << seconds;
  }
}

TEST(Prune, EndsWhatWasBegun) {
  for (const Command& options : {Command{}, Command{"--keep", "0"}}) {
    fill();
    for (const char* name : {"pruned/IMG_B/simulation_x", "new.0/simulation_y", "draft/z"}) {
      put(kData + ".simrec/" + name, "xyz");
    }
    const Outcome told = simrec({"status"});
    EXPECT_NE(told.err.find("pruned/IMG_B, draft, new.0 in"), told.err.npos) << told.err;
    Command command = {"prune", "--dry-run"};
    command.insert(command.end(), options.begin(), options.end());
    const std::string all = simrec(command).out;
    EXPECT_EQ(all.rfind("remove  .simrec/pruned/IMG_B         1        3 B", 0), 0U) << all;
    command[1] = "--yes";
    const std::string total = all.substr(all.rfind('\n', all.size() - 2) + 1);
    const std::string removed = simrec(command).out;
    EXPECT_EQ(removed, total.substr(0, total.find(" would")) + " removed\n");
    EXPECT_FALSE(fs::exists(kData + ".simrec"));
    EXPECT_EQ(fs::exists(kData + "IMG_B"), options.empty());
  }
}

/// What may not be deleted is known before anything is.
TEST(Prune, LeavesWholeWhatItMayNotDelete) {
  const auto asSomebody = [] {
    if (setegid(1234) != 0 || seteuid(1234) != 0) _exit(77);
  };
  if (simrec({"list"}, asSomebody).status == 77) GTEST_SKIP() << "only root has other owners";
  const std::string capture = kData + "IMG_A";
  const struct {
    const char* name;
    mode_t data, capture;
    bool both;
  } kRows[] = {{"a folder where only owners may", 0777, 01777, false},
               {"a folder where nobody may", 0777, 0755, false},
               {"captures in such a folder", 01777, 0777, true},
               {"a data folder where nobody may", 0755, 0777, true}};
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    fill();
    put(capture + "/simulation_own", "");
    ASSERT_EQ(chown((capture + "/simulation_own").c_str(), 1234, 1234), 0);
    ASSERT_EQ(chmod((kData + "IMG_B").c_str(), 0777), 0);
    ASSERT_EQ(chmod(capture.c_str(), row.capture), 0);
    ASSERT_EQ(chmod(kData.c_str(), row.data), 0);
    const Picture before = picture();
    Picture due = before;
    if (!row.both) due.erase(due.lower_bound("IMG_B"), due.lower_bound("IMG_C"));
    const Outcome dry = simrec({"prune", "--keep", "0", "--dry-run"}, asSomebody);
    EXPECT_EQ(dry.status, 2);
    EXPECT_EQ(dry.out.find("IMG_A"), dry.out.npos);
    EXPECT_EQ(dry.out.find("IMG_B") == dry.out.npos, row.both);
    EXPECT_EQ(picture(), before);
    EXPECT_TRUE(isRefusal(simrec({"prune", "--keep", "0", "--yes"}, asSomebody)));
    EXPECT_EQ(picture(), due);
    EXPECT_FALSE(fs::exists(kData + ".simrec"));
  }
  ASSERT_EQ(chmod(kData.c_str(), 0777), 0);
  put(kData + ".simrec/edited/x", "where only root may work");
  EXPECT_TRUE(isRefusal(simrec({"prune", "--keep", "0", "--dry-run"}, asSomebody)));
  EXPECT_EQ(chmod(kData.c_str(), 0755), 0);
}

TEST(Prune, LeavesWhatIsStagedAndWhatWasSetAside) {
  fill();
  const Picture origin = picture();
  EXPECT_EQ(simrec({"stage", "IMG_A"}).status, 0);
  EXPECT_EQ(simrec({"prune", "--max-bytes", "0", "--leftovers", "--older", "0s", "--yes"}).status,
            0);
  EXPECT_EQ(simrec({"status"}).status, 0);
  EXPECT_EQ(simrec({"unstage"}).status, 0);
  const Picture found = picture();
  for (const auto& [name, what] : origin) {
    if (name.find('/') != name.npos || what == "a folder") continue;
    EXPECT_EQ(found.at(name), what);
  }
  EXPECT_EQ(found.count("IMG_A") + found.count("IMG_B"), 0U);
}

}  // namespace
