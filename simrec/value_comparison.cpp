#include "simrec/value_comparison.h"

#include <fmt/format.h>

#include <algorithm>

#include "simrec/list_comparison.h"
#include "simrec/number_difference.h"

namespace simrec {
namespace {

using catalogue::Member;
using catalogue::Members;
using catalogue::Shape;

const Value* valueOf(const Values* values, const Member& member) {
  return values != nullptr ? find(*values, member.name) : nullptr;
}

const Values* itemOf(const Value* array, std::size_t index) {
  if (array == nullptr || index >= array->items()->size()) return nullptr;
  return &(*array->items())[index];
}

/// Of AECSettled, which has no two values but 0 and anything else, one byte is what counts.
bool isFlag(const Member& member) {
  return !member.meanings.empty() || member.replay == catalogue::Replay::kFirstByte;
}

/// The values of two records, or of two groups in them; null where a side has none.
class ValueComparison {
 public:
  ValueComparison(const Tolerance& tolerance, RecordDifference& result)
      : tolerance_(tolerance), result_(result) {}

  void compare(const Members& members, const Values* a, const Values* b,
               const std::string& prefix) {
    for (const Member& member : members) {
      const Value* const inA = valueOf(a, member);
      const Value* const inB = valueOf(b, member);
      if (inA != nullptr || inB != nullptr) compareMember(member, inA, inB, prefix + member.name);
    }
  }

 private:
  void compareMember(const Member& member, const Value* a, const Value* b,
                     const std::string& path) {
    switch (member.shape) {
      case Shape::kNumber:
        return compareNumbers(member, a, b, path);
      case Shape::kList:
        return compareLists(member, a, b, path);
      case Shape::kGroup:
        return compare(member.members, a ? a->members() : nullptr, b ? b->members() : nullptr,
                       path + ".");
      case Shape::kArray:
        break;
    }
    for (std::size_t i = 0; itemOf(a, i) != nullptr || itemOf(b, i) != nullptr; ++i) {
      compare(member.members, itemOf(a, i), itemOf(b, i), fmt::format("{}[{}].", path, i));
    }
  }

  void compareNumbers(const Member& member, const Value* a, const Value* b,
                      const std::string& path) {
    if (a == nullptr || b == nullptr) {
      result_.members.push_back({path, a ? std::optional(*a->number()) : std::nullopt,
                                 b ? std::optional(*b->number()) : std::nullopt, std::nullopt});
      return;
    }
    const Number &left = *a->number(), &right = *b->number();
    if (isSame(left, right)) return;
    const Number gap = distance(left, right);
    if (member.meanings.empty() && isNear(left, right, gap, tolerance_)) return;
    result_.members.push_back(
        {path, left, right, gap, relativeTo(left, right, gap), isFlag(member)});
  }

  void compareLists(const Member& member, const Value* a, const Value* b, const std::string& path) {
    const bool labels = member.type == catalogue::Type::kUint8;
    ListComparison comparison(tolerance_, labels);
    if (a == nullptr || b == nullptr) {
      const std::size_t sizeOfA = a ? a->list()->size() : 0, sizeOfB = b ? b->list()->size() : 0;
      ListDifference difference = comparison.end(path, sizeOfA, sizeOfB);
      if (a == nullptr) difference.a.reset();
      if (b == nullptr) difference.b.reset();
      result_.lists.push_back(std::move(difference));
      return;
    }
    if (!a->list()->whole || !b->list()->whole) return;  // a problem of the record tells where
    std::visit(
        [&](const auto& inA) {
          const auto& inB = std::get<std::decay_t<decltype(inA)>>(b->list()->values);
          comparison.add(inA.data(), inB.data(), std::min(inA.size(), inB.size()));
          keep(comparison.end(path, inA.size(), inB.size()));
        },
        a->list()->values);
    if (labels) result_.labels = comparison.labelChanges();
  }

  void keep(ListDifference difference) {
    if (difference.differing > 0) result_.lists.push_back(std::move(difference));
  }

  Tolerance tolerance_;
  RecordDifference& result_;
};

}  // namespace

void compareValues(const Members& members, const Values& a, const Values& b,
                   const Tolerance& tolerance, RecordDifference& result) {
  ValueComparison(tolerance, result).compare(members, &a, &b, "");
}

}  // namespace simrec
