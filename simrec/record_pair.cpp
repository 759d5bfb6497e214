// Which records of two captures stand for the same thing.
#include <algorithm>
#include <map>
#include <tuple>

#include "simrec/comparison.h"

namespace simrec {
namespace {

using catalogue::FileName;

/// A record's name but for its index.
auto withoutIndex(const FileName& parts) {
  return std::make_tuple(parts.kind, parts.camera, parts.ev, parts.text);
}

/// The same, and the record's place among those that only their index tells apart.
using Key = std::pair<decltype(withoutIndex({})), std::size_t>;
using Keyed = std::map<Key, const File*>;

Keyed keyed(const std::vector<File>& files) {
  std::map<decltype(withoutIndex({})), std::vector<const File*>> groups;
  for (const File& file : files) {
    if (file.parts) groups[withoutIndex(*file.parts)].push_back(&file);
  }
  Keyed result;
  for (auto& [name, group] : groups) {
    std::sort(group.begin(), group.end(), [](const File* a, const File* b) {
      return a->parts->index.value_or(0) < b->parts->index.value_or(0);
    });
    for (std::size_t i = 0; i < group.size(); ++i) result[{name, i}] = group[i];
  }
  return result;
}

}  // namespace

std::vector<RecordPair> pairRecords(const std::vector<File>& a, const std::vector<File>& b) {
  std::map<Key, RecordPair> pairs;
  for (const auto& [key, file] : keyed(a)) pairs[key].a = *file;
  for (const auto& [key, file] : keyed(b)) pairs[key].b = *file;
  std::vector<RecordPair> result;
  result.reserve(pairs.size());
  for (auto& [key, pair] : pairs) result.push_back(std::move(pair));
  std::sort(result.begin(), result.end(), [](const RecordPair& left, const RecordPair& right) {
    return left.any().name < right.any().name;
  });
  return result;
}

}  // namespace simrec
