#include "loan.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "kept_files.h"

namespace simulation_host {
namespace {

namespace fs = std::filesystem;

struct MadeFolder {
  fs::path path;
  std::string identity;  // empty: killed before it was known
};

/// What the marker tells, in the order in which it was done.
struct Loan {
  std::vector<MadeFolder> made;
  fs::path link;     // /data/vendor/camera is a link to it
  std::string used;  // the identity of the folder whose content is ours
  fs::path home;     // where that content goes in the end; empty: nowhere
};

void require(bool done, const std::string& what) {
  if (!done) throw std::runtime_error(what + ": " + std::strerror(errno));
}

void require(const std::error_code& error, const std::string& what) {
  if (error) throw std::runtime_error(what + ": " + error.message());
}

constexpr char kMarkers[] = "/var/tmp/simulation-camera-data.";

/// One for each user: nobody else can have written it. In a folder that outlives a
/// restart of the machine, as /data does.
std::string markerPath() { return kMarkers + std::to_string(geteuid()); }

/// Opens the marker, or makes it. Anything else of that name, a pipe or another user's
/// file, is no marker.
int openMarker(int flags) {
  const int marker = open(markerPath().c_str(), flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600);
  struct stat status;
  if (marker >= 0 &&
      (fstat(marker, &status) != 0 || !S_ISREG(status.st_mode) || status.st_uid != geteuid())) {
    close(marker);
    throw std::runtime_error(markerPath() + " is not a file of this user's");
  }
  return marker;
}

void mark(const std::string& what, const std::string& value) {
  const std::string line =
      (std::ostringstream() << what << ' ' << std::quoted(value) << '\n').str();
  const int marker = openMarker(O_WRONLY | O_APPEND | O_CREAT);
  const bool written =
      marker >= 0 && write(marker, line.data(), line.size()) == static_cast<ssize_t>(line.size());
  const int error = errno;
  if (marker >= 0) close(marker);
  errno = error;
  require(written, "writing " + markerPath());
}

Loan readMarker() {
  const int marker = openMarker(O_RDONLY);
  require(marker >= 0 || errno == ENOENT, "opening " + markerPath());
  Loan loan;
  if (marker < 0) return loan;
  std::ifstream lines("/proc/self/fd/" + std::to_string(marker));
  close(marker);
  // A last line that was cut short is of something that was not done.
  for (std::string what, value; lines >> what >> std::quoted(value);) {
    if (what == "made") loan.made.push_back({value, {}});
    if (what == "is" && !loan.made.empty()) loan.made.back().identity = value;
    if (what == "link") loan.link = value;
    if (what == "used") loan.used = value;
    if (what == "home") loan.home = value;
  }
  return loan;
}

constexpr char kUnknownBirth[] = "unknown";

/// Tells a folder from another one that takes its place later, inode number included,
/// if the file system knows when a folder was made.
std::string identityOf(const fs::path& folder) {
  struct statx status = {};
  require(statx(AT_FDCWD, folder.c_str(), 0, STATX_INO | STATX_BTIME, &status) == 0,
          "looking at " + folder.string());
  std::ostringstream identity;
  identity << status.stx_dev_major << ':' << status.stx_dev_minor << ' ' << status.stx_ino << ' ';
  if ((status.stx_mask & STATX_BTIME) == 0) {
    identity << kUnknownBirth;
  } else {
    identity << status.stx_btime.tv_sec << '.' << status.stx_btime.tv_nsec;
  }
  return identity.str();
}

/// Where a birth is unknown, a folder that was there after a kill may be another one.
bool isStill(const fs::path& folder, const std::string& identity, bool stale) {
  if (identity.empty() || !fs::exists(folder)) return false;
  const bool known = identity.find(kUnknownBirth) == identity.npos;
  return (known || !stale) && identityOf(folder) == identity;
}

bool isFolder(const fs::path& path) {
  std::error_code missing;
  return fs::is_directory(fs::symlink_status(path, missing));
}

bool isNewer(const timespec& a, const timespec& b) {
  return std::pair(a.tv_sec, a.tv_nsec) > std::pair(b.tv_sec, b.tv_nsec);
}

void removeAll(const fs::path& file) {
  std::error_code error;
  fs::remove_all(file, error);
  require(error, "removing " + file.string());
}

/// Empties /data/vendor/camera.
class GiveBack {
 public:
  GiveBack(fs::path home, bool stale) : home_(std::move(home)), stale_(stale) {}

  /// Returns the folder of what could not go home.
  fs::path run() {
    empty(kCameraData, home_);
    return aside_;
  }

