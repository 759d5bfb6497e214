// What differs between two captures, record by record and member by member. Nothing is printed
// here. One pair of files is in memory at a time.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "simrec/store.h"
#include "simrec/value.h"

namespace simrec {

/// Numbers are the same, too, that are as near as this; either is enough. Flags and labels are
/// no quantities: for them nothing is near.
struct Tolerance {
  double relative = 0;  ///< to the larger magnitude of both
  double absolute = 0;
};

/// One number of a record.
struct MemberDifference {
  std::string name;                ///< as in "ExposureIndexLong.Gain"
  std::optional<Number> a, b;      ///< one may be missing
  std::optional<Number> absolute;  ///< of both; exact for integers
  double relative = 0;             ///< to the larger magnitude
  bool isFlag = false;             ///< its values have meanings: no quantity
};

/// A list, or what is missing of it on one side.
struct ListDifference {
  std::string name;
  std::optional<std::size_t> a, b;  ///< numbers on each side; one may be missing
  std::size_t differing = 0;        ///< beyond the tolerance, or on one side only
  std::size_t first = 0, last = 0;  ///< of those
  /// The largest difference and where it is, of all numbers that both sides have and that are
  /// not nan; nan makes the RMS nan.
  std::optional<Number> maxAbsolute;
  std::size_t maxAt = 0;
  double rms = 0;

  std::size_t count() const { return std::max(a.value_or(0), b.value_or(0)); }
};

/// Labels of a label map that became another one.
struct LabelChange {
  std::uint8_t from, to;
  std::uint64_t count;
};

/// Bytes that differ, half-open; bytes of a longer file are among them.
struct Range {
  std::uint64_t begin, end;
};

struct ByteDifference {
  std::vector<Range> ranges;     ///< the first of them
  std::uint64_t rangeCount = 0;  ///< all of them
  std::uint64_t bytes = 0;       ///< in all of them
};

enum class Outcome { kSame, kDifferent, kOnlyInA, kOnlyInB };

/// "same", "different", "only in a", "only in b".
const char* nameOf(Outcome outcome);

struct RecordDifference {
  Outcome outcome = Outcome::kSame;
  /// What is odd about each file; told where it is not the same on both sides, or keeps a file
  /// from being read.
  std::vector<std::string> problemsOfA, problemsOfB;
  std::vector<MemberDifference> members;
  std::vector<ListDifference> lists;
  std::vector<LabelChange> labels;  ///< the most frequent ones first
  ByteDifference bytes;             ///< of binary records
};

/// The records that stand for the same thing; one side may be missing.
struct RecordPair {
  std::optional<File> a, b;

  const File& any() const { return a ? *a : *b; }
};

/// By kind and variable parts, in the order of their names. Where the name has an index (lens
/// shading), which counts the calls, by the order of these.
std::vector<RecordPair> pairRecords(const std::vector<File>& a, const std::vector<File>& b);

/// Told now and then how many more bytes of both files were compared.
using BytesCompared = std::function<void(std::uint64_t bytes)>;

/// Compares two files, of the folders `a` and `b`. Never throws for what is wrong with them: a
/// file that can't be read differs from any other but itself.
RecordDifference compareRecords(const std::string& a, const std::string& b, const RecordPair& pair,
                                const Tolerance& tolerance = {},
                                const BytesCompared& compared = {});

}  // namespace simrec
