// Takes the place of the Android log in the tests: messages are kept instead of
// printed.
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
