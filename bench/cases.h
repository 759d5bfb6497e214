// The rows of the table: what is measured, and what it must and should reach.
#pragma once

#include "bench/family.h"

namespace bench {

/// A number that must be reached and a better one to aim at; 0: none is set.
struct Goal {
  double must = 0;
  double aim = 0;
};

struct Goals {
  Goal speedup;  ///< the plain version's time / the library's; at least
  Goal floors;   ///< the library's time / the floor's; at most

  bool missedBySpeedup(double measured) const {
    return speedup.must != 0 && measured < speedup.must;
  }
  bool missedByFloors(double measured) const { return floors.must != 0 && measured > floors.must; }
};

struct Case {
  const char* title;
  Families (*make)(std::size_t inputs);
  std::size_t inputs;
  int rounds;
  Goals dump;
  Goals readback;
  bool plainIsFloor = false;  ///< nothing is converted: both are the same calls
};

// An idle machine shows 20 and more; with two programs for each core 15 is left.
inline constexpr Goals kQsegDump = {{15, 30}, {2.4, 1.7}};
inline constexpr Goals kBinaryDump = {{}, {1.4, 1.2}};
inline constexpr Goals kBinaryReadback = {{}, {1.3, 1.1}};

inline constexpr Case kCases[] = {
    {"QSeg, label map", qsegLabelMaps, 16, 12, kQsegDump, {{9, 11.5}, {0, 2}}},
    {"QSeg, random bytes", qsegRandomBytes, 16, 12, kQsegDump, {{9, 11}, {0, 2.7}}},
    {"statistics, plain", plainStatistics, 16, 16, {{5, 8}, {}}, {{7.5, 9.5}, {0, 4.2}}},
    {"statistics, paired", pairedStatistics, 16, 16, {{5, 8}, {}}, {{7.5, 9.5}, {0, 4.2}}},
    {"LSC", lensShading, 32, 30, {{5, 8}, {}}, {{5, 6}, {0, 3.7}}},
    {"small XML, all ten", smallXmlRecords, 32, 60, {{1.5, 2.2}, {}}, {{1.3, 1.5}, {0, 2.2}}},
    {"binary, staged (8)", stagedBinaries, 32, 80, kBinaryDump, kBinaryReadback},
    {"binary, direct (2)", directBinaries, 32, 150, kBinaryDump, kBinaryReadback},
    {"FD result, six blocks", faceDetection, 32, 150, {}, {}},
    {"ACB, 1080p planes", acbPlanes, 4, 60, {{}, {1.1, 0}}, {{}, {1.1, 0}}, true},
    {"whole request", wholeRequest, 16, 12, {{8, 12}, {3, 2.2}}, {{8, 10}, {0, 3}}},
};

}  // namespace bench
