#include "simrec/store.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "simrec/capture_list.h"
#include "simrec/error.h"
#include "simrec/folder.h"

namespace simrec {
namespace {

using catalogue::kRecordPrefix;
using catalogue::RequestFolder;

bool startsAsRecord(std::string_view name) {
  return name.substr(0, kRecordPrefix.size()) == kRecordPrefix;
}

bool exists(const Capture& capture) {
  struct stat status;
  return stat(capture.path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
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
  const bool named = !name.empty() && name != "." && name != "..";
  if (named && exists(capture)) return capture;
  if (capture.kind != CaptureKind::kFolder) Folder{data_};  // throws what is wrong with it
  throw Error("no capture is called '" + name + "' in " + data_);
}

std::vector<File> unsortedFilesOf(const Capture& capture) {
  std::vector<File> files;
  Folder folder(capture.path);
  while (const char* name = folder.next()) {
    const bool staged = capture.kind == CaptureKind::kStaged;
    if (staged ? !startsAsRecord(name) : std::string_view(name) == kProvenanceFile) continue;
    File& file = files.emplace_back();
    file.name = name;
    file.parts = catalogue::parseFileName(name);
    const bool there = look(folder, file);
    if (!there || (staged && file.type == FileType::kFolder)) files.pop_back();
  }
  return files;
}

std::vector<File> filesOf(const Capture& capture) {
  std::vector<File> files = unsortedFilesOf(capture);
  std::sort(files.begin(), files.end(),
            [](const File& a, const File& b) { return a.name < b.name; });
  return files;
}

}  // namespace simrec
