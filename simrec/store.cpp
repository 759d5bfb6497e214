#include "simrec/store.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "simrec/capture_list.h"
#include "simrec/error.h"
#include "simrec/folder.h"

namespace simrec {
namespace {

using catalogue::kRecordPrefix;
using catalogue::kTmpFolder;
using catalogue::RequestFolder;

bool startsAsRecord(std::string_view name) {
  return name.substr(0, kRecordPrefix.size()) == kRecordPrefix;
}

/// The errno that tells why it is no folder; 0: it is one.
int whyNoFolder(const std::string& path) {
  struct stat status;
  if (stat(path.c_str(), &status) != 0) return errno;
  return S_ISDIR(status.st_mode) ? 0 : ENOTDIR;
}

/// "57/0", as a request is named.
std::optional<RequestFolder> requestNamed(const std::string& name) {
  const std::size_t slash = name.find('/');
  if (slash == std::string::npos) return std::nullopt;
  return catalogue::parseRequestFolder("RequestID[" + name.substr(0, slash) + "]_camId[" +
                                       name.substr(slash + 1) + "]");
}

/// False where the file is gone meanwhile.
bool look(const Folder& folder, File& file) {
  struct stat status;
  if (!folder.status(file.name.c_str(), status, false)) {
    file.type = FileType::kUnreachable;
    return errno != ENOENT;
  }
  if (S_ISLNK(status.st_mode)) {
    file.type = FileType::kDanglingLink;
    if (!folder.status(file.name.c_str(), status, true)) return true;
  }
  file.type = S_ISREG(status.st_mode)   ? FileType::kRegular
              : S_ISDIR(status.st_mode) ? FileType::kFolder
                                        : FileType::kSpecial;
  if (file.type == FileType::kRegular) file.bytes = static_cast<std::uint64_t>(status.st_size);
  file.modified = modified(status);
  return true;
}

/// What every name of the kind begins with.
std::string beginningOf(const catalogue::Kind& kind) {
  const std::string_view pattern = kind.pattern;
  return std::string(kRecordPrefix) + std::string(pattern.substr(0, pattern.find('{')));
}

/// Of `only` records of that kind; null: everything.
std::vector<File> readFolder(const Capture& capture, const catalogue::Kind* only) {
  const bool staged = capture.kind == CaptureKind::kStaged;
  const std::string beginning = only != nullptr ? beginningOf(*only) : "";
  std::vector<File> files;
  Folder folder(capture.path);
  while (const char* const name = folder.next()) {
    if (std::strncmp(name, beginning.c_str(), beginning.size()) != 0) continue;
    if (staged ? !startsAsRecord(name) : std::string_view(name) == kProvenanceFile) continue;
    File& file = files.emplace_back();
    file.name = name;
    file.parts = catalogue::parseFileName(name);
    const bool wanted = only == nullptr || (file.parts && file.parts->kind == only);
    const bool there = wanted && look(folder, file);
    if (!there || (staged && file.type == FileType::kFolder)) files.pop_back();
  }
  return files;
}

void sortByName(std::vector<File>& files) {
  std::sort(files.begin(), files.end(),
            [](const File& a, const File& b) { return a.name < b.name; });
}

}  // namespace

const char* nameOf(CaptureKind kind) {
  switch (kind) {
    case CaptureKind::kImage:
      return "image";
    case CaptureKind::kRequest:
      return "request";
    case CaptureKind::kStaged:
      return "staged";
    case CaptureKind::kFolder:
      break;
  }
  return "folder";
}

Store::Store(std::string data) : data_(std::move(data)) {
  while (data_.size() > 1 && data_.back() == '/') data_.pop_back();
}

std::vector<Capture> Store::captures() const {
  const CaptureList list(data_);
  std::vector<Capture> captures;
  captures.reserve(list.size());
  for (std::size_t i = 0; i < list.size(); ++i) captures.push_back(list[i]);
  return captures;
}

Capture Store::find(const std::string& name) const {
  Capture capture = {name, data_ + "/" + name, CaptureKind::kImage};
  if (const auto request = requestNamed(name)) {
    capture = requestCapture(data_, *request);
  } else if (name == kStagedName) {
    capture = {name, data_, CaptureKind::kStaged};
  } else if (name.find('/') != std::string::npos) {
    capture = {name, name, CaptureKind::kFolder};
  }
  if (name == kTmpFolder) {  // stands for the requests in it where these can't be listed
    const CaptureList list(data_);
    for (std::size_t i = 0; i < list.size(); ++i) {
      Capture other = list[i];
      if (other.kind == CaptureKind::kRequest && !other.request) return other;
    }
  }
  const bool named = capture.kind != CaptureKind::kImage || (!name.empty() && mayBeImage(name));
  const int why = named ? whyNoFolder(capture.path) : ENOENT;
  if (why == 0) return capture;
  if (capture.kind == CaptureKind::kFolder && why == ENOENT) {
    throw Error("no capture is called '" + name + "'");
  }
  if (capture.kind != CaptureKind::kFolder) Folder{data_};  // throws what is wrong with it
  if (why != ENOENT) throw Error(capture.path + ": " + std::strerror(why));
  throw Error("no capture is called '" + name + "' in " + data_);
}

std::vector<File> unsortedFilesOf(const Capture& capture) { return readFolder(capture, nullptr); }

std::vector<File> filesOf(const Capture& capture) {
  std::vector<File> files = readFolder(capture, nullptr);
  sortByName(files);
  return files;
}

std::vector<File> filesOf(const Capture& capture, const catalogue::Kind& kind) {
  std::vector<File> files = readFolder(capture, &kind);
  sortByName(files);
  return files;
}

}  // namespace simrec
