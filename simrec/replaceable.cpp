#include "simrec/replaceable.h"

#include <simulation/records.h>

#include <algorithm>

namespace simrec {
namespace {

using catalogue::Member;
using catalogue::Members;
using catalogue::Replay;
using catalogue::Shape;

class Marker {
 public:
  explicit Marker(std::size_t size) : bytes_(size) {}

  void mark(std::size_t begin, std::size_t size) {
    if (begin >= bytes_.size()) return;
    std::fill_n(bytes_.begin() + static_cast<std::ptrdiff_t>(begin),
                std::min(size, bytes_.size() - begin), std::uint8_t{1});
  }

  /// `values`: those that the file has; null: not looked at.
  void markMembers(const Members& members, std::size_t base, const Values* values) {
    for (const Member& member : members) {
      const bool absent = values != nullptr && find(*values, member.name) == nullptr;
      if (member.replay == Replay::kLive) continue;
      if (member.replay == Replay::kOnlyReplaced && absent) continue;
      markMember(member, base + member.offset);
    }
  }

  std::vector<std::uint8_t> bytes() { return std::move(bytes_); }

 private:
  void markMember(const Member& member, std::size_t at) {
    const std::size_t size = member.replay == Replay::kFirstByte ? 1 : sizeOf(member.type);
    switch (member.shape) {
      case Shape::kNumber:
        return mark(at, size);
      case Shape::kGroup:
        return markMembers(member.members, at, nullptr);
      case Shape::kList:
      case Shape::kArray:
        break;
    }
    for (std::size_t i = 0; i < member.count; ++i, at += member.stride) {
      if (member.shape == Shape::kList) {
        mark(at, size);
      } else {
        markMembers(member.members, at, nullptr);
      }
    }
  }

  std::vector<std::uint8_t> bytes_;
};

std::size_t headerNumber(const Values& values, std::string_view name) {
  const Value* const value = find(values, name);
  return value != nullptr ? static_cast<std::size_t>(value->number()->integer) : 0;
}

/// The file tells how many regions it holds and in which form.
void markRegions(const Record& record, const Members& members, Marker& marker) {
  const std::size_t regions =
      std::min<std::size_t>(headerNumber(record.values, "numROIs"), BayerGridOutput::kMaxRegions);
  const std::size_t blocks = headerNumber(record.values, "hasSatInfo") != 0 ? 2 * regions : regions;
  for (const Member& member : members) {
    if (member.replay == Replay::kLive) continue;
    for (std::size_t block = 0; block < blocks; ++block) {
      marker.mark(member.offset + block * member.stride, sizeOf(member.type));
    }
  }
}

}  // namespace

std::vector<std::uint8_t> replaceableBytes(const Record& record, std::size_t size) {
  const catalogue::Kind& kind = *record.file.parts->kind;
  Marker marker(size);
  if (kind.format == catalogue::Format::kBinary) {
    marker.mark(kind.liveHead, size);
  } else if (kind.members[0].name == std::string_view("usesY")) {
    markRegions(record, kind.members, marker);
  } else {
    marker.markMembers(kind.members, 0, &record.values);
  }
  return marker.bytes();
}

}  // namespace simrec
