#include "simrec/verification.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "simrec/expected_values.h"
#include "simrec/file_pair.h"
#include "simrec/record.h"
#include "simrec/text.h"

namespace simrec {
namespace {

using catalogue::Format;
using catalogue::Kind;
using catalogue::Member;
using catalogue::Replay;

constexpr std::size_t kMostOfAList = 10;

/// Compares expected values with those that were found, and tells in one record.
class Comparison {
 public:
  explicit Comparison(VerifiedRecord& result) : result_(result) {}

  void compare(const Values& expected, const Values& found, const std::string& path) {
    for (const Value& value : expected) {
      if (value.member->replay == Replay::kLive || value.member->replay == Replay::kOnlyReplaced) {
        continue;
      }
      const std::string name = path + value.member->name;
      if (const Value* const other = find(found, value.member->name)) {
        compareValue(value, *other, name);
      } else {
        tell(name, value.number() != nullptr ? toJson(*value.number()) : Json("a value"), nullptr);
      }
      if (value.number() != nullptr && throwsAt(*value.member, *value.number())) {
        result_.why = name + " is no whole number: a readback throws, and the rest stays live";
        return;
      }
    }
  }

 private:
  void tell(const std::string& name, Json expected, Json found) {
    result_.fed = Fed::kNo;
    result_.members.push_back({name, std::move(expected), std::move(found)});
  }

  void compareValue(const Value& expected, const Value& found, const std::string& name) {
    if (const Number* const number = expected.number()) {
      const Number fed = expectedNumber(*expected.member, *number, *found.number());
      if (!same(fed, *found.number())) tell(name, toJson(fed), toJson(*found.number()));
    } else if (const NumberList* const list = expected.list()) {
      compareLists(expected.member->digits, *list, *found.list(), name);
    } else if (const Values* const members = expected.members()) {
      compare(*members, *found.members(), name + ".");
    } else {
      const auto &items = *expected.items(), &others = *found.items();
      for (std::size_t i = 0; i < std::min(items.size(), others.size()); ++i) {
        compare(items[i], others[i], name + "[" + std::to_string(i) + "].");
      }
    }
  }

  /// What the file lacks of a list stays live, and what it has beyond the record is ignored.
  void compareLists(catalogue::Digits digits, const NumberList& expected, const NumberList& found,
                    const std::string& name) {
    std::size_t differing = 0;
    for (std::size_t i = 0; i < std::min(expected.size(), found.size()); ++i) {
      const Number fed = *expectedItem(expected, i, digits), item = *itemOf(found, i);
      if (endsStream(digits, fed)) break;
      if (same(fed, item) || ++differing > kMostOfAList) continue;
      tell(name + "[" + std::to_string(i) + "]", toJson(fed), toJson(item));
    }
    if (differing > kMostOfAList) result_.more.emplace_back(name, differing - kMostOfAList);
  }

  /// Lists that are read as a stream end at the first number that a stream does not take.
  static bool endsStream(catalogue::Digits digits, const Number& number) {
    return digits == catalogue::Digits::kSix && number.isFloat() && !std::isfinite(number.single);
  }

