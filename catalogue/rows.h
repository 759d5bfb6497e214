// The rows of a table that stands in static memory.
#pragma once

#include <cstddef>

namespace catalogue {

template <typename Row>
class Rows {
 public:
  constexpr Rows() = default;
  template <std::size_t Count>
  constexpr Rows(const Row (&rows)[Count]) : begin_(rows), count_(Count) {}

  constexpr const Row* begin() const { return begin_; }
  constexpr const Row* end() const { return begin_ + count_; }
  constexpr std::size_t size() const { return count_; }
  constexpr bool empty() const { return count_ == 0; }
  constexpr const Row& operator[](std::size_t row) const { return begin_[row]; }

 private:
  const Row* begin_ = nullptr;
  std::size_t count_ = 0;
};

}  // namespace catalogue
