#include "simrec/expected_values.h"

#include <simulation/records.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <type_traits>

#include "core/number_text.h"
#include "simrec/xml_writer.h"

namespace simrec {
namespace {

using catalogue::Digits;
using catalogue::Kind;
using catalogue::Member;
using catalogue::Replay;
using catalogue::Type;

Number floatNumber(float value) {
  Number number;
  number.single = value;
  number.decimal = shortestDecimal(value);
  return number;
}

/// The text is read as an integer of 64 bits, up to what is no digit, and 32 bits are kept.
/// None where it does not begin as a number: that throws.
std::optional<Number> wholeNumber(const Member& member, const Number& number) {
  try {
    const auto whole = static_cast<std::uint32_t>(simulation::toLongLong(number.text));
    return throughText(static_cast<float>(whole), member.digits);
  } catch (const std::logic_error&) {
    return std::nullopt;
  }
}

/// One byte of the four; the others stay live.
Number firstByte(const Number& number, const Number& found) {
  Number result = found;
  const auto live = static_cast<std::uint32_t>(found.integer) & 0xFFFFFF00U;
  const auto bits = static_cast<std::int32_t>(live | (number.integer != 0 ? 1U : 0U));
  result.integer = static_cast<std::uint64_t>(std::int64_t{bits});
  return result;
}

std::size_t headerNumber(const Values& values, std::string_view name) {
  const Value* const value = find(values, name);
  return value != nullptr ? static_cast<std::size_t>(value->number()->integer) : 0;
}

/// The blocks of a live record after a readback, one list's items: none where a block stays live.
template <typename Item>
std::vector<std::optional<Item>> blocksOf(const std::vector<Item>& items, std::size_t regions,
                                          bool paired) {
  const std::size_t known = std::min<std::size_t>(items.size(), BayerGridOutput::kMaxRegions);
  const auto region = [&](std::size_t i) { return i < known ? items[i] : Item{0}; };
  std::vector<std::optional<Item>> blocks;
  for (std::size_t i = 0; i < regions; ++i) {
    blocks.push_back(region(i));
    if (paired) blocks.push_back(region(i + 1));
  }
  return blocks;
}

/// Changes `shown`, a dump's items, to what they must be.
template <typename Item>
void expectItems(const std::vector<Item>& items, std::size_t regions, bool paired, bool shownPaired,
                 std::vector<Item>& shown) {
  const auto blocks = blocksOf(items, regions, paired);
  for (std::size_t i = 0; i < shown.size(); ++i) {
    const std::size_t block = shownPaired ? 2 * i : i;
    if (block < blocks.size()) shown[i] = *blocks[block];
  }
}

}  // namespace

const Member* find(const Kind& kind, std::string_view name) {
  for (const Member& member : kind.members) {
    if (member.name == name) return &member;
  }
  return nullptr;
}

Number expectedNumber(const Member& member, const Number& number, const Number& found) {
  if (member.replay == Replay::kFirstByte) return firstByte(number, found);
  if (member.replay == Replay::kWholeNumber) return wholeNumber(member, number).value_or(found);
  if (member.type != Type::kFloat) return number;
  return throughText(number.single, member.digits);
}

bool throwsAt(const Member& member, const Number& number) {
  return member.replay == Replay::kWholeNumber && !wholeNumber(member, number);
}

std::optional<Number> itemOf(const NumberList& list, std::size_t index) {
  return std::visit(
      [&](const auto& items) -> std::optional<Number> {
        using Item = typename std::decay_t<decltype(items)>::value_type;
        if (index >= items.size()) return std::nullopt;
        if constexpr (std::is_same_v<Item, float>) return floatNumber(items[index]);
        Number number;
        number.type = Type::kUint64;
        number.integer = static_cast<std::uint64_t>(items[index]);
        return number;
      },
      list.values);
}

std::optional<Number> expectedItem(const NumberList& list, std::size_t index, Digits digits) {
  auto number = itemOf(list, index);
  if (number && number->isFloat()) number = throughText(number->single, digits);
  return number;
}

bool same(const Number& a, const Number& b) {
  if (!a.isFloat()) return a.integer == b.integer;
  return a.single == b.single || (std::isnan(a.single) && std::isnan(b.single));
}

bool isBayerGrid(const Kind& kind) { return find(kind, "numROIs") != nullptr; }

Values expectedRegions(const Values& replayed, const Values& dump) {
  constexpr std::size_t kMost = BayerGridOutput::kMaxRegions;
  const std::size_t regions = std::min(headerNumber(replayed, "numROIs"), kMost);
  const bool paired = headerNumber(replayed, "hasSatInfo") != 0;
  const bool shownPaired = headerNumber(dump, "hasSatInfo") != 0;
  Values expected;
  for (const Value& value : replayed) {
    const Value* const shown = find(dump, value.member->name);
    if (value.member->replay != Replay::kReplaced || shown == nullptr) continue;
    expected.push_back(*shown);
    auto& list = std::get<NumberList>(expected.back().is);
    std::visit(
        [&](auto& items) {
          using Items = std::decay_t<decltype(items)>;
          const auto* const from = std::get_if<Items>(&value.list()->values);
          if (from != nullptr) expectItems(*from, regions, paired, shownPaired, items);
        },
        list.values);
  }
  return expected;
}

bool leavesOut(const Kind& kind, const Capture& dump) {
  return kind.firstRequest > 0 && dump.request && dump.request->request >= 0 &&
         dump.request->request < kind.firstRequest;
}

}  // namespace simrec
