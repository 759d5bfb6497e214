#include "simrec/overview.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "simrec/error.h"
#include "simrec/regular_file.h"
#include "simrec/text.h"

namespace simrec {
namespace {

/// What can be wrong with a file that nobody opened; null: nothing.
const char* problemIn(const File& file) {
  if (!file.isRecord()) return "no record";
  if (const char* const problem = problemOf(file.type)) return problem;
  return file.bytes == 0 ? "empty" : nullptr;
}

bool startsAsRecord(const std::string& name) {
  return name.compare(0, catalogue::kRecordPrefix.size(), catalogue::kRecordPrefix) == 0;
}

/// More missing records than this are only counted.
constexpr std::size_t kMostMissing = 100;

/// A record but for its camera.
auto withoutCamera(const catalogue::FileName& parts) {
  return std::make_tuple(parts.kind, parts.ev, parts.text, parts.index);
}

}  // namespace

MissingRecords missingRecords(const std::vector<File>& files) {
  std::map<decltype(withoutCamera({})), std::set<int>> holders;
  std::set<int> cameras;
  for (const File& file : files) {
    if (!file.parts || !file.parts->camera) continue;
    cameras.insert(*file.parts->camera);
    holders[withoutCamera(*file.parts)].insert(*file.parts->camera);
  }
  MissingRecords missing;
  for (const auto& [record, holding] : holders) {
    missing.more += cameras.size() - holding.size();
    if (holding.size() == cameras.size() || missing.files.size() == kMostMissing) continue;
    for (const int camera : cameras) {
      if (missing.files.size() == kMostMissing) break;
      if (holding.count(camera) != 0) continue;
      const auto& [kind, ev, text, index] = record;
      missing.files.push_back(catalogue::makeFileName({kind, camera, ev, text, index}));
    }
  }
  missing.more -= missing.files.size();
  std::sort(missing.files.begin(), missing.files.end());
  return missing;
}

std::string wordsForMore(const MissingRecords& missing) {
  return counted(missing.more, "more record") + " missing, other cameras have them";
}

Overview overviewOf(const Capture& capture, const std::vector<File>& files) {
  Overview overview;
  if (capture.request) overview.cameras.insert(capture.request->camera);
  for (const File& file : files) {
    if (const char* const problem = problemIn(file)) {
      overview.problems.push_back(printable(file.name) + ": " + problem);
    }
    overview.looksLikeCapture = overview.looksLikeCapture || startsAsRecord(file.name);
    if (!file.isRecord()) continue;
    ++overview.records;
    overview.bytes += file.bytes;
    if (file.hasTime())
      overview.newest = std::max(overview.newest.value_or(file.modified), file.modified);
    if (!capture.request && file.parts->camera) overview.cameras.insert(*file.parts->camera);
  }
  const MissingRecords missing = missingRecords(files);
  for (const std::string& file : missing.files) {
    overview.problems.push_back(printable(file) + ": " + kMissing);
  }
  std::sort(overview.problems.begin(), overview.problems.end());
  if (missing.more > 0) overview.problems.push_back(wordsForMore(missing));
  return overview;
}

Overview overviewOf(const Capture& capture) {
  try {
    return overviewOf(capture, unsortedFilesOf(capture));
  } catch (const Error& error) {
    Overview overview;
    overview.problems.push_back(printable(error.what()));
    overview.looksLikeCapture = true;
    return overview;
  }
}

}  // namespace simrec
