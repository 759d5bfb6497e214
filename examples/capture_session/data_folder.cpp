#include "data_folder.h"

#include <fcntl.h>
#include <fnmatch.h>
#include <private_data.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <system_error>

namespace capture {
namespace {

namespace fs = std::filesystem;

/// Marks a folder as one of this program, to be cleared by the next run.
constexpr char kMarker[] = ".capture_session";

/// All that a run leaves in its folder. Everything else is somebody else's.
constexpr const char* kOwnPaths[] = {
    kMarker,
    "simulation_*",
    "tmp",
    R"(tmp/RequestID\[*]_camId\[*])",
    R"(tmp/RequestID\[*]_camId\[*]/simulation_*)",
    "BURST_[0-9][0-9][0-9][0-9][0-9][0-9]",
    "BURST_[0-9][0-9][0-9][0-9][0-9][0-9]/simulation_*",
    "tmp_asd",
    "tmp_asd/simulation_*",
    "IMG_[0-9][0-9][0-9][0-9][0-9][0-9]",
    "IMG_[0-9][0-9][0-9][0-9][0-9][0-9]/simulation_*",
};

bool isOwn(const fs::directory_entry& entry, const fs::path& folder) {
  if (entry.is_symlink() || !(entry.is_regular_file() || entry.is_directory())) return false;
  const fs::path path = entry.path().lexically_relative(folder);
  return std::any_of(std::begin(kOwnPaths), std::end(kOwnPaths), [&](const char* pattern) {
    return fnmatch(pattern, path.c_str(), FNM_PATHNAME) == 0;
  });
}

/// The first thing in the folder that no run has left there, or nothing.
fs::path foreignEntry(const fs::path& folder) {
  const bool marked = fs::exists(folder / kMarker);
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!marked || !isOwn(entry, folder)) return entry.path();
  }
  return {};
}

/// What forbids using the folder, found without changing anything.
std::string objectionTo(const fs::path& folder) {
  if (!fs::exists(folder)) return "";
  if (!fs::is_directory(folder)) return "is no folder";
  const fs::path foreign = foreignEntry(folder);
  if (foreign.empty()) return "";
  return "holds " + foreign.lexically_relative(folder).string() +
         ", which no run of this program has left there; choose another folder";
}

/// Marks the folder, and locks it until the process ends.
std::string claim(const fs::path& folder) {
  const int marker = open((folder / kMarker).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  if (marker < 0) return std::strerror(errno);
  if (flock(marker, LOCK_EX | LOCK_NB) == 0) return "";
  close(marker);
  return "is used by another run";
}

void clear(const fs::path& folder) {
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().filename() != kMarker) fs::remove_all(entry.path());
  }
}

std::string prepare(const std::string& folder) {
  std::string problem = objectionTo(folder);
  if (!problem.empty()) return problem;
  const bool made = mkdir(folder.c_str(), 0777) == 0;
  if (!made && errno != EEXIST) return std::strerror(errno);
  problem = simulation_host::showAsCameraData(folder);
  if (!problem.empty()) {
    if (made) rmdir(folder.c_str());
    return problem;
  }
  problem = claim(kCameraData);
  if (problem.empty()) clear(kCameraData);
  return problem;
}

std::string numbered(const char* name, unsigned number) {
  const std::string digits = std::to_string(number);
  return name + std::string(6 - digits.size(), '0') + digits;
}

}  // namespace

std::string prepareDataFolder(const std::string& folder) {
  try {
    return prepare(folder);
  } catch (const fs::filesystem_error& error) {
    return error.path1().filename().string() + ": " + error.code().message();
  }
}

std::string requestFolder(unsigned request, unsigned camera) {
  return "tmp/RequestID[" + std::to_string(request) + "]_camId[" + std::to_string(camera) + "]";
}

std::string imageFolder(unsigned index) { return numbered("IMG_", index); }

std::string burstFolder(unsigned index) {
  constexpr unsigned kBurst = 6;  // requests
  return numbered("BURST_", index / kBurst * kBurst);
}

}  // namespace capture
