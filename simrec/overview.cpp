#include "simrec/overview.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <tuple>
#include <utility>

#include "simrec/error.h"
#include "simrec/folder.h"
#include "simrec/record.h"
#include "simrec/regular_file.h"
#include "simrec/text.h"

namespace simrec {
namespace {

/// Why no command reads the file; null: they do.
const char* whyUnread(const File& file) {
  if (!file.isRecord()) return "no record";
  if (const char* const problem = problemOf(file.type)) return problem;
  const bool xml = file.parts->kind->format == catalogue::Format::kXml;
  return xml && file.bytes > kLargestXml ? kTooLargeXml : nullptr;
}

/// What can be wrong with a file that nobody opened; null: nothing.
const char* problemIn(const File& file) {
  if (const char* const problem = whyUnread(file)) return problem;
  return file.bytes == 0 ? "empty" : nullptr;
}

/// Problems of a capture. There may be as many as files, so only the first are kept.
class Problems {
 public:
  void add(std::string problem) {
    ++count_;
    first_.insert(std::move(problem));
    if (first_.size() > kMostProblems) first_.erase(std::prev(first_.end()));
  }
  void count(std::uint64_t more) { count_ += more; }

  void moveTo(Overview& overview) {
    overview.problemCount = count_;
    while (!first_.empty()) {
      overview.problems.push_back(std::move(first_.extract(first_.begin()).value()));
    }
    const std::uint64_t more = count_ - overview.problems.size();
    if (more > 0) overview.problems.push_back("and " + counted(more, "more problem"));
  }

 private:
  static constexpr std::size_t kMostProblems = 100;

  std::multiset<std::string> first_;
  std::uint64_t count_ = 0;
};

bool startsAsRecord(const std::string& name) {
  return name.compare(0, catalogue::kRecordPrefix.size(), catalogue::kRecordPrefix) == 0;
}

/// More missing records than this are only counted.
constexpr std::size_t kMostMissing = 100;

/// A record but for its camera.
auto withoutCamera(const catalogue::FileName& parts) {
  return std::tie(parts.kind, parts.ev, parts.text, parts.index);
}

using Names = std::vector<const catalogue::FileName*>;

Names namesWithCamera(const std::vector<File>& files) {
  Names names;
  for (const File& file : files) {
    if (file.parts && file.parts->camera) names.push_back(&*file.parts);
  }
  std::sort(names.begin(), names.end(),
            [](const auto* a, const auto* b) { return withoutCamera(*a) < withoutCamera(*b); });
  return names;
}

}  // namespace

MissingRecords missingRecords(const std::vector<File>& files) {
  const Names names = namesWithCamera(files);
  std::set<int> cameras;
  for (const auto* const name : names) cameras.insert(*name->camera);
  MissingRecords missing;
  for (auto record = names.begin(); record != names.end();) {
    catalogue::FileName other = **record;
    std::set<int> lacking = cameras;
    for (; record != names.end() && withoutCamera(**record) == withoutCamera(other); ++record) {
      lacking.erase(*(*record)->camera);
    }
    for (const int camera : lacking) {
      if (missing.files.size() == kMostMissing) {
        ++missing.more;
        continue;
      }
      other.camera = camera;
      missing.files.push_back(catalogue::makeFileName(other));
    }
  }
  std::sort(missing.files.begin(), missing.files.end());
  return missing;
}

std::string wordsForMore(const MissingRecords& missing) {
  return counted(missing.more, "more record") + " missing, other cameras have them";
}

Overview overviewOf(const Capture& capture, const std::vector<File>& files) {
  Overview overview;
  Problems problems;
  if (capture.request) overview.cameras.insert(capture.request->camera);
  for (const File& file : files) {
    if (const char* const problem = problemIn(file)) {
      problems.add(printable(file.name) + ": " + problem);
    }
    overview.looksLikeCapture = overview.looksLikeCapture || startsAsRecord(file.name);
    if (!file.isRecord()) continue;
    if (whyUnread(file) == nullptr) ++overview.records;
    overview.bytes += file.bytes;
    if (file.hasTime())
      overview.newest = std::max(overview.newest.value_or(file.modified), file.modified);
    if (!capture.request && file.parts->camera) overview.cameras.insert(*file.parts->camera);
  }
  const MissingRecords missing = missingRecords(files);
  for (const std::string& file : missing.files) problems.add(printable(file) + ": " + kMissing);
  problems.count(missing.more);
  problems.moveTo(overview);
  return overview;
}

Overview overviewOf(const Capture& capture) {
  try {
    return overviewOf(capture, unsortedFilesOf(capture));
  } catch (const Error& error) {
    Overview overview;
    overview.problems.push_back(printable(error.what()));
    overview.problemCount = 1;
    overview.looksLikeCapture = true;
    return overview;
  }
}

bool looksLikeCapture(const Capture& capture) {
  try {
    Folder folder(capture.path);
    while (const char* name = folder.next()) {
      if (startsAsRecord(name)) return true;
    }
    return false;
  } catch (const Error&) {
    return true;
  }
}

}  // namespace simrec
