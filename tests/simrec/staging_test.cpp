// What stage, status and unstage do to a data folder.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <private_data.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/simrec/sandbox.h"

namespace {

namespace fs = std::filesystem;

using Command = std::vector<std::string>;

constexpr char kAec[] = "simulation_AE_AECData_camId[0]_ev[0].xml";
constexpr char kSync[] = "IMG_A/simulation_ZOAWB_SyncInfo_camId[0].xml";
constexpr char kThree[] = "<AWBsyncInfo><syncinfo>3</syncinfo></AWBsyncInfo>";
constexpr char kTuning[] = "simulation_AWB_TuningMode_camId[1].bin";

/// What stands straight in the data folder with a record's prefix.
Picture standing() {
  Picture found;
  for (const auto& [name, content] : contents()) {
    if (name.rfind("simulation_", 0) == 0 && content != "a folder") found[name] = content;
  }
  return found;
}

std::string shading(int index) {
  return "simulation_LSC[p]_index[" + std::to_string(index) + "]_ev[0].xml";
}

struct Staging : testing::Test {
  Staging() {
    fill();
    origin = picture();
  }
  void unstageAndCompare(bool edited = false) {
    const Outcome outcome = simrec({"unstage"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(picture(), origin);
    EXPECT_EQ(fs::exists(kData + ".simrec"), edited);
  }
  Picture origin;
};

TEST_F(Staging, IsWhatIsReplayedAndNothingElse) {
  const Picture all = contents();
  const auto of = [&](const std::string& file) { return all.at("IMG_A/" + file); };
  const Picture shadings = {{shading(0), of(shading(3))}, {shading(1), of(shading(17))}};
  Picture repeated = shadings;
  for (const int index : {2, 3}) repeated[shading(index)] = of(shading(17));
  const std::string roi = "simulation_AWB_FaceROI_camId[0].bin";
  Picture first = {{kAec, of(kAec)}, {roi, of(roi)}};
  Picture whole = first;
  whole[kTuning] = of(kTuning);
  whole.insert(repeated.begin(), repeated.end());
  first.insert(shadings.begin(), shadings.end());
  const struct {
    Command command;
    Picture staged;
  } kRows[] = {
      {{"stage", "IMG_A", "--lsc-repeat", "4"}, whole},
      {{"stage", "IMG_A", "--camera", "0", "--lsc-repeat", "1"}, first},
      {{"stage", kData + "IMG_A/", "lsc"}, shadings},
      {{"stage", "57/0", "--lsc-repeat", "3"}, {{kAec, "of a request"}}},
      {{"stage", "staged", "AE_*"}, {{kAec, "a user's own"}}},
  };
  for (const auto& [command, staged] : kRows) {
    SCOPED_TRACE(command[1]);
    Command dry = command;
    dry.push_back("--dry-run");
    const Outcome told = simrec(dry);
    EXPECT_EQ(picture(), origin);
    EXPECT_FALSE(fs::exists(kData + ".simrec"));
    for (const auto& file : staged)
      EXPECT_NE(told.out.find("stage       " + file.first), told.out.npos);
    EXPECT_NE(told.out.find("set aside   simulation_fifo\n"), told.out.npos);
    const bool vain = command.size() > 3 && staged.count(shading(0)) == 0;
    EXPECT_EQ(told.out.find("no lens shading is repeated\n") != told.out.npos, vain);
    EXPECT_EQ(simrec(command).status, 0);
    EXPECT_EQ(standing(), staged);
    unstageAndCompare();
  }
}

TEST_F(Staging, AgainReplacesAndKeepsTheFirstBackup) {
  EXPECT_EQ(simrec({"stage", "IMG_A"}).status, 0);
  put(kData + "simulation_fifo", "at the name of one that was set aside");
  put(kData + "simulation_new", "since");
  EXPECT_EQ(simrec({"stage", "IMG_B"}).status, 0);
  EXPECT_EQ(standing().size(), 3U);
  EXPECT_EQ(standing()[kTuning], "IMG_B/");
  EXPECT_EQ(simrec({"stage", "IMG_A"}).status, 0);
  EXPECT_EQ(standing()[kTuning], "IMG_A/");
  EXPECT_EQ(contentOf(kData + ".simrec/edited/simulation_fifo"),
            "at the name of one that was set aside");
  const auto rightsOf = [](const std::string& name) {
    return fs::status(kData + name).permissions();
  };
  EXPECT_EQ(rightsOf(kAec), rightsOf(std::string("IMG_A/") + kAec));
  put(kData + "simulation_fifo", "once more");
  EXPECT_EQ(simrec({"unstage"}).status, 0);
  EXPECT_EQ(contentOf(kData + ".simrec/edited/simulation_fifo~2"), "once more");
  EXPECT_EQ(standing()["simulation_new"], "since");
  fs::remove(kData + "simulation_new");
  EXPECT_EQ(picture(), origin);
}

TEST_F(Staging, FilesEditedSinceAreToldAndKept) {
  const std::string file = kData + kAec;
  const auto rewrite = [&](const std::string& text) {
    struct stat status;
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    put(file, text);
    const timespec times[] = {status.st_atim, status.st_mtim};
    ASSERT_EQ(utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
  };
  const struct {
    const char* name;
    std::function<void()> edit;
    const char* state;
    std::string kept;
  } kRows[] = {
      {"touched", [&] { age(file, 77); }, "untouched", ""},
      {"longer", [&] { rewrite("IMG_A/exposure "); }, "edited", "IMG_A/exposure "},
      {"same size and time", [&] { rewrite("IMG_A/exposurf"); }, "edited", "IMG_A/exposurf"},
      {"empty", [&] { rewrite(""); }, "edited", ""},
      {"a link", [&] { fs::remove(file), fs::create_symlink(kData + "notes.txt", file); }, "edited",
       "no record"},
      {"a folder", [&] { fs::remove(file), put(file + "/x", "x"); }, "edited", ""},
      {"removed", [&] { fs::remove(file); }, "gone", ""},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(simrec({"stage", "IMG_A"}).status, 0);
    EXPECT_EQ(simrec({"status"}).status, 0);
    row.edit();
    const Outcome told = simrec({"status", "--json"});
    const auto json = nlohmann::json::parse(told.out);
    EXPECT_EQ(told.status, std::string(row.state) == "untouched" ? 0 : 1);
    EXPECT_EQ(json["files"][0]["file"], kAec);
    EXPECT_EQ(json["files"][0]["state"], row.state);
    EXPECT_EQ(json["from"], "IMG_A");
    const bool edited = row.state == std::string("edited");
    const Outcome dry = simrec({"unstage", "--dry-run"});
    EXPECT_EQ(dry.out.find("edited/" + std::string(kAec)) != dry.out.npos, edited);
    unstageAndCompare(edited);
    EXPECT_EQ(contentOf(kData + ".simrec/edited/" + kAec), row.kept);
    fs::remove_all(kData + ".simrec");
  }
  const Outcome nothing = simrec({"status", "--json"});
  EXPECT_EQ(nothing.out, R"({"schema":1,"staged":false,"from":null,"since":null,"files":[]})"
                         "\n");
  put(kData + ".simrec/aside/simulation_waits", "");
  const Outcome interrupted = simrec({"status", "--json"});
  EXPECT_EQ(interrupted.status, 1);
  EXPECT_TRUE(nlohmann::json::parse(interrupted.out).value("interrupted", false));
  EXPECT_EQ(simrec({"unstage"}).status, 0);
  EXPECT_EQ(standing().count("simulation_waits"), 1U);
}

TEST_F(Staging, WhatOthersPutIntoItsFolderStays) {
  const Picture foreign = {{"draft/x/y", "1"}, {"new.0/x/y", "2"}, {"pruned/x", "3"}};
  for (const auto& [name, text] : foreign) put(kData + ".simrec/" + name, text);
  put(kData + ".simrec/pruned/IMG_X/simulation_x", "begun");
  put(kData + ".simrec/new.1/simulation_x", "half done");
  const std::string dry = simrec({"unstage", "--dry-run"}).out, real = simrec({"unstage"}).out;
  for (const char* due :
       {"prune       IMG_X", "delete      .simrec/new.1", "nothing is staged\n"}) {
    EXPECT_NE(dry.find(due), dry.npos) << dry;
  }
  EXPECT_NE(real.find("IMG_X is pruned"), real.npos);
  for (const Command& command : {Command{"stage", "IMG_A"}, Command{"status"}, Command{"unstage"}})
    EXPECT_EQ(simrec(command).status, 0) << command[0];
  EXPECT_EQ(picture(), origin);
  for (const auto& [name, text] : foreign) EXPECT_EQ(contentOf(kData + ".simrec/" + name), text);
}

TEST_F(Staging, OneAtATime) {
  put(kData + ".simrec/lock", "4711\n");
  const int lock = open((kData + ".simrec/lock").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(flock(lock, LOCK_EX), 0);
  for (const Command& command :
       {Command{"stage", "IMG_A"}, Command{"unstage"}, Command{"prune", "--keep", "0", "--yes"},
        Command{"stage", "IMG_A", "--dry-run"}, Command{"unstage", "--dry-run"},
        Command{"prune", "--dry-run"}, Command{"status"}}) {
    const Outcome refused = simrec(command);
    EXPECT_TRUE(isRefusal(refused)) << command[0];
    EXPECT_NE(refused.err.find("process 4711"), refused.err.npos) << refused.err;
  }
  EXPECT_EQ(picture(), origin);
  close(lock);  // as at its holder's end
  EXPECT_EQ(simrec({"stage", "IMG_A"}).status, 0);
  unstageAndCompare();
}

/// Where nothing can be done, nothing is.
TEST_F(Staging, IsRefusedWithoutATrace) {
  const std::string room = kData + ".simrec";
  const auto journal = [&](const char* file) {
    put(room + "/journal", R"({"schema":1,"from":"x","since":0,"folder":0,"files":[{"file":")" +
                               std::string(file) + R"(","bytes":9,"hash":"0"}]})");
  };
  const struct {
    const char* name;
    Command command;
    std::function<void()> prepare;
  } kRows[] = {
      {"no such capture", {"stage", "IMG_C"}, [] {}},
      {"none of the kind", {"stage", "IMG_B", "LSC"}, [] {}},
      {"none left", {"stage", "IMG_B", "--camera", "7"}, [] {}},
      {"a hostile journal", {"unstage"}, [&] { journal("simulation_/../notes.txt"); }},
      {"no name of a record", {"stage", "IMG_A"}, [&] { journal("notes.txt"); }},
      {"no journal", {"status"}, [&] { put(room + "/journal", "]"); }},
      {"a folder elsewhere", {"stage", "IMG_A"}, [&] { fs::create_symlink("/tmp", room); }},
      {"no folder", {"unstage"}, [&] { put(room, ""); }},
      {"shading, never", {"stage", "IMG_A", "--lsc-repeat", "0"}, [] {}},
  };
  for (const auto& row : kRows) {
    row.prepare();
    const Outcome outcome = simrec(row.command);
    EXPECT_TRUE(isRefusal(outcome)) << row.name << ": " << outcome.err;
    EXPECT_EQ(picture(), origin) << row.name;
    fs::remove_all(room);
  }
}

TEST_F(Staging, AReadOnlyFolderStaysAsItIs) {
  if (!simulation_host::hasPrivateView()) GTEST_SKIP() << "nothing can be mounted";
  ASSERT_EQ(mount(kData.c_str(), kData.c_str(), nullptr, MS_BIND, nullptr), 0);
  ASSERT_EQ(mount(nullptr, kData.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr), 0);
  for (const Command& command :
       {Command{"stage", "IMG_A"}, Command{"stage", "IMG_A", "--dry-run"},
        Command{"prune", "--keep", "0", "--yes"}, Command{"prune", "--keep", "0", "--dry-run"}}) {
    EXPECT_TRUE(isRefusal(simrec(command))) << command[0] << command.back();
  }
  EXPECT_EQ(simrec({"status"}).status, 0);
  EXPECT_EQ(simrec({"unstage"}).status, 0);
  ASSERT_EQ(umount(kData.c_str()), 0);
  EXPECT_EQ(picture(), origin);
}

/// However little room there is: all of it is staged or nothing, and unstaging needs none.
TEST_F(Staging, AFullDiskKeepsNothingFromComingBack) {
  if (!simulation_host::hasPrivateView()) GTEST_SKIP() << "nothing can be mounted";
  int staged = 0, refused = 0;
  const std::string small = kData + "small/";
  put(kData + kSync, kThree);
  fs::create_directory(small);
  for (int kilobytes = 700; kilobytes < 1200; kilobytes += 20) {
    SCOPED_TRACE(kilobytes);
    const std::string size = "size=" + std::to_string(kilobytes) + "k";
    ASSERT_EQ(mount("none", small.c_str(), "tmpfs", 0, size.c_str()), 0);
    for (const auto& entry : fs::directory_iterator(kData)) {
      if (entry.path() == small.substr(0, small.size() - 1) || entry.is_fifo()) continue;
      fs::copy(entry, small + entry.path().filename().string(),
               fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    }
    const Picture before = contents();
    const Outcome outcome = simrec({"--data", small, "stage", "IMG_A", "--lsc-repeat", "3"});
    (outcome.status == 0 ? staged : refused) += 1;
    EXPECT_TRUE(outcome.status == 0 || (isRefusal(outcome) && contents() == before));
    put(small + "filler", std::string(2'000'000, 'f'));
    const Outcome set = simrec({"--data", small, "set", "IMG_A", "W", "SyncInfo.syncinfo=7"});
    EXPECT_TRUE(isRefusal(set) && set.err.find(".simrec") != set.err.npos &&
                set.err.find("No space left") != set.err.npos)
        << set.err;
    EXPECT_EQ(simrec({"--data", small, "unstage"}).status, 0);
    fs::remove(small + "filler");
    EXPECT_EQ(contents(), before);
    EXPECT_EQ(umount(small.c_str()), 0);
  }
  EXPECT_GT(staged, 0);
  EXPECT_GT(refused, 0);
}

TEST_F(Staging, SettingTellsWhatIsLeftOutAndWhereItIsFrom) {
  const std::string image = "v\xff/", fifo = "simulation_AWB_FaceROI_camId[0].bin";
  put(kData + image + fs::path(kSync).filename().string(), kThree);
  ASSERT_EQ(mkfifo((kData + image + fifo).c_str(), 0600), 0);
  fs::create_symlink("nowhere", kData + image + kTuning);
  const Outcome outcome = simrec({"set", image.substr(0, 2), "W", "SyncInfo.syncinfo=7"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  for (const std::string& name : {fifo, std::string(kTuning)}) {
    EXPECT_NE(outcome.out.find(name + " is left out"), outcome.out.npos) << outcome.out;
  }
  const auto told = nlohmann::json::parse(simrec({"show", "W", "--json"}).out);
  EXPECT_EQ(told["from"]["captureBytes"], "76ff");
}

/// Another owner's files come and go where the folder lets them, else nothing does.
TEST_F(Staging, FilesOfAnotherOwnerKeepIt) {
  const auto asSomebody = [] {
    if (setegid(1234) != 0 || seteuid(1234) != 0) _exit(77);
  };
  if (simrec({"list"}, asSomebody).status == 77) GTEST_SKIP() << "only root has other owners";
  ASSERT_EQ(chmod(kData.c_str(), 0777), 0);
  put(kData + "forbidden/x", "");
  ASSERT_EQ(chmod((kData + "forbidden").c_str(), 0), 0);
  fs::create_symlink("forbidden/x", kData + "simulation_link");
  origin = picture();
  EXPECT_EQ(simrec({"stage", "IMG_A"}, asSomebody).status, 0);
  EXPECT_EQ(standing()[kAec], "IMG_A/exposure");
  EXPECT_EQ(simrec({"unstage"}, asSomebody).status, 0);
  EXPECT_EQ(picture(), origin);
  EXPECT_EQ(simrec({"stage", "IMG_A"}, asSomebody).status, 0);
  fs::permissions(kData + kAec, fs::perms::none);
  EXPECT_EQ(simrec({"status"}, asSomebody).status, 1);
  EXPECT_EQ(simrec({"unstage"}, asSomebody).status, 0);
  EXPECT_EQ(contentOf(kData + ".simrec/edited/" + kAec), "IMG_A/exposure");
  fs::remove_all(kData + ".simrec");
  ASSERT_EQ(chmod(kData.c_str(), 01777), 0);  // only owners may rename
  EXPECT_TRUE(isRefusal(simrec({"stage", "IMG_A"}, asSomebody)));
  EXPECT_TRUE(isRefusal(simrec({"stage", "IMG_A", "--dry-run"}, asSomebody)));
  EXPECT_EQ(picture(), origin);
  ASSERT_EQ(chmod(kData.c_str(), 0777), 0);
  EXPECT_EQ(simrec({"stage", "IMG_A"}).status, 0);
  for (const Command& command : {Command{"unstage"}, Command{"unstage", "--dry-run"}}) {
    EXPECT_TRUE(isRefusal(simrec(command, asSomebody))) << command.size();
  }
  unstageAndCompare();
  ASSERT_EQ(chmod((kData + "IMG_A/" + kAec).c_str(), 0), 0);
  origin = picture();
  EXPECT_TRUE(isRefusal(simrec({"stage", "IMG_A"}, asSomebody)));
  EXPECT_EQ(picture(), origin);
  EXPECT_FALSE(fs::exists(kData + ".simrec"));
}

TEST_F(Staging, ADataFolderMayBeALink) {
  const std::string link = kData + "link";
  fs::create_directory_symlink(".", link);
  origin = picture();
  EXPECT_EQ(simrec({"--data", link, "stage", "IMG_A"}).status, 0);
  EXPECT_EQ(standing()[kAec], "IMG_A/exposure");
  unstageAndCompare();
}

}  // namespace
