// Face-detection results: where each block lies, and that the first dump stays.
#include <array>

#include "tests/support/all_records.h"

namespace {

using Sizes = std::array<unsigned long, 6>;
using Blocks = std::array<std::string, 6>;

struct Face : CameraDataTest {
  Blocks run(std::uint32_t mode, Blocks blocks, const Sizes& sizes) {
    SimulationInfo info = infoFor(mode);
    const auto at = [&](std::size_t i) { return blocks[i].empty() ? nullptr : blocks[i].data(); };
    sim().SimulationForFDResult(&info, at(0), sizes[0], at(1), sizes[1], at(2), sizes[2], at(3),
                                sizes[3], at(4), sizes[4], at(5), sizes[5], kRequest, kCamId);
    return blocks;
  }
  const RecordOperation& record = recordNamed("FDResult");
};

TEST_F(Face, TheFirstDumpStaysAndLacksOnlyTheBlockThatFailed) {
  run(0, {"aaaa", "", "", "dd", "e", "f"}, {4, 0, 3, 2, 1, 1});
  EXPECT_EQ(takeLog(),
            (LogLines{{6, "write size(-1) is not equal to we need(3) ,may be somthing wrong"}}));
  run(0, {"z"}, {1, 0, 0, 0, 0, 0});
  EXPECT_EQ(readFile(record.dumped()), "aaaaddef");
  const ReadOnlyCameraData readOnly;
  record.run(0, record.memory(1).data(), kRequest + 1);
  EXPECT_EQ(takeLog().size(), 1U + 12U) << "the folder, two lines for each block";
}

TEST_F(Face, ResultOffsetsAreTheSizesBefore) {
  const struct {
    Sizes sizes;
    Blocks blocks;
    std::size_t logged;
    std::uint32_t mode = 1;
  } cases[] = {
      {{4, 0, 4, 2, 0, 2}, {"aaaa", "....", "cccc", "dd..", "....", "ff.."}, 0},
      {{4, 0, 3, 8, 2, 1}, {"aaaa", "....", "ccc.", "cddffggg", "g...", "...."}, 2},
      {{(1UL << 32) + 10, 2, 0, 0, 0, 0}, {"", "ff..", "", "", "", ""}, 1},
      {{(1UL << 31) + 10, 2, 0, 0, 0, 0}, {"", "aa..", "", "", "", ""}, 1},
      {{4, 0, 4, 2, 0, 2}, {"....", "....", "....", "...."}, 0, 2},
  };
  writeFile(record.replayed(), "aaaaccccddffgggg");
  for (const auto& row : cases) {
    Blocks live = row.blocks;
    for (std::string& block : live) block.assign(block.size(), '.');
    EXPECT_EQ(run(row.mode, live, row.sizes), row.blocks);
    EXPECT_EQ(takeLog().size(), row.logged);
  }
}

TEST_F(Face, ResultOffsetsThatWrapAbortWhereTheyAreNeeded) {
  constexpr unsigned long kAll = ~0UL;
  run(1, {}, {1, 0, 0, 0, kAll - 1, kAll});
  EXPECT_EQ(takeLog(), LogLines(6, {6, "open file:" + record.replayed() +
                                           " failed No such file or directory"}));
  EXPECT_EXIT(run(1, {}, {1, 0, 0, 0, kAll, 0}), testing::KilledBySignal(SIGABRT), "");
}

}  // namespace
