// Texts of record files as numbers of their members' types. Stricter than a readback, which
// takes what it can: what is odd about a text is told. No state.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "simrec/value.h"

namespace simrec {

/// The number that all of `text` is (blanks around it aside), or what is wrong with it, in
/// words for a person.
std::variant<Number, std::string> parseNumber(std::string_view text, catalogue::Type type);

/// The numbers of a list, each with a blank behind it, up to the first that is none, and `most`
/// of them at most; what is wrong goes to `problem`.
NumberList parseList(std::string_view text, catalogue::Type type, std::size_t most,
                     std::string& problem);

/// The numbers of a list of floats as the decimals that its text has; without one, as
/// shortestDecimal() has them.
std::vector<double> decimalsOf(const NumberList& list);

/// The number at the beginning of `bytes`, which are a binary file's.
Number numberInBytes(const char* bytes, catalogue::Type type);

}  // namespace simrec
