#include "simrec/table/plain_xml.h"

#include <charconv>
#include <cstring>
#include <optional>
#include <type_traits>
#include <variant>

#include "core/list_end.h"
#include "simrec/number.h"
#include "simrec/table/list_proof.h"
#include "simrec/table/sound_list.h"

namespace simrec {
namespace {

using catalogue::Carrier;
using catalogue::Member;
using catalogue::Members;
using catalogue::Replay;
using catalogue::Shape;
using catalogue::Type;

constexpr std::string_view kRegions = "numROIs";

bool isDigit(char character) { return character >= '0' && character <= '9'; }

constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                   1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Goes through the text once. Each function takes what it is called after and returns false where
/// something else stands.
class PlainXml {
 public:
  PlainXml(std::string_view text, Row& row)
      : at_(text.data()), end_(at_ + text.size()), row_(row), cell_(row.cells.data() + kLeads) {}

  bool document() {
    const catalogue::Kind& kind = *row_.table->kind;
    blanks();
    if (take("<?xml ") && !declaration()) return false;
    blanks();
    if (!take('<') || !take(kind.root)) return false;
    if (kind.wrapper == nullptr) {
      if (!insideOf(kind.members, kind.root)) return false;
    } else {
      if (!take('>')) return false;
      blanks();
      if (!take('<') || !take(kind.wrapper) || !insideOf(kind.members, kind.wrapper)) return false;
      blanks();
      if (!closing(kind.root)) return false;
    }
    blanks();
    return at_ == end_;
  }

 private:
  bool take(char character) {
    if (at_ == end_ || *at_ != character) return false;
    ++at_;
    return true;
  }

  bool take(std::string_view text) {
    if (static_cast<std::size_t>(end_ - at_) < text.size() ||
        std::memcmp(at_, text.data(), text.size()) != 0) {
      return false;
    }
    at_ += text.size();
    return true;
  }

  void blanks() {
    while (at_ != end_ && (*at_ == ' ' || *at_ == '\n')) ++at_;
  }

  bool closing(std::string_view name) { return take("</") && take(name) && take('>'); }

  /// Up to its end; tags and NULs in it are nothing plain.
  bool declaration() {
    while (at_ != end_ && *at_ != '?' && *at_ != '<' && *at_ != '>' && *at_ != '\0') ++at_;
    return take("?>");
  }

  /// An element from behind its name on: attributes, members, closing tag.
  bool insideOf(const Members& members, std::string_view name) {
    const Member* member = members.begin();
    for (; member != members.end() && member->carrier == Carrier::kAttribute; ++member) {
      if (!take(' ') || !take(member->name) || !take("=\"") || !text(*member, '"') || !take('"')) {
        return false;
      }
    }
    if (member == members.end() && take("/>")) return true;
    if (!take('>')) return false;
    for (; member != members.end(); ++member) {
      if (!element(*member)) return false;
    }
    blanks();
    return closing(name);
  }

  bool element(const Member& member) {
    if (member.carrier != Carrier::kElement) return false;  // an attribute out of its place
    blanks();
    const char* const begin = at_;
    if (!take('<') || !take(member.name)) {
      if (member.replay != Replay::kOnlyReplaced || member.shape != Shape::kNumber) return false;
      at_ = begin;
      *cell_++ = {};
      return true;
    }
    switch (member.shape) {
      case Shape::kGroup:
        return insideOf(member.members, member.name);
      case Shape::kArray:
        return take('>') && items(member) && closing(member.name);
      case Shape::kNumber:
      case Shape::kList:
        break;
    }
    return take('>') && text(member, '<') && closing(member.name);
  }

  bool items(const Member& member) {
    for (std::size_t i = 0; i < member.count; ++i) {
      blanks();
      if (!take('<') || !take(member.item) || !insideOf(member.members, member.item)) return false;
    }
    blanks();
    return true;
  }

  bool text(const Member& member, char stop) {
    if (member.shape == Shape::kList) return list(member, stop);
    switch (member.type) {
      case Type::kUint8:
        return integer<std::uint8_t>(member, stop);
      case Type::kUint16:
        return integer<std::uint16_t>(member, stop);
      case Type::kUint32:
        return integer<std::uint32_t>(member, stop);
      case Type::kUint64:
        return integer<std::uint64_t>(member, stop);
      case Type::kInt32:
        return integer<std::int32_t>(member, stop);
      case Type::kFloat:
        break;
    }
    return decimal(stop);
  }

