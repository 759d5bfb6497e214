#include "simrec/capture_list.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <tuple>
#include <utility>

#include "simrec/error.h"
#include "simrec/folder.h"

namespace simrec {
namespace {

using catalogue::kTmpFolder;
using catalogue::RequestFolder;

constexpr char kImage = 'i', kRequest = 'r', kUnreadableTmp = 't', kStaged = 's';

bool startsAsRecord(std::string_view name) {
  return name.substr(0, catalogue::kRecordPrefix.size()) == catalogue::kRecordPrefix;
}

/// Whether the entry that was read last is a folder or a link to one.
bool isFolder(const Folder& folder, const char* name) {
  if (folder.type() == DT_DIR) return true;
  if (folder.type() != DT_LNK && folder.type() != DT_UNKNOWN) return false;
  struct stat status;
  return folder.status(name, status, true) && S_ISDIR(status.st_mode);
}

/// Of a request's name, "57/0".
RequestFolder partsOf(std::string_view name) {
  RequestFolder parts = {};
  const char* const end = name.data() + name.size();
  const char* const slash = std::from_chars(name.data(), end, parts.request).ptr;
  std::from_chars(slash + 1, end, parts.camera);
  return parts;
}

}  // namespace

bool mayBeImage(std::string_view name) {
  return name != kTmpFolder && name != "tmp_asd" && name[0] != '.';
}

CaptureList::CaptureList(std::string data) : data_(std::move(data)) {
  const bool staged = readImages();
  readRequests();
  if (staged) add(kStaged, kStagedName);
}

void CaptureList::add(char kind, std::string_view name) {
  if (entries_.size() > UINT32_MAX - name.size() - 2) throw Error(data_ + ": too many captures");
  begins_.push_back(static_cast<std::uint32_t>(entries_.size()));
  entries_ += kind;
  entries_ += name;
  entries_ += '\0';
}

bool CaptureList::readImages() {
  bool staged = false;
  Folder folder(data_);
  while (const char* name = folder.next()) {
    if (startsAsRecord(name) && !isFolder(folder, name)) {
      staged = true;
    } else if (mayBeImage(name) && isFolder(folder, name)) {
      add(kImage, name);
    }
  }
  sortByName();
  return staged;
}

void CaptureList::readRequests() {
  const std::string tmp = data_ + "/" + std::string(kTmpFolder);
  const std::size_t images = begins_.size();
  struct stat status;
  if (stat(tmp.c_str(), &status) != 0 && errno == ENOENT) return;
  try {
    Folder folder(tmp);
    while (const char* name = folder.next()) {
      const auto parts = catalogue::parseRequestFolder(name);
      if (!parts || !isFolder(folder, name)) continue;
      add(kRequest, std::to_string(parts->request) + "/" + std::to_string(parts->camera));
    }
  } catch (const Error&) {  // stands for the requests in it, and tells why when it is read
    begins_.resize(images);
    return add(kUnreadableTmp, kTmpFolder);
  }
  std::sort(begins_.begin() + static_cast<std::ptrdiff_t>(images), begins_.end(),
            [this](std::uint32_t a, std::uint32_t b) {
              const RequestFolder x = partsOf(&entries_[a + 1]), y = partsOf(&entries_[b + 1]);
              return std::tie(x.request, x.camera) < std::tie(y.request, y.camera);
            });
}

void CaptureList::sortByName() {
  std::sort(begins_.begin(), begins_.end(), [this](std::uint32_t a, std::uint32_t b) {
    return std::string_view(&entries_[a + 1]) < std::string_view(&entries_[b + 1]);
  });
}

Capture CaptureList::operator[](std::size_t index) const {
  const char* const entry = &entries_[begins_[index]];
  const std::string name = entry + 1;
  switch (*entry) {
    case kImage:
      return {name, data_ + "/" + name, CaptureKind::kImage};
    case kRequest:
      return requestCapture(data_, partsOf(name));
    case kUnreadableTmp:
      return {name, data_ + "/" + name, CaptureKind::kRequest};
    default:
      return {kStagedName, data_, CaptureKind::kStaged};
  }
}

Capture requestCapture(const std::string& data, const RequestFolder& parts) {
  return {std::to_string(parts.request) + "/" + std::to_string(parts.camera),
          data + "/" + std::string(kTmpFolder) + "/" + catalogue::makeRequestFolder(parts),
          CaptureKind::kRequest, parts};
}

}  // namespace simrec
