// The clock of the measurements: the processor time of the calling thread.
#pragma once

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <vector>

namespace bench {

/// Files in memory never block, so this is the time that a call takes on a machine
/// with nothing else to do. A busy one would stretch the longer side more often.
inline double secondsOfThread() {
  timespec now;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

inline double medianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace bench
