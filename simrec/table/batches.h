// The records of many captures, in batches for several threads, in bounded memory.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "simrec/store.h"
#include "simrec/table/in_order.h"

namespace simrec {

/// Some records of one capture, in the order of their names.
struct Batch {
  std::shared_ptr<const Capture> capture;
  std::vector<File> files;
  bool large = false;  ///< reading it takes so much memory that it had better be alone
  bool last = false;   ///< of this capture
};

class Batches {
 public:
  /// Only records that it takes are in batches; none: all.
  using Takes = std::function<bool(const Capture& capture, const File& file)>;
  /// Is told of each capture whose folder can't be read, which has no batch then, and why.
  using Trouble = std::function<void(const Capture& capture, const std::string& why)>;

  /// The captures one by one; none: there are no more.
  using Source = std::function<std::optional<Capture>()>;

  Batches(Source captures, Takes takes, Trouble trouble);
  Batches(std::vector<Capture> captures, Takes takes, Trouble trouble);

  /// In the order of the captures; of a capture without such records an empty one.
  std::optional<Batch> next();

 private:
  bool open();

  Source captures_;
  Takes takes_;
  Trouble trouble_;
  std::shared_ptr<const Capture> capture_;
  std::vector<File> files_;  ///< of capture_
  std::size_t nextFile_ = 0;
};

/// All batches, over all cores: `work(batch)`, which may be called by several threads at once, and
/// `take(result)` with what it returned, one after the other in order.
template <typename Work, typename Take>
void forEachBatch(Batches& batches, Work work, Take take) {
  inOrder([&] { return batches.next(); }, [](const Batch& batch) { return batch.large; },
          std::move(work), std::move(take));
}

}  // namespace simrec
