#include "private_data.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace simulation_host {
namespace {

namespace fs = std::filesystem;

constexpr char kCameraData[] = "/data/vendor/camera";

void require(bool done, const std::string& what) {
  if (!done) throw std::runtime_error(what + ": " + std::strerror(errno));
}

void writeText(const char* path, const std::string& text) { std::ofstream(path) << text; }

/// Root needs a mount namespace only; anybody else becomes root of a user
/// namespace of its own first.
void enterOwnNamespaces() {
  if (geteuid() == 0 && unshare(CLONE_NEWNS) == 0) return;
  const uid_t user = geteuid();
  const gid_t group = getegid();
  require(unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0, "no private name space to be had");
  writeText("/proc/self/setgroups", "deny");
  writeText("/proc/self/uid_map", "0 " + std::to_string(user) + " 1");
  writeText("/proc/self/gid_map", "0 " + std::to_string(group) + " 1");
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

/// Moves to a new root in memory; the old one stays visible at `oldRoot`.
void enterEmptyRoot(const fs::path& oldRoot) {
  require(mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0, "private mounts");
  const fs::path start = "/tmp";
  require(mount("tmpfs", start.c_str(), "tmpfs", 0, "mode=755") == 0, "a new root");
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
  const fs::path workingFolder = fs::current_path();
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
  fs::current_path(workingFolder);
}

std::string enterOrExplain(const fs::path& cameraData) {
  try {
    enterPrivateView(cameraData);
    return {};
  } catch (const std::exception& error) {
    return error.what();
  }
}

}  // namespace

std::string showAsCameraData(const std::string& folder) {
  std::error_code error;
  const fs::path resolved = fs::canonical(folder, error);
  return error ? folder + ": " + error.message() : enterOrExplain(resolved);
}

std::string useEmptyCameraData() { return enterOrExplain({}); }

}  // namespace simulation_host
