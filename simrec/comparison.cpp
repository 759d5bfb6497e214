#include "simrec/comparison.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstring>

#include "simrec/byte_comparison.h"
#include "simrec/file_pair.h"
#include "simrec/list_comparison.h"
#include "simrec/record.h"
#include "simrec/value_comparison.h"

namespace simrec {
namespace {

using catalogue::Format;
using catalogue::Kind;
using catalogue::Member;

/// What two files are, and what is wrong with them.
struct Records {
  Record a, b;
};

bool hasValues(const Record& record) {
  const bool read = record.document != nullptr && !record.document->Error();
  return read && !record.values.empty();
}

/// Whether all that is to know of a record with values is in these and its problems.
bool isWhole(const Record& record) {
  return std::all_of(record.values.begin(), record.values.end(), [](const Value& value) {
    return value.list() == nullptr || value.list()->whole;
  });
}

void compareXml(const Records& records, const Tolerance& tolerance, RecordDifference& result) {
  const auto& [a, b] = records;
  if (!hasValues(a) || !hasValues(b)) return;
  compareValues(a.file.parts->kind->members, a.values, b.values, tolerance, result);
  const bool found = !result.members.empty() || !result.lists.empty();
  if (found || a.problems != b.problems || !isWhole(a) || !isWhole(b)) return;
  result.outcome = Outcome::kSame;
}

/// The member of a binary record that is all of it, as numbers; null where there is none.
const Member* listOf(const Kind& kind) {
  const bool list = !kind.members.empty() && kind.members[0].shape == catalogue::Shape::kList;
  return list ? &kind.members[0] : nullptr;
}

void addFloats(std::string_view a, std::string_view b, ListComparison& comparison) {
  std::vector<float> inA(a.size() / sizeof(float)), inB(inA.size());
  if (inA.empty()) return;
  std::memcpy(inA.data(), a.data(), inA.size() * sizeof(float));
  std::memcpy(inB.data(), b.data(), inB.size() * sizeof(float));
  comparison.add(inA.data(), inB.data(), inA.size());
}

/// Compares the bytes, and the numbers where the record is a list of them.
void compareBytes(FilePair& files, const Kind& kind, const Tolerance& tolerance,
                  RecordDifference& result) {
  const Member* const member = listOf(kind);
  ListComparison numbers(tolerance, false);
  ByteComparison bytes;
  while (files.next()) {
    bytes.add(files.a(), files.b());
    if (member != nullptr) addFloats(files.a(), files.b(), numbers);
  }
  if (!files.good()) return;
  result.bytes = bytes.end(files.sizeOfA(), files.sizeOfB());
  if (result.bytes.bytes == 0) result.outcome = Outcome::kSame;
  if (result.bytes.bytes == 0 || member == nullptr) return;
  constexpr std::size_t kSize = sizeof(float);
  ListDifference list = numbers.end(member->name, files.sizeOfA() / kSize, files.sizeOfB() / kSize);
  if (list.differing > 0) {
    result.lists.push_back(std::move(list));
  } else if (files.sizeOfA() == files.sizeOfB() && files.sizeOfA() % kSize == 0) {
    result.bytes = {};  // other bytes, but as near as was asked for
    result.outcome = Outcome::kSame;
  }
}

void compareContents(const std::string& a, const std::string& b, const RecordPair& pair,
                     const Tolerance& tolerance, const BytesCompared& compared,
                     RecordDifference& result) {
  const Kind& kind = *pair.a->parts->kind;
  const bool xml = kind.format == Format::kXml;
  if (pair.a->type == FileType::kRegular && pair.b->type == FileType::kRegular) {
    FilePair files(a + "/" + pair.a->name, b + "/" + pair.b->name, compared);
    if (xml) {
      if (files.isSame()) result.outcome = Outcome::kSame;
    } else {
      compareBytes(files, kind, tolerance, result);
    }
  }
  if (result.outcome == Outcome::kSame) return;
  const Reading reading = {xml, false};
  Records records = {readRecord(a, *pair.a, reading), readRecord(b, *pair.b, reading)};
  if (xml) {
    compareXml(records, tolerance, result);
  } else {
    compareValues(kind.members, records.a.values, records.b.values, {}, result);
  }
  if (result.outcome == Outcome::kSame) return;
  result.problemsOfA = std::move(records.a.problems);
  result.problemsOfB = std::move(records.b.problems);
}

bool isOne(const std::string& a, const std::string& b) {
  struct stat ofA, ofB;
  return stat(a.c_str(), &ofA) == 0 && stat(b.c_str(), &ofB) == 0 && ofA.st_dev == ofB.st_dev &&
         ofA.st_ino == ofB.st_ino;
}

/// Then it is the same, even where it can't be read: a FIFO, a link to nowhere.
bool isOneFile(const std::string& a, const File& ofA, const std::string& b, const File& ofB) {
  return (ofA.name == ofB.name && isOne(a, b)) || isOne(a + "/" + ofA.name, b + "/" + ofB.name);
}

}  // namespace

const char* nameOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::kSame:
      return "same";
    case Outcome::kDifferent:
      return "different";
    case Outcome::kOnlyInA:
      return "only in a";
    case Outcome::kOnlyInB:
      break;
  }
  return "only in b";
}

RecordDifference compareRecords(const std::string& a, const std::string& b, const RecordPair& pair,
                                const Tolerance& tolerance, const BytesCompared& compared) {
  RecordDifference result;
  if (pair.a && pair.b && isOneFile(a, *pair.a, b, *pair.b)) {
    result.outcome = Outcome::kSame;
  } else if (pair.a && pair.b) {
    result.outcome = Outcome::kDifferent;  // until it is known better
    compareContents(a, b, pair, tolerance, compared, result);
  } else {
    result.outcome = pair.a ? Outcome::kOnlyInA : Outcome::kOnlyInB;
  }
  return result;
}

}  // namespace simrec
