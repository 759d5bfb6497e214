#include "simrec/replaceable.h"

#include <fmt/format.h>
#include <simulation/records.h>

#include <algorithm>
#include <optional>

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

/// Names the members that have bytes which are wanted and were not replaced.
class Search {
 public:
  Search(std::vector<std::uint8_t> wanted, const std::vector<std::uint8_t>& replaced)
      : left_(std::move(wanted)) {
    for (std::size_t i = 0; i < left_.size(); ++i) {
      if (replaced[i] != 0) left_[i] = 0;
    }
  }

  void search(const Members& members, std::size_t base, const std::string& path) {
    for (const Member& member : members) {
      searchMember(member, base + member.offset, path + member.name);
    }
  }

  std::vector<std::string> names() { return std::move(names_); }

 private:
  void searchMember(const Member& member, std::size_t at, const std::string& path) {
    switch (member.shape) {
      case Shape::kNumber:
        if (isLeft(member, at)) names_.push_back(path);
        return;
      case Shape::kList:
        return searchList(member, at, path);
      case Shape::kGroup:
        return search(member.members, at, path + ".");
      case Shape::kArray:
        break;
    }
    for (std::size_t i = 0; i < member.count; ++i, at += member.stride) {
      search(member.members, at, fmt::format("{}[{}].", path, i));
    }
  }

  void searchList(const Member& member, std::size_t at, const std::string& path) {
    std::optional<std::size_t> first;
    std::size_t last = 0;
    for (std::size_t i = 0; i < member.count; ++i, at += member.stride) {
      if (!isLeft(member, at)) continue;
      if (!first) first = i;
      last = i;
    }
    if (!first) return;
    const bool all = *first == 0 && last + 1 == member.count;
    names_.push_back(all              ? path
                     : *first == last ? fmt::format("{}[{}]", path, last)
                                      : fmt::format("{}[{}] to [{}]", path, *first, last));
  }

  bool isLeft(const Member& member, std::size_t at) const {
    const auto begin = left_.begin() + static_cast<std::ptrdiff_t>(std::min(at, left_.size()));
    const auto size = std::min<std::ptrdiff_t>(left_.end() - begin,
                                               static_cast<std::ptrdiff_t>(sizeOf(member.type)));
    return std::any_of(begin, begin + size, [](std::uint8_t byte) { return byte != 0; });
  }

  std::vector<std::uint8_t> left_;
  std::vector<std::string> names_;
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

std::vector<std::string> membersLeft(const Record& record,
                                     const std::vector<std::uint8_t>& replaced) {
  Search search(replaceableBytes(record, replaced.size()), replaced);
  search.search(record.file.parts->kind->members, 0, "");
  return search.names();
}

}  // namespace simrec
