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
#include <stdexcept>
#include <system_error>

#include "catalogue/file_name.h"

namespace capture {
namespace {

namespace fs = std::filesystem;

/// Marks a folder as one of this program, to be cleared by the next run.
constexpr char kMarker[] = ".capture_session";

/// All that a run leaves in its folder. Everything else is somebody else's.
constexpr const char* kOwnPaths[] = {
    kMarker,
    "captures.db",  // that scripts/demo makes of it
    "report.html",
    "simulation_*",
    "tmp",
    R"(tmp/RequestID\[*]_camId\[*])",
    R"(tmp/RequestID\[*]_camId\[*]/simulation_*)",
    "BURST_[0-9][0-9][0-9][0-9][0-9][0-9]",
    "BURST_[0-9][0-9][0-9][0-9][0-9][0-9]/simulation_*",
    "tmp_asd",
    "tmp_asd/simulation_*",
    "IMG_[0-9][0-9][0-9][0-9][0-9][0-9]",
    // What simrec has there while something is staged; edited files are somebody's.
    ".simrec",
    ".simrec/lock",
    ".simrec/journal*",
    ".simrec/aside",
    ".simrec/aside/simulation_*",
    ".simrec/new.[01]",
    ".simrec/new.[01]/simulation_*",
    "REPLAYED",
    "REPLAYED/simulation_*",
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

/// Why a call on something in the folder failed, from errno.
std::string whyRefused(const fs::path& path) {
  const int error = errno;
  struct stat status;
  const bool ofOthers = stat(path.c_str(), &status) == 0 && status.st_uid != geteuid();
  return error == EACCES && ofOthers ? "belongs to another user; choose another folder (--data)"
                                     : std::strerror(error);
}

/// Marks the folder, and locks it until the process ends.
std::string claim(const fs::path& folder) {
  const fs::path path = folder / kMarker;
  const int marker = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  if (marker < 0) return whyRefused(path);
  if (flock(marker, LOCK_EX | LOCK_NB) == 0) return "";
  close(marker);
  return "is used by another run";
}

bool leadsNowhere(const fs::path& link) {
  return fs::is_symlink(link.has_filename() ? link : link.parent_path()) && !fs::exists(link);
}

/// What forbids using the folder, found without changing anything.
std::string objectionTo(const fs::path& folder) {
  if (leadsNowhere(folder)) return "is a link that leads nowhere";
  if (!fs::exists(folder)) return "";
  if (!fs::is_directory(folder)) return "is no folder";
  if (access(folder.c_str(), R_OK | W_OK | X_OK) != 0) return whyRefused(folder);
  if (fs::exists(folder / kMarker)) {  // what the other run is just changing can't be looked at
    std::string problem = claim(folder);
    if (!problem.empty()) return problem;
  }
  const fs::path foreign = foreignEntry(folder);
  if (foreign.empty()) return "";
  return "holds " + foreign.lexically_relative(folder).string() +
         ", which no run of this program has left there; choose another folder";
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
  if (!fs::exists(fs::path(kCameraData) / kMarker)) problem = claim(kCameraData);
  if (!problem.empty()) return problem;
  clear(kCameraData);
  // A borrowed kCameraData holds a copy, and gives this folder its files in the end.
  clear(folder);
  return problem;
}

std::string show(const std::string& folder) {
  if (!fs::is_directory(folder)) return "is no folder";
  if (access(folder.c_str(), R_OK | W_OK | X_OK) != 0) return whyRefused(folder);
  std::string problem = simulation_host::showAsCameraData(folder);
  if (!problem.empty()) return problem;
  return fs::exists(fs::path(kCameraData) / kMarker) ? claim(kCameraData) : "";
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
    return explain(error, folder);
  }
}

std::string openDataFolder(const std::string& folder) {
  try {
    return show(folder);
  } catch (const fs::filesystem_error& error) {
    return explain(error, folder);
  }
}

std::string explain(const std::exception& error, const std::string& folder) {
  const auto* const failure = dynamic_cast<const fs::filesystem_error*>(&error);
  if (failure == nullptr) return error.what();
  std::string message = failure->code().message();
  for (const std::string& base : {folder, std::string(kCameraData)}) {
    const fs::path place = failure->path1().lexically_relative(base);
    if (place == ".") return message;
    if (!place.empty() && *place.begin() != "..") return place.string() + ": " + message;
  }
  return failure->path1().string() + ": " + message;
}

std::string asNamed(std::string text, const std::string& folder) {
  const std::string name = folder.substr(0, folder.find_last_not_of('/') + 1);
  const std::string seen = kCameraData;
  for (std::size_t at = 0; (at = text.find(seen, at)) != std::string::npos; at += name.size()) {
    text.replace(at, seen.size(), name);
  }
  return text;
}

void requireRoom() {
  constexpr off_t kMoreThanAnyFile = 4 << 20;  // bytes
  const fs::path path = fs::path(kCameraData) / "simulation_room";
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
  const int error = file < 0 ? errno : posix_fallocate(file, 0, kMoreThanAnyFile);
  if (file >= 0) close(file);
  unlink(path.c_str());
  if (error != 0) throw std::runtime_error(std::strerror(error));
}

std::string requestFolder(unsigned request, unsigned camera) {
  return std::string(catalogue::kTmpFolder) + "/" +
         catalogue::makeRequestFolder({static_cast<int>(request), static_cast<int>(camera)});
}

std::string imageFolder(unsigned index) { return numbered("IMG_", index); }

std::string burstFolder(unsigned index) {
  constexpr unsigned kBurst = 6;  // requests
  return numbered("BURST_", index / kBurst * kBurst);
}

}  // namespace capture
