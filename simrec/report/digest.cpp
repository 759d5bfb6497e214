#include "simrec/report/digest.h"

#include <algorithm>
#include <cstdlib>
#include <map>

#include "simrec/error.h"
#include "simrec/report/views.h"
#include "simrec/text.h"

namespace simrec::report {
namespace {

using Key = std::pair<const catalogue::Kind*, std::optional<int>>;

/// The files with quantities, one of each kind and camera: of exposure steps the one nearest to 0.
std::map<Key, const File*> followedFiles(const std::vector<File>& files) {
  std::map<Key, const File*> followed;
  for (const File& file : files) {
    if (!file.isRecord() || !isFollowed(*file.parts->kind)) continue;
    const File*& found = followed[{file.parts->kind, file.parts->camera}];
    const auto step = [](const File& each) {
      return std::abs(std::int64_t{each.parts->ev.value_or(0)});
    };
    if (found == nullptr || step(file) < step(*found)) found = &file;
  }
  return followed;
}

/// The file that the capture's thumbnail is made of: of the first kind that there is.
const File* pictureOf(const std::vector<File>& files) {
  for (const catalogue::Kind& kind : catalogue::kinds()) {
    if (!hasThumbnail(kind)) continue;
    for (const File& file : files) {
      if (file.isRecord() && file.parts->kind == &kind) return &file;
    }
  }
  return nullptr;
}

Pictures picturesOf(const catalogue::Kind& kind) {
  if (!isPictured(kind)) return Pictures::kNone;
  return showsScene(kind) ? Pictures::kOfScene : Pictures::kOfLens;
}

void read(const Capture& capture, const std::vector<File>& files, Digest& digest) {
  for (const File& file : files) {
    if (file.isRecord()) digest.pictures = std::max(digest.pictures, picturesOf(*file.parts->kind));
  }
  const File* const picture = pictureOf(files);
  for (const auto& [key, file] : followedFiles(files)) {
    const Record record = readRecord(capture.path, *file);
    addRecord(record, digest.moments);
    if (file == picture) digest.thumbnail = thumbnailOf(record);
  }
  if (picture != nullptr && digest.thumbnail.empty()) {
    digest.thumbnail = thumbnailOf(readRecord(capture.path, *picture));
  }
}

}  // namespace

Digest digestOf(const Capture& capture, Doctor& doctor) {
  Digest digest = {capture, overviewOf(capture), {}, {}, {}, Pictures::kNone};
  try {
    digest.findings = doctor.examine(capture);
    read(capture, filesOf(capture), digest);
  } catch (const Error& error) {
    if (digest.findings.empty()) {
      digest.findings.push_back({"", Severity::kError, printable(error.what()), Readback::kNone});
    }
  }
  const auto request = requestOf(capture);
  for (Moment& moment : digest.moments) moment.request = request;
  std::sort(digest.moments.begin(), digest.moments.end(),
            [](const Moment& a, const Moment& b) { return a.camera < b.camera; });
  return digest;
}

}  // namespace simrec::report
