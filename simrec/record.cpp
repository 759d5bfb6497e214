#include "simrec/record.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "simrec/number.h"
#include "simrec/regular_file.h"
#include "simrec/text.h"
#include "simrec/xml_values.h"

namespace simrec {
namespace {

using catalogue::Format;
using catalogue::Kind;
using catalogue::Member;
using simulation::FileDescriptor;

/// The longest known member of a fixed place ends before this.
constexpr std::size_t kHead = 4096;

/// Of a binary file that is a list of numbers, more of them are not looked at.
constexpr std::size_t kMostNumbers = 1 << 20;

/// A larger document is left to the parser as a whole, which then has its only copy.
constexpr std::uint64_t kLargeXml = 16 << 20;

/// A document that is larger than this is looked at before the parser gets it, and not read
/// with more elements and attributes than this: each costs much more memory than its text.
constexpr std::uint64_t kSmallXml = 1 << 20;
constexpr std::uint64_t kMostElements = 100'000;

void readBytes(const FileDescriptor& descriptor, std::size_t size, Record& record) {
  record.bytes.resize(size);
  bool failed = false;
  record.bytes.resize(readUpTo(descriptor, record.bytes.data(), size, &failed));
  if (failed) record.problems.push_back(std::string("can't be read: ") + std::strerror(errno));
}

void addBinaryValue(const Member& member, const Reading& reading, Record& record) {
  if (member.shape == catalogue::Shape::kList) {
    if (!reading.lists) return;
    const std::size_t count = record.bytes.size() / sizeof(float);
    std::vector<float> values(std::min(count, kMostNumbers));
    if (count > 0) {
      std::memcpy(values.data(), record.bytes.data(), values.size() * sizeof(float));
    }
    if (values.size() < record.file.bytes / sizeof(float)) {
      record.problems.push_back("what follows number " + std::to_string(kMostNumbers) +
                                " was not looked at");
    }
    record.values.push_back({&member, NumberList{std::move(values)}});
  } else if (member.offset + sizeOf(member.type) <= record.bytes.size()) {
    record.values.push_back({&member, numberInBytes(&record.bytes[member.offset], member.type)});
  }
}

void readBinary(const FileDescriptor& descriptor, std::uint64_t size, const Reading& reading,
                Record& record) {
  const Kind& kind = *record.file.parts->kind;
  const bool lists = reading.lists && !kind.members.empty();
  const std::uint64_t wanted = reading.binary ? kLargestXml
                               : lists        ? kMostNumbers * sizeof(float) + 1
                                              : kHead;
  readBytes(descriptor, static_cast<std::size_t>(std::min(size, wanted)), record);
  if (std::string problem = sizeProblem(kind, size); !problem.empty()) {
    record.problems.push_back(std::move(problem));
  }
  if (reading.binary && size > kLargestXml) {
    record.problems.emplace_back("what follows the first 64 MB was not looked at");
  }
  for (const Member& member : kind.members) addBinaryValue(member, reading, record);
}

bool hasTooManyElements(const FileDescriptor& descriptor) {
  std::vector<char> piece(1 << 17);
  std::ptrdiff_t elements = 0, attributes = 0;
  while (const std::size_t size = readUpTo(descriptor, piece.data(), piece.size())) {
    const auto end = piece.begin() + static_cast<std::ptrdiff_t>(size);
    elements += std::count(piece.begin(), end, '<');
    attributes += std::count(piece.begin(), end, '=');
  }
  return static_cast<std::uint64_t>(elements + attributes) > kMostElements;
}

/// The file that was opened, should another have taken its place since.
std::string pathOf(const FileDescriptor& descriptor, const std::string& path) {
  std::string link = "/proc/self/fd/" + std::to_string(descriptor.get());
  return access(link.c_str(), F_OK) == 0 ? link : path;
}

void readXml(const std::string& path, const FileDescriptor& descriptor, std::uint64_t size,
             const Reading& reading, Record& record) {
  if (size > kLargestXml) {
    record.problems.emplace_back(kTooLargeXml);
    return;
  }
  if (size == 0) {  // a file of /proc and the like tells no size, and to read it may take for ever
    record.problems.emplace_back("empty");
    return;
  }
  if (size > kSmallXml && hasTooManyElements(descriptor)) {
    record.problems.emplace_back("more than 100000 elements and attributes: not read");
    return;
  }
  record.document = std::make_unique<simulation::RecordDocument>();
  const tinyxml2::XMLError error = size > kLargeXml ? record.document->LoadFile(path.c_str())
                                                    : record.document->load(path.c_str());
  if (error != tinyxml2::XML_SUCCESS) {
    record.problems.push_back(xmlProblem(*record.document));
  }
  readXmlValues(*record.document, *record.file.parts->kind, reading, record.values,
                record.problems);
}

}  // namespace

std::string sizeProblem(const Kind& kind, std::uint64_t size) {
  if (size == 0) return "empty";
  if (size == kind.bytes) return "";
  const bool floats = !kind.members.empty() && kind.members[0].shape == catalogue::Shape::kList;
  const std::uint64_t rest = kind.bytes == 0 && floats ? size % sizeof(float) : 0;
  if (rest != 0) return counted(rest, "byte") + " behind the last number";
  if (kind.bytes == 0) return "";
  return counted(size, "byte") + " instead of " + std::to_string(kind.bytes);
}

Record readRecord(const std::string& folder, const File& file, const Reading& reading) {
  Record record;
  record.file = file;
  if (const char* const problem = problemOf(file.type)) {
    record.problems.emplace_back(problem);
    return record;
  }
  const std::string path = folder + "/" + file.name;
  const RegularFile regular(path);
  if (!regular.problem.empty()) {
    record.problems.push_back(regular.problem);
    return record;
  }
  record.opened = true;
  record.file.bytes = regular.bytes;
  if (file.parts->kind->format == Format::kXml) {
    readXml(pathOf(regular.descriptor, path), regular.descriptor, regular.bytes, reading, record);
  } else {
    readBinary(regular.descriptor, regular.bytes, reading, record);
  }
  return record;
}

}  // namespace simrec
