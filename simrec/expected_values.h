// What a readback makes of the values of a file, as the next dump shows it.
#pragma once

#include <optional>

#include "simrec/store.h"
#include "simrec/value.h"

namespace simrec {

/// The member of that name at the top of a kind; null where it has none.
const catalogue::Member* find(const catalogue::Kind& kind, std::string_view name);

/// What is dumped of a member after a readback of `number` over a live record whose dump shows
/// `found`: at the digits of its text, and what the member's own rule makes of it.
Number expectedNumber(const catalogue::Member& member, const Number& number, const Number& found);

/// Number `index` of a list; none beyond its end.
std::optional<Number> itemOf(const NumberList& list, std::size_t index);

/// The same at the digits of its text.
std::optional<Number> expectedItem(const NumberList& list, std::size_t index,
                                   catalogue::Digits digits);

/// nan is the same as nan.
bool same(const Number& a, const Number& b);

/// Whether a readback throws at this number, and leaves it and what follows live.
bool throwsAt(const catalogue::Member& member, const Number& number);

bool isBayerGrid(const catalogue::Kind& kind);

/// The lists of regions that a dump shows, whose header and form are `dump`'s, after a readback
/// of `replayed`: paired regions overlap in memory, and a live record of the other form shows them
/// in other places. Items that stay live are as `dump` has them.
Values expectedRegions(const Values& replayed, const Values& dump);

/// Whether the rule of `kind` leaves its records out of the request that `dump` is.
bool leavesOut(const catalogue::Kind& kind, const Capture& dump);

}  // namespace simrec
