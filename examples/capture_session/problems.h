// What should not have happened in a session: all of it counted, the beginning
// kept. For one thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace capture {

struct Problems {
  std::uint64_t count = 0;
  std::vector<std::string> first;

  void add(const std::string& problem) {
    constexpr std::size_t kKept = 10;
    if (++count <= kKept) first.push_back(problem);
  }
};

}  // namespace capture
