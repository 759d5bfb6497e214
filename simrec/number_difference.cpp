#include "simrec/number_difference.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace simrec {
namespace {

double magnitude(const Number& a, const Number& b) {
  return std::max(std::abs(a.approximately()), std::abs(b.approximately()));
}

}  // namespace

bool isSame(const Number& a, const Number& b) {
  if (!a.isFloat()) return a.integer == b.integer;
  return a.single == b.single || (std::isnan(a.single) && std::isnan(b.single));
}

Number distance(const Number& a, const Number& b) {
  Number result;
  if (a.isFloat()) {
    result.decimal = std::abs(a.decimal - b.decimal);
    result.single = static_cast<float>(result.decimal);
    return result;
  }
  // Modulo 2^64, in which the integers with a sign have theirs, too.
  const bool less =
      a.isSigned() ? static_cast<std::int64_t>(a.integer) < static_cast<std::int64_t>(b.integer)
                   : a.integer < b.integer;
  result.type = catalogue::Type::kUint64;
  result.integer = less ? b.integer - a.integer : a.integer - b.integer;
  return result;
}

double relativeTo(const Number& a, const Number& b, const Number& distance) {
  return distance.approximately() / magnitude(a, b);
}

bool isNear(const Number& a, const Number& b, const Number& distance, const Tolerance& tolerance) {
  const double gap = distance.approximately();
  const double most = magnitude(a, b);
  // 0.4 - 0.3 is a little more than 0.1 in doubles. Far below what a float can tell.
  const double slack = 4 * std::numeric_limits<double>::epsilon() * most;
  return std::isfinite(gap) &&
         ((tolerance.absolute > 0 && gap <= tolerance.absolute + slack) ||
          (tolerance.relative > 0 && gap <= tolerance.relative * most + slack));
}

}  // namespace simrec
