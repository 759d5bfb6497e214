#include "simrec/table/record_stream.h"

#include <utility>

#include "simrec/error.h"
#include "simrec/table/in_order.h"

namespace simrec {
namespace {

/// So many files are read in advance, or files with so many bytes together.
constexpr std::size_t kMostFiles = 16;
constexpr std::uint64_t kMostBytes = 8 << 20;

/// Documents in memory are several times as large as their texts.
constexpr std::uint64_t kLarge = 4 << 20;

}  // namespace

/// The files of the next capture; false when there is none.
bool RecordStream::findFiles() {
  if (nextCapture_ == captures_.size()) return false;
  const auto capture = std::make_shared<const Capture>(captures_[nextCapture_++]);
  try {
    for (File& file : filesOf(*capture, *kind_)) {
      if (takes_(file)) found_.push_back({capture, std::move(file), {}});
    }
  } catch (const Error& error) {
    troubles_.emplace_back(error.what());
  }
  return true;
}

void RecordStream::readSome() {
  while (found_.size() < kMostFiles && findFiles()) {
  }
  std::size_t files = 0;
  std::uint64_t bytes = 0;
  inOrder(
      [&]() -> std::optional<Item> {
        if (found_.empty() || files == kMostFiles || bytes >= kMostBytes) return std::nullopt;
        Item item = std::move(found_.front());
        found_.pop_front();
        ++files;
        bytes += item.file.bytes;
        return item;
      },
      [](const Item& item) { return item.file.bytes >= kLarge; },
      [](Item& item) {
        item.quick = readQuickly(*item.capture, item.file);
        return std::move(item);
      },
      [&](Item& item) { ready_.push_back(std::move(item)); });
}

std::vector<std::string> RecordStream::takeTroubles() {
  const std::lock_guard<std::mutex> lock(asked_);
  return std::exchange(troubles_, {});
}

std::optional<RecordStream::Item> RecordStream::next() {
  const std::lock_guard<std::mutex> lock(asked_);
  if (ready_.empty()) readSome();
  if (ready_.empty()) return std::nullopt;
  Item item = std::move(ready_.front());
  ready_.pop_front();
  return item;
}

}  // namespace simrec
