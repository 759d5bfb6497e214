// Which records of two captures stand for the same thing.
#include <algorithm>
#include <tuple>

#include "simrec/comparison.h"

namespace simrec {
namespace {

/// A record's name but for its index.
auto withoutIndex(const File& file) {
  return std::tie(file.parts->kind, file.parts->camera, file.parts->ev, file.parts->text);
}

using Files = std::vector<const File*>;

/// Of what only their index tells apart, the one with the least is first.
Files inOrder(const std::vector<File>& files) {
  Files records;
  for (const File& file : files) {
    if (file.parts) records.push_back(&file);
  }
  std::stable_sort(records.begin(), records.end(), [](const File* a, const File* b) {
    const auto nameOfA = withoutIndex(*a), nameOfB = withoutIndex(*b);
    return nameOfA < nameOfB || (nameOfA == nameOfB && a->parts->index < b->parts->index);
  });
  return records;
}

}  // namespace

std::vector<RecordPair> pairRecords(const std::vector<File>& a, const std::vector<File>& b) {
  const Files inA = inOrder(a), inB = inOrder(b);
  std::vector<RecordPair> pairs;
  pairs.reserve(std::max(inA.size(), inB.size()));
  for (auto ofA = inA.begin(), ofB = inB.begin(); ofA != inA.end() || ofB != inB.end();) {
    const bool onlyA =
        ofB == inB.end() || (ofA != inA.end() && withoutIndex(**ofA) < withoutIndex(**ofB));
    const bool onlyB =
        ofA == inA.end() || (ofB != inB.end() && withoutIndex(**ofB) < withoutIndex(**ofA));
    RecordPair& pair = pairs.emplace_back();
    if (!onlyB) pair.a = **ofA++;
    if (!onlyA) pair.b = **ofB++;
  }
  std::sort(pairs.begin(), pairs.end(), [](const RecordPair& left, const RecordPair& right) {
    return left.any().name < right.any().name;
  });
  return pairs;
}

}  // namespace simrec
