// The log threshold is read once in a process, so each case is a process of its
// own; this program logs nothing before it starts them.
#include <gtest/gtest.h>

#include <cstdlib>

#include "core/log.h"
#include "tests/support/platform.h"

namespace {

constexpr char kProperty[] = "persist.vendor.camera.simulation.loglevel";

/// Ends the process with one bit set for each level from 2 to 7 that was printed.
[[noreturn]] void exitWithPrintedLevels(const char* property) {
  if (property != nullptr) setenv(kProperty, property, 1);
  for (int level = 2; level < 8; ++level) {
    simulation::SimulationLog(level, "text");
    setenv(kProperty, "2", 1);  // too late: the value is kept
  }
  int printed = 0;
  for (const LogLine& line : takeLog()) printed |= 1 << (line.level - 2);
  std::exit(printed);
}

TEST(LogThreshold, IsReadOnceAndGatesEachLevel) {
  const struct {
    const char* property;
    int printed;
  } cases[] = {{nullptr, 0b111111}, {"2", 0b111111}, {"3", 0b111110},  {"6", 0b110000},
               {"7", 0b100000},     {"100", 0},      {"-1", 0b111111}, {"junk", 0b111111}};
  for (const auto& row : cases) {
    EXPECT_EXIT(exitWithPrintedLevels(row.property), testing::ExitedWithCode(row.printed), "")
        << (row.property != nullptr ? row.property : "unset");
  }
}

}  // namespace
