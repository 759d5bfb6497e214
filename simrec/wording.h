// Numbers and members in words, as every command tells them. No state.
#pragma once

#include <string>

#include "simrec/value.h"

namespace simrec {

/// The number as JSON has it, "nan" without quotes.
std::string textOf(const Number& number);

/// Unit, meaning of the value where it is given, and what the member is.
std::string remarkOn(const catalogue::Member& member, const Number* number);

/// "12.5 %"
std::string percentage(double share);

/// A distance, which in decimals may have a long tail of noise.
std::string roughly(const Number& distance);

}  // namespace simrec
