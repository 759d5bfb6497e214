// Two files side by side, a piece of both at a time. Belongs to the call that opened it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "simrec/regular_file.h"

namespace simrec {

class FilePair {
 public:
  /// `taken`, where given, is told the size of each piece.
  FilePair(const std::string& a, const std::string& b,
           std::function<void(std::uint64_t bytes)> taken = {});

  /// Whether both are open, and nothing failed up to now.
  bool good() const { return good_; }

  /// Takes the next piece of both, of the same size. False at the end of the shorter one.
  bool next();

  /// @name What `next` took
  /// @{
  std::string_view a() const { return {a_.data(), size_}; }
  std::string_view b() const { return {b_.data(), size_}; }
  /// @}

  /// @name Bytes of each file, as many as there were when it was opened
  /// @{
  std::uint64_t sizeOfA() const { return fileA_.bytes; }
  std::uint64_t sizeOfB() const { return fileB_.bytes; }
  /// @}

  /// Whether all of both is the same; takes pieces up to the first difference.
  bool isSame();

 private:
  std::function<void(std::uint64_t)> tell_;
  RegularFile fileA_, fileB_;
  std::vector<char> a_, b_;
  std::uint64_t taken_ = 0;
  std::size_t size_ = 0;  ///< of the piece
  bool good_;
};

}  // namespace simrec
