#include "kept_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <system_error>

namespace simulation_host {
namespace {

namespace fs = std::filesystem;

void require(const std::error_code& error, const std::string& what, const fs::path& file) {
  if (error) throw std::runtime_error(what + ' ' + file.string() + ": " + error.message());
}

/// What the user may not set stays as it is.
void setAttributes(const fs::path& file, const struct stat& wanted) {
  const bool given = lchown(file.c_str(), wanted.st_uid, wanted.st_gid) == 0;
  mode_t mode = wanted.st_mode & (given ? 07777U : 01777U);
  if (S_ISDIR(wanted.st_mode)) mode |= S_IRWXU;
  if (!S_ISLNK(wanted.st_mode)) static_cast<void>(chmod(file.c_str(), mode));
  const timespec times[] = {wanted.st_atim, wanted.st_mtim};
  static_cast<void>(utimensat(AT_FDCWD, file.c_str(), times, AT_SYMLINK_NOFOLLOW));
}

}  // namespace

void copyKept(const fs::path& from, const fs::path& to) {
  struct stat status;
  if (lstat(from.c_str(), &status) != 0) {
    throw std::runtime_error("copying " + from.string() + ": " + std::strerror(errno));
  }
  std::error_code error;
  if (S_ISDIR(status.st_mode)) {
    fs::create_directory(to, error);
    require(error, "making", to);
    fs::directory_iterator entry(from, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
      copyKept(entry->path(), to / entry->path().filename());
    }
  } else if (S_ISLNK(status.st_mode)) {
    fs::copy_symlink(from, to, error);
  } else {
    fs::copy_file(from, to, error);
  }
  require(error, "copying", from);
  setAttributes(to, status);
}

void moveKept(const fs::path& from, const fs::path& to) {
  std::error_code error, whatever;
  fs::rename(from, to, error);
  if (error == std::errc::cross_device_link) {
    // One name, so that what a killed move has left goes with the next.
    const fs::path part = to.parent_path() / ".simulation-camera-data.part";
    try {
      fs::remove_all(part, whatever);
      copyKept(from, part);
      fs::rename(part, to, error);
      require(error, "making", to);
    } catch (...) {
      fs::remove_all(part, whatever);
      throw;
    }
    fs::remove_all(from, error);
  }
  require(error, "moving", from);
}

}  // namespace simulation_host