  template <typename Integer>
  bool integer(const Member& member, char stop) {
    Integer value = 0;
    const auto [rest, error] = std::from_chars(at_, end_, value);
    if (error != std::errc() || rest == end_ || *rest != stop) return false;
    at_ = rest;
    if constexpr (std::is_same_v<Integer, std::uint64_t>) {
      *cell_ = Cell::ofUnsigned(value);
    } else {
      *cell_ = Cell::ofSigned(value);
    }
    if (member.carrier == Carrier::kAttribute && member.name == kRegions) {
      regions_ = static_cast<std::size_t>(value);
    }
    ++cell_;
    return true;
  }

  bool decimal(char stop) {
    const char* const begin = at_;
    const char* const end =
        static_cast<const char*>(std::memchr(begin, stop, static_cast<std::size_t>(end_ - begin)));
    if (end == nullptr) return false;
    const std::string_view token(begin, static_cast<std::size_t>(end - begin));
    at_ = end;
    if (plainDecimal(token)) return true;
    const auto number = parseNumber(token, Type::kFloat);
    if (!std::holds_alternative<Number>(number)) return false;
    *cell_++ = Cell::ofDouble(std::get<Number>(number).decimal);
    return true;
  }

  /// Up to fifteen digits with a point: the quotient of two exact doubles.
  bool plainDecimal(std::string_view token) {
    if (token.size() > 17) return false;
    const char* at = token.data();
    const char* const end = at + token.size();
    const bool negative = at != end && *at == '-';
    if (negative) ++at;
    const char* const first = at;
    std::int64_t digits = 0;
    while (at != end && isDigit(*at)) digits = digits * 10 + (*at++ - '0');
    const auto whole = at - first;
    if (whole == 0 || whole > 15 || (whole > 1 && *first == '0')) return false;
    std::ptrdiff_t places = 0;
    if (at != end && *at == '.') {
      const char* const point = at++;
      if (end - at > 15 - whole) return false;
      while (at != end && isDigit(*at)) digits = digits * 10 + (*at++ - '0');
      places = at - point - 1;
      if (places == 0) return false;
    }
    if (at != end) return false;
    const double magnitude = static_cast<double>(digits) / kPowersOfTen[places];
    *cell_++ = Cell::ofDouble(negative ? -magnitude : magnitude, token);
    return true;
  }

  bool list(const Member& member, char stop) {
    const std::size_t wanted =
        regions_ && member.carrier == Carrier::kElement ? *regions_ : member.count;
    const std::string_view rest(at_, static_cast<std::size_t>(end_ - at_));
    if (wanted <= member.count && soundList(rest, member.type, wanted)) {
      return true;  // where no list ends, what follows is found to be wrong
    }
    std::size_t size = simulation::listEnd(rest, 0);
    size = rest.find(stop, size);  // behind exponents, nan
    if (size == rest.npos) return false;
    const std::string_view text = rest.substr(0, size);
    at_ += size;
    std::string problem;
    NumberList numbers = parseList(text, member.type, member.count, problem);
    if (!problem.empty() || numbers.size() != wanted) return false;
    put(std::move(numbers));
    return true;
  }

  bool soundList(std::string_view rest, Type type, std::size_t wanted) {
    NumberList numbers;
    const char* const end = row_.table->lists ? readSoundList(rest, type, wanted, numbers.values)
                                              : endOfSoundList(rest, type, wanted);
    if (end == nullptr) return false;
    numbers.text = {at_, static_cast<std::size_t>(end - at_)};
    at_ = end;
    put(std::move(numbers));
    return true;
  }

  void put(NumberList numbers) {
    if (!row_.table->lists) return;
    row_.lists.push_back(std::move(numbers));
    *cell_++ = Cell::ofList(&row_.lists.back());
  }

  const char* at_;
  const char* const end_;
  Row& row_;
  Cell* cell_;
  std::optional<std::size_t> regions_ = {};  // of a grid: how long its lists are
};

}  // namespace

bool readPlainXml(std::string_view text, Row& row) { return PlainXml(text, row).document(); }

}  // namespace simrec
