#include "simrec/table/batches.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "simrec/error.h"

namespace simrec {
namespace {

/// A batch ends behind the record with which it has as many, or as many bytes.
constexpr std::size_t kMostFiles = 64;
constexpr std::uint64_t kMostBytes = 1 << 20;

/// Documents in memory are several times as large as their texts.
constexpr std::uint64_t kLarge = 4 << 20;

}  // namespace

Batches::Batches(Source captures, Takes takes, Trouble trouble)
    : captures_(std::move(captures)), takes_(std::move(takes)), trouble_(std::move(trouble)) {}

Batches::Batches(std::vector<Capture> captures, Takes takes, Trouble trouble)
    : Batches(
          [captures = std::move(captures), next = std::size_t{0}]() mutable {
            return next < captures.size() ? std::optional(std::move(captures[next++]))
                                          : std::nullopt;
          },
          std::move(takes), std::move(trouble)) {}

/// The next capture whose folder can be read; false when there is none.
bool Batches::open() {
  while (auto capture = captures_()) {
    capture_ = std::make_shared<const Capture>(std::move(*capture));
    try {
      files_ = filesOf(*capture_);
    } catch (const Error& error) {
      trouble_(*capture_, error.what());
      continue;
    }
    const auto left = [this](const File& file) {
      return !file.isRecord() || (takes_ && !takes_(*capture_, file));
    };
    files_.erase(std::remove_if(files_.begin(), files_.end(), left), files_.end());
    nextFile_ = 0;
    return true;
  }
  return false;
}

std::optional<Batch> Batches::next() {
  if (capture_ == nullptr && !open()) return std::nullopt;
  Batch batch = {capture_, {}};
  std::uint64_t bytes = 0;
  while (nextFile_ < files_.size() && batch.files.size() < kMostFiles && bytes < kMostBytes) {
    const std::uint64_t next = files_[nextFile_].bytes;
    const bool large =
        next >= kLarge && files_[nextFile_].parts->kind->format == catalogue::Format::kXml;
    if (large && !batch.files.empty()) break;
    batch.large = large;
    batch.files.push_back(std::move(files_[nextFile_++]));
    bytes += next;
  }
  batch.last = nextFile_ == files_.size();
  if (batch.last) capture_ = nullptr;
  return batch;
}

}  // namespace simrec
