// The records of one kind of many captures, one after the other, read over all cores some of them
// in advance. Belongs to one thread at a time.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "simrec/capture_list.h"
#include "simrec/table/quick_record.h"

namespace simrec {

class RecordStream {
 public:
  struct Item {
    std::shared_ptr<const Capture> capture;
    File file;
    QuickRecord quick;
  };
  using Takes = std::function<bool(const File& file)>;

  /// Throws Error where the data folder can't be read.
  RecordStream(const Store& store, const catalogue::Kind& kind, Takes takes)
      : captures_(store.data()), kind_(&kind), takes_(std::move(takes)) {}

  /// In the order of the captures and of the files' names. Of several threads that ask, each gets
  /// others.
  std::optional<Item> next();

  /// Folders that could not be read since this was asked last, and why.
  std::vector<std::string> takeTroubles();

 private:
  bool findFiles();
  void readSome();

  std::mutex asked_;  // guards the rest
  CaptureList captures_;
  const catalogue::Kind* kind_;
  Takes takes_;
  std::vector<std::string> troubles_;
  std::size_t nextCapture_ = 0;
  std::deque<Item> found_;  ///< not read yet
  std::deque<Item> ready_;
};

}  // namespace simrec
