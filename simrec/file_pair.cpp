#include "simrec/file_pair.h"

#include <algorithm>
#include <utility>

namespace simrec {
namespace {

constexpr std::size_t kPiece = 1 << 17;

}  // namespace

FilePair::FilePair(const std::string& a, const std::string& b,
                   std::function<void(std::uint64_t)> taken)
    : tell_(std::move(taken)),
      fileA_(a),
      fileB_(b),
      good_(fileA_.problem.empty() && fileB_.problem.empty()) {
  const auto room =
      static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, std::max(sizeOfA(), sizeOfB())));
  a_.resize(room);
  b_.resize(room);
}

bool FilePair::next() {
  if (!good_ || a_.empty()) return false;
  bool failedA = false, failedB = false;
  const std::size_t ofA = readUpTo(fileA_.descriptor, a_.data(), a_.size(), &failedA);
  const std::size_t ofB = readUpTo(fileB_.descriptor, b_.data(), b_.size(), &failedB);
  good_ = !failedA && !failedB;
  size_ = std::min(ofA, ofB);
  taken_ += size_;
  if (tell_) tell_(size_);
  return good_ && size_ > 0;
}

bool FilePair::isSame() {
  if (!good_ || sizeOfA() != sizeOfB()) return false;
  while (next()) {
    if (a() != b()) return false;
  }
  return good_ && taken_ == sizeOfA();
}

}  // namespace simrec
