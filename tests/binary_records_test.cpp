// What the byte-for-byte records share: names, bytes, and what a readback may change.
#include <optional>

#include "tests/support/all_records.h"

namespace {

enum Kind { kStaged, kDirect, kTuning };

/// One record and the ways in which it differs from the others.
struct Record {
  const char* name;
  Kind kind = kStaged;
  std::size_t liveHead = 0;
  bool firstDumpWins = false;
};

const Record kRecords[] = {
    {"AWBFaceROI", kStaged, 8},    {"AWBISPStatsConfig"},
    {"AWBTuningMode", kTuning},    {"AWBExtensionInfo"},
    {"AWBFrameControlData"},       {"AWBinputColorData", kDirect},
    {"CVPTransformData", kDirect}, {"ZOAWBFaceDectionInfo"},
    {"ZOAWBFaceColorDectionInfo"}, {"FDROIData", kStaged, 8, true},
};

void PrintTo(const Record& record, std::ostream* out) { *out << record.name; }

struct BinaryRecords : CameraDataTest, testing::WithParamInterface<Record> {
  LogLines run(std::uint32_t mode, char* data) {
    operation.run(mode, data);
    return takeLog();
  }
  LogLine counted(std::size_t count) const {
    return {6, "read fileName:" + replayed + " size(" + std::to_string(count) +
                   ") is not equal to we need(" + std::to_string(operation.size) + ")" +
                   (row.kind == kDirect ? "" : " or pData is NULL")};
  }

  const Record& row = GetParam();
  const RecordOperation& operation = recordNamed(row.name);
  const std::string dumped = operation.dumped(), replayed = operation.replayed();
  const std::string live = operation.memory(1), saved = operation.memory(2);
  const LogLine notWritten = {6, "write size(-1) is not equal to we need(" +
                                     std::to_string(operation.size) + ") ,may be somthing wrong"};
};
INSTANTIATE_TEST_SUITE_P(All, BinaryRecords, testing::ValuesIn(kRecords),
                         [](const auto& row) { return row.param.name; });

TEST_P(BinaryRecords, DumpWritesTheBytesAndKeepsTheTailOrTheFirstDump) {
  std::string record = live;
  EXPECT_EQ(run(0, record.data()), LogLines{});
  EXPECT_EQ(readFile(dumped), record);
  const std::string older(record.size(), '#');
  writeFile(dumped, older + "older tail");
  EXPECT_EQ(run(0, record.data()), LogLines{});
  EXPECT_EQ(readFile(dumped), (row.firstDumpWins ? older : record) + "older tail");
  EXPECT_EQ(record, live);
}

TEST_P(BinaryRecords, ReadbackTakesAWholeFileAndWhatItsKindTakesOfAShortOne) {
  const std::string whole = live.substr(0, row.liveHead) + saved.substr(row.liveHead);
  const std::string part = saved.substr(0, saved.size() - 1);
  const bool tuning = row.kind == kTuning;
  LogLines missing = {{6, "open file:" + replayed + " failed No such file or directory"}};
  if (tuning) missing.push_back({6, "different sensor mode for tuning mode readback:0 now:7"});
  const struct {
    std::optional<std::string> file;
    std::string record;
    LogLines log;
  } cases[] = {
      {std::nullopt, live, missing},
      {saved + "excess", whole, tuning ? LogLines{counted(saved.size())} : LogLines{}},
      {part, row.kind == kStaged ? live : part + (tuning ? '\0' : live.back()),
       LogLines{counted(part.size())}},
  };
  for (const auto& [file, expected, log] : cases) {
    if (file) writeFile(replayed, *file);
    std::string record = live;
    EXPECT_EQ(run(1, record.data()), log);
    EXPECT_EQ(record, expected);
  }
  for (const std::uint32_t mode : {2U, 0xFFFFFFFFU}) EXPECT_EQ(run(mode, nullptr), LogLines{});
  EXPECT_EQ(tree().size(), 1U) << "a readback makes no folder";
}

TEST_P(BinaryRecords, NullRecordIsLoggedByStagedReadsAndByDumps) {
  if (row.kind == kTuning) return;  // compares the record: it must be there
  writeFile(replayed, saved);
  const LogLines read = run(1, nullptr);
  if (row.kind == kStaged) {
    EXPECT_EQ(read, LogLines{counted(saved.size())});
  }
  EXPECT_EQ(run(0, nullptr), LogLines{notWritten});
}

}  // namespace