 private:
  void empty(const fs::path& folder, const fs::path& home) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder)) files.push_back(entry.path());
    for (const fs::path& file : files) {
      if (home_.empty()) {
        stale_ ? putAside(file) : removeAll(file);
      } else if (const fs::path target = home / file.filename();
                 isFolder(file) && isFolder(target)) {
        empty(file, target);
        removeAll(file);
      } else if (!bringHome(file, target)) {
        putAside(file);
      }
    }
  }

  bool bringHome(const fs::path& file, const fs::path& target) const {
    struct stat ours, theirs;
    require(lstat(file.c_str(), &ours) == 0, "looking at " + file.string());
    if (lstat(target.c_str(), &theirs) == 0) {
      const bool newer = isNewer(theirs.st_mtim, ours.st_mtim);
      const bool alike = !newer && !isNewer(ours.st_mtim, theirs.st_mtim) &&
                         ours.st_size == theirs.st_size && S_ISREG(ours.st_mode) &&
                         S_ISREG(theirs.st_mode);
      if (alike) removeAll(file);
      if (alike || (newer && stale_)) return alike;
    }
    try {
      moveKept(file, target);
      return true;
    } catch (const std::exception&) {
      return false;  // the folder is gone, write-protected or full, or is a file now
    }
  }

  void putAside(const fs::path& file) {
    if (aside_.empty()) {
      std::string name = markerPath() + ".left.XXXXXX";
      require(mkdtemp(name.data()) != nullptr, "making a folder in /var/tmp");
      aside_ = name;
    }
    const fs::path target = aside_ / file.lexically_relative(kCameraData);
    std::error_code error;
    fs::create_directories(target.parent_path(), error);
    require(error, "making " + target.parent_path().string());
    moveKept(file, target);
  }

  fs::path home_;
  bool stale_;
  fs::path aside_;
};

/// What an ordinary user lacks, root can give.
void requireRight(bool had, const std::string& what) {
  if (had) return;
  const std::string camera = kCameraData, problem = what + ": " + std::strerror(errno);
  const std::string remedy = " (as root, once: mkdir -p " + camera + " && chown " +
                             std::to_string(geteuid()) + ' ' + camera + ')';
  throw std::runtime_error(errno == EACCES && geteuid() != 0 ? problem + remedy : problem);
}

void makeFolder(const fs::path& folder) {
  mark("made", folder);
  requireRight(mkdir(folder.c_str(), 0777) == 0, "making " + folder.string());
  mark("is", identityOf(folder));
}

void requireEmpty() {
  requireRight(access(kCameraData, R_OK | W_OK | X_OK) == 0, kCameraData);
  const fs::directory_iterator first(kCameraData);
  if (first != fs::directory_iterator()) {
    throw std::runtime_error(std::string(kCameraData) + " holds " +
                             first->path().filename().string());
  }
}

/// Copies there what `folder` holds.
void fillFrom(const fs::path& folder) {
  const fs::path inside = fs::canonical(kCameraData).lexically_relative(folder);
  if (*inside.begin() != "..") {
    throw std::runtime_error(folder.string() + " holds " + kCameraData + " itself");
  }
  for (const auto& entry : fs::directory_iterator(folder)) {
    copyKept(entry.path(), kCameraData / entry.path().filename());
  }
  mark("home", folder);
}

void markUsed() {
  // A folder of a container's image is born anew at its first change: be this the first.
  constexpr auto kAsItIs = static_cast<uid_t>(-1);
  require(chown(kCameraData, kAsItIs, kAsItIs) == 0, std::string("changing ") + kCameraData);
  mark("used", identityOf(kCameraData));
  // Held open as long as this process lives: no other folder gets its inode number.
  require(open(kCameraData, O_PATH | O_DIRECTORY | O_CLOEXEC) >= 0, kCameraData);
}

void take(const std::string& folder) {
  for (const char* parent : {"/data", "/data/vendor"}) {
    if (!fs::exists(parent)) makeFolder(parent);
  }
  if (fs::exists(kCameraData)) {
    requireEmpty();
    markUsed();
    if (!folder.empty()) fillFrom(folder);
  } else if (!folder.empty()) {
    mark("link", folder);
    requireRight(symlink(folder.c_str(), kCameraData) == 0, std::string("making ") + kCameraData);
  } else {
    makeFolder(kCameraData);
    markUsed();
  }
}

/// In brackets: the other users whose killed programs may be what is in the way.
std::string othersMarkers() {
  std::string users;
  std::error_code missing;
  for (const auto& entry : fs::directory_iterator("/var/tmp", missing)) {
    struct stat status;
    const std::string path = entry.path();
    if (lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) continue;
    const std::string user = std::to_string(status.st_uid);
    if (path == kMarkers + user && status.st_uid != geteuid()) {
      users.append(" (").append(path).append(" tells of a killed program of user ");
      users.append(user).append(", whose next one gives back what it had)");
    }
  }
  return users;
}

std::string giveBack(bool stale) {
  const Loan loan = readMarker();
  std::error_code missing;
  fs::path aside;
  if (!loan.link.empty()) {
    if (fs::read_symlink(kCameraData, missing) == loan.link) unlink(kCameraData);
  } else if (isStill(kCameraData, loan.used, stale)) {
    aside = GiveBack(loan.home, stale).run();
  }
  // Those that somebody else has put something into stay.
  for (auto folder = loan.made.rbegin(); folder != loan.made.rend(); ++folder) {
    if (isStill(folder->path, folder->identity, stale)) rmdir(folder->path.c_str());
  }
  unlink(markerPath().c_str());
  return aside;
}

/// An error names the marker: without it the next run goes by what it finds.
std::string giveBackOrName(bool stale) {
  try {
    return giveBack(stale);
  } catch (const std::exception& error) {
    throw std::runtime_error("giving back what " + markerPath() + " names: " + error.what());
  }
}

}  // namespace

void takeLoan(const std::string& folder) {
  std::error_code missing;
  if (!folder.empty() && fs::equivalent(folder, kCameraData, missing)) return;
  try {
    take(folder);
  } catch (const std::exception& error) {
    endLoan();
    throw std::runtime_error(error.what() + othersMarkers());
  }
}

std::string endLoan() { return giveBackOrName(false); }

std::string endStaleLoan() { return giveBackOrName(true); }

}  // namespace simulation_host