  VerifiedRecord& result_;
};

/// The values that a readback takes when elements are missing from the file.
Values replayedValues(const Kind& kind, const Values& values) {
  if (kind.missing != catalogue::Missing::kEnds) return values;
  Values taken;
  for (const Member& member : kind.members) {
    const Value* const value = find(values, member.name);
    if (value == nullptr) break;
    taken.push_back(*value);
  }
  return taken;
}

/// The list without which nothing is replayed, where it is missing.
const Member* forbidding(const Kind& kind, const Values& values) {
  if (kind.missing != catalogue::Missing::kForbids) return nullptr;
  for (const Member& member : kind.members) {
    const bool needed = member.replay == Replay::kReplaced;
    if (needed && find(values, member.name) == nullptr) return &member;
  }
  return nullptr;
}

void refuse(VerifiedRecord& result, std::string why) {
  result.fed = Fed::kNo;
  result.why = std::move(why);
}

void compareXml(const Kind& kind, const Record& replayed, const Record& dump,
                VerifiedRecord& result) {
  if (replayed.values.empty() && !replayed.problems.empty()) {
    return refuse(result, "nothing of it can be read: " + replayed.problems.front());
  }
  if (const Member* const missing = forbidding(kind, replayed.values)) {
    return refuse(result, std::string(missing->name) + " is missing: nothing of it is replayed");
  }
  const Values expected = isBayerGrid(kind) ? expectedRegions(replayed.values, dump.values)
                                            : replayedValues(kind, replayed.values);
  Comparison(result).compare(expected, dump.values, "");
}

/// Adds a byte that differs to the ranges.
void addByte(std::uint64_t at, VerifiedRecord& result) {
  constexpr std::size_t kMostRanges = 1000;
  result.fed = Fed::kNo;
  if (result.rangeCount == result.ranges.size() && !result.ranges.empty() &&
      result.ranges.back().second == at) {
    ++result.ranges.back().second;
    return;
  }
  ++result.rangeCount;  // of those beyond the thousand each byte counts as one
  if (result.ranges.size() < kMostRanges) result.ranges.emplace_back(at, at + 1);
}

/// From byte `begin` to the end of the shorter one.
void compareBytes(const std::string& replayed, const std::string& dump, std::size_t begin,
                  VerifiedRecord& result) {
  FilePair files(replayed, dump);
  std::uint64_t at = 0;
  while (files.next()) {
    const std::string_view a = files.a(), b = files.b();
    for (std::size_t i = 0; i < a.size(); ++i, ++at) {
      if (at >= begin && a[i] != b[i]) addByte(at, result);
    }
  }
  if (!files.good()) refuse(result, "can't be read");
}

/// What can't be told, or need not be fed, where only the caller knew the record's size.
std::string sizeNote(std::uint64_t replayed, std::uint64_t dump) {
  if (dump < replayed) {
    return fmt::format("the dump has {} of {} bytes, and the rest can't be told", dump, replayed);
  }
  if (replayed < dump) {
    return fmt::format("the file has {} of {} bytes, and the rest stays live", replayed, dump);
  }
  return "";
}

bool isTuningMode(const Kind& kind) { return find(kind, "sensorMode") != nullptr; }

/// The member for which the readback did not take the record: tuning modes fit one mode only.
const Member* otherMode(const Record& replayed, const Record& dump) {
  for (const Value& value : dump.values) {
    const Value* const saved = find(replayed.values, value.member->name);
    const std::uint64_t mode = saved != nullptr ? saved->number()->integer : 0;
    if (mode != value.number()->integer) return value.member;
  }
  return nullptr;
}

void compareTuningModes(const Record& replayed, const Record& dump, VerifiedRecord& result) {
  if (const Member* const mode = otherMode(replayed, dump)) {
    result.fed = Fed::kNotReplayed;
    result.why = "the live " + std::string(mode->name) + " was another one";
    return;
  }
  std::string expected = replayed.bytes;
  expected.resize(dump.bytes.size());  // zeros fill it up
  for (std::size_t at = 0; at < expected.size(); ++at) {
    if (expected[at] != dump.bytes[at]) addByte(at, result);
  }
}

void compareBinary(const Kind& kind, const Record& replayed, const Record& dump,
                   const std::string& replayedPath, const std::string& dumpPath,
                   VerifiedRecord& result) {
  if (replayed.bytes.empty() && !replayed.problems.empty()) {
    return refuse(result, "nothing of it can be read: " + replayed.problems.front());
  }
  if (isTuningMode(kind)) return compareTuningModes(replayed, dump, result);
  if (kind.staged && replayed.file.bytes < dump.file.bytes) {
    return refuse(result, "it is shorter than the live record, which stays as it is");
  }
  compareBytes(replayedPath, dumpPath, kind.liveHead, result);
  if (kind.bytes == 0 && result.why.empty()) {
    result.why = sizeNote(replayed.file.bytes, dump.file.bytes);
  }
}

/// What tells a record from the others of its capture; lens shading goes by order.
auto keyOf(const catalogue::FileName& parts) {
  return std::make_tuple(parts.kind, parts.camera, parts.ev, parts.text);
}

using Groups = std::map<decltype(keyOf({})), std::vector<const File*>>;

Groups grouped(const std::vector<File>& files) {
  Groups groups;
  for (const File& file : files) {
    if (file.parts) groups[keyOf(*file.parts)].push_back(&file);
  }
  for (auto& [key, group] : groups) {
    std::sort(group.begin(), group.end(), [](const File* a, const File* b) {
      return a->parts->index.value_or(0) < b->parts->index.value_or(0);
    });
  }
  return groups;
}

}  // namespace

const char* nameOf(Fed fed) {
  switch (fed) {
    case Fed::kYes:
      return "fed";
    case Fed::kNo:
      return "not fed";
    case Fed::kMissing:
      return "missing";
    case Fed::kNotReplayed:
      break;
  }
  return "not replayed";
}

std::vector<const File*> answering(const std::vector<File>& replayed,
                                   const std::vector<File>& dump) {
  const Groups ours = grouped(replayed), theirs = grouped(dump);
  std::map<const File*, const File*> partners;
  for (const auto& [key, group] : ours) {
    const auto other = theirs.find(key);
    for (std::size_t i = 0; i < group.size(); ++i) {
      const bool there = other != theirs.end() && i < other->second.size();
      partners[group[i]] = there ? other->second[i] : nullptr;
    }
  }
  std::vector<const File*> answers;
  answers.reserve(replayed.size());
  for (const File& file : replayed) answers.push_back(partners[&file]);
  return answers;
}

VerifiedRecord verify(const Capture& replayed, const File& file, const Capture& dump,
                      const File* partner) {
  VerifiedRecord result;
  result.file = file;
  if (partner == nullptr) {
    const bool left = leavesOut(*file.parts->kind, dump);
    result.fed = left ? Fed::kNotReplayed : Fed::kMissing;
    if (left) result.why = "requests 0 to 9 are left out";
    return result;
  }
  const Kind& kind = *file.parts->kind;
  Reading reading;
  reading.binary = false;
  reading.leading = true;
  const Record expected = readRecord(replayed.path, file, reading);
  const Record found = readRecord(dump.path, *partner, reading);
  if (!found.problems.empty()) {
    refuse(result, "the dump is damaged: " + found.problems.front());
  } else if (kind.format == Format::kXml) {
    compareXml(kind, expected, found, result);
  } else {
    compareBinary(kind, expected, found, replayed.path + "/" + file.name,
                  dump.path + "/" + partner->name, result);
  }
  return result;
}

}  // namespace simrec
