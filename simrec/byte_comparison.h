// Finds the differing ranges of two files, a piece of both at a time.
#pragma once

#include <string_view>

#include "simrec/comparison.h"

namespace simrec {

class ByteComparison {
 public:
  /// The next piece of both, of the same size.
  void add(std::string_view a, std::string_view b);

  /// What differs; the bytes that one side has beyond those of the other do.
  ByteDifference end(std::uint64_t sizeOfA, std::uint64_t sizeOfB);

 private:
  void open(std::uint64_t begin);
  void close(std::uint64_t end);

  ByteDifference difference_;
  std::uint64_t next_ = 0;
  bool open_ = false;
  std::uint64_t begin_ = 0;
};

}  // namespace simrec
