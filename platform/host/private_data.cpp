#include "private_data.h"

#include <linux/capability.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "borrowed_data.h"
#include "loan.h"

namespace simulation_host {
namespace {

namespace fs = std::filesystem;

void require(bool done, const std::string& what) {
  if (!done) throw std::system_error(errno, std::generic_category(), what);
}

bool privateView = false;

void writeText(const char* path, const std::string& text) { std::ofstream(path) << text; }

/// Root's rights in a user namespace let the user write where they may not (a folder of
/// mode 0555): takes that from this process and its children.
void keepToModes() {
  __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
  __user_cap_data_struct sets[_LINUX_CAPABILITY_U32S_3] = {};
  require(syscall(SYS_capget, &header, sets) == 0, "the rights of this process");
  for (const unsigned int right : {unsigned{CAP_DAC_OVERRIDE}, unsigned{CAP_DAC_READ_SEARCH}}) {
    require(prctl(PR_CAPBSET_DROP, right, 0, 0, 0) == 0, "giving up a right");
    sets[0].effective &= ~(1U << right);
    sets[0].permitted &= ~(1U << right);
    sets[0].inheritable &= ~(1U << right);
  }
  require(syscall(SYS_capset, &header, sets) == 0, "giving up rights");
}

/// Root needs a mount namespace only; anybody else gets root's rights in a user namespace
/// first, for this process: what it starts is that user's.
void enterOwnNamespaces() {
  if (geteuid() == 0 && unshare(CLONE_NEWNS) == 0) return;
  const uid_t user = geteuid();
  const gid_t group = getegid();
  require(unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0, "a private name space");
  const auto itself = [](unsigned id) {
    return std::to_string(id) + ' ' + std::to_string(id) + " 1";
  };
  writeText("/proc/self/setgroups", "deny");
  writeText("/proc/self/uid_map", itself(user));
  writeText("/proc/self/gid_map", itself(group));
  keepToModes();
}

void bind(const fs::path& source, const fs::path& target) {
  require(mount(source.c_str(), target.c_str(), nullptr, MS_BIND | MS_REC, nullptr) == 0,
          "showing " + source.string());
}

/// Shows one entry of a mirrored folder at `target`.
void mirrorEntry(const fs::path& source, const fs::path& target) {
  const fs::file_status status = fs::symlink_status(source);
  if (fs::is_symlink(status)) {
    fs::copy_symlink(source, target);
  } else if (fs::is_directory(status)) {
    fs::create_directory(target);
    bind(source, target);
  } else {
    const std::ofstream mountPoint(target);
    bind(source, target);
  }
}

/// Fills `target`, an empty folder, with all that `source` holds but `except`
/// and what is there already.
void mirror(const fs::path& source, const fs::path& target, const fs::path& except) {
  std::error_code missing;
  for (const auto& entry : fs::directory_iterator(source, missing)) {
    const fs::path name = entry.path().filename();
    if (name != except && !fs::exists(target / name)) mirrorEntry(entry.path(), target / name);
  }
}

constexpr char kNewRoot[] = "/tmp";

void mountNewRoot() {
  require(mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0, "private mounts");
  require(mount("tmpfs", kNewRoot, "tmpfs", 0, "mode=755") == 0, "a new root");
}

/// Moves to a new root in memory; the old one stays visible at `oldRoot`.
void enterEmptyRoot(const fs::path& oldRoot) {
  mountNewRoot();
  const fs::path start = kNewRoot;
  const fs::path below = start / oldRoot.filename();
  fs::create_directory(below);
  require(syscall(SYS_pivot_root, start.c_str(), below.c_str()) == 0, "changing the root");
}

/// Shows the whole old root in the new one, but for /data/vendor/camera, which
/// is there and empty.
void mirrorAllButCameraData(const fs::path& oldRoot) {
  const fs::path steps[] = {"data", "vendor", "camera"};
  fs::path folder;
  for (const fs::path& step : steps) {
    mirror(oldRoot / folder, "/" / folder, step);
    folder /= step;
    fs::create_directory("/" / folder);
  }
}

/// `cameraData` empty: a new folder in memory.
void enterPrivateView(const fs::path& cameraData) {
  const fs::path oldRoot = "/.old-root";
  enterOwnNamespaces();
  enterEmptyRoot(oldRoot);
  mirrorAllButCameraData(oldRoot);
  if (cameraData.empty()) {
    require(mount("tmpfs", kCameraData, "tmpfs", 0, "mode=777") == 0, "empty camera data");
  } else {
    bind(oldRoot / cameraData.relative_path(), kCameraData);
  }
  require(umount2(oldRoot.c_str(), MNT_DETACH) == 0, "leaving the old root");
  fs::remove(oldRoot);
}

/// Tries all of it, since a machine may refuse any step, in a child: after a first step
/// this process could not go back. Returns 0, or the error.
int errorOfPrivateView(const fs::path& cameraData) {
  const pid_t child = fork();
  if (child == 0) {
    try {
      enterPrivateView(cameraData);
      _exit(0);
    } catch (const std::system_error& error) {
      _exit(error.code().value());
    } catch (...) {
      _exit(EAGAIN);
    }
  }
  int status = 0;
  const bool ended = child > 0 && waitpid(child, &status, 0) == child;
  return ended && WIFEXITED(status) ? WEXITSTATUS(status) : EAGAIN;
}

std::string borrow(const fs::path& cameraData, int error) {
  const std::string problem = borrowCameraData(cameraData);
  if (problem.empty()) return {};
  const char* const reason =
      error == ENOSPC ? "user name spaces are switched off" : std::strerror(error);
  return std::string("no private ") + kCameraData + ": " + reason +
         " (a container needs --privileged); nor the machine's own: " + problem;
}

std::string enterOrBorrow(const fs::path& cameraData) {
  if (const int error = errorOfPrivateView(cameraData); error != 0) {
    return borrow(cameraData, error);
  }
  try {
    const fs::path workingFolder = fs::current_path();
    enterPrivateView(cameraData);
    fs::current_path(workingFolder);
    privateView = true;
    return {};
  } catch (const std::exception& error) {
    return error.what();
  }
}

}  // namespace

std::string showAsCameraData(const std::string& folder) {
  std::error_code error;
  const fs::path resolved = fs::canonical(folder, error);
  if (!error && !fs::is_directory(resolved, error) && !error) {
    error = std::make_error_code(std::errc::not_a_directory);
  }
  return error ? folder + ": " + error.message() : enterOrBorrow(resolved);
}

std::string useEmptyCameraData() { return enterOrBorrow({}); }

bool hasPrivateView() { return privateView; }

}  // namespace simulation_host
