// Two numbers of one type: whether they are the same, and how far they are from each other.
// No state.
#pragma once

#include "simrec/comparison.h"

namespace simrec {

/// The same integer or the same float; nan is the same as nan.
bool isSame(const Number& a, const Number& b);

/// The distance: exact for integers; of floats that of the decimals.
Number distance(const Number& a, const Number& b);

/// What `distance` is of the larger magnitude.
double relativeTo(const Number& a, const Number& b, const Number& distance);

/// Whether that is near enough. nan is near nothing.
bool isNear(const Number& a, const Number& b, const Number& distance, const Tolerance& tolerance);

}  // namespace simrec
