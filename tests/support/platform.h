// Takes the place of the platform in the tests: log messages are kept instead of
// printed; memory that is not released is counted, and fails on demand.
#pragma once

#include <ostream>
#include <string>
#include <vector>

struct LogLine {
  int level;
  std::string text;

  bool operator==(const LogLine& other) const { return level == other.level && text == other.text; }
};
using LogLines = std::vector<LogLine>;

inline std::ostream& operator<<(std::ostream& out, const LogLine& line) {
  return out << line.level << ' ' << line.text;
}

/// What was logged since the last call, oldest first.
LogLines takeLog();

/// Blocks of CamxCalloc that were not released; forgets and releases them.
std::size_t takeUnreleasedBlocks();

/// While it lives, one of the two services has no memory.
struct NoMemory {
  enum Service { kBlocks, kObjects };
  explicit NoMemory(Service service);
  ~NoMemory();
};
