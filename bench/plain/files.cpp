#include "bench/plain/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace bench::plain {
namespace {

const std::string kRoot = "/data/vendor/camera";

std::string camera(const Call& call) { return "_camId[" + std::to_string(call.input) + "]"; }

}  // namespace

void makeFolder(const std::string& path) {
  if (access(path.c_str(), F_OK) != 0) mkdir(path.c_str(), 0777);
}

std::string requestFile(const Call& call, const std::string& name, const char* extension) {
  std::string folder = kRoot;
  if (isDump(call)) {
    makeFolder(kRoot + "/tmp");
    folder += "/tmp/RequestID[" + std::to_string(call.request) + "]" + camera(call);
    makeFolder(folder);
  }
  return folder + "/simulation_" + name + camera(call) + extension;
}

std::string namedFile(const Call& call, const std::string& name, const char* extension) {
  std::string folder = kRoot;
  if (isDump(call)) {
    makeFolder(kRoot + "/tmp");
    folder = folder + "/" + call.info.folderName;
    makeFolder(folder);
  }
  return folder + "/simulation_" + name + camera(call) + extension;
}

void writeFile(const std::string& path, const void* data, std::size_t size, int flags) {
  const int file = open(path.c_str(), flags, 0777);
  if (file < 0) return;
  if (write(file, data, size) != static_cast<ssize_t>(size)) unlink(path.c_str());
  close(file);
}

std::size_t readFile(const std::string& path, void* data, std::size_t size, long offset) {
  const int file = open(path.c_str(), O_RDONLY);
  if (file < 0) return 0;
  if (offset > 0) lseek(file, offset, SEEK_SET);
  const ssize_t count = read(file, data, size);
  close(file);
  return count < 0 ? 0 : static_cast<std::size_t>(count);
}

tinyxml2::XMLElement& append(tinyxml2::XMLNode& parent, const char* name) {
  return *parent.InsertEndChild(parent.GetDocument()->NewElement(name))->ToElement();
}

}  // namespace bench::plain
