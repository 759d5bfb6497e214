// Compares the values of two records by the catalogue's members.
#pragma once

#include <string>

#include "simrec/comparison.h"

namespace simrec {

/// Adds what differs between two records, or groups in them, to `result`; a member that neither
/// has does not.
void compareValues(const catalogue::Members& members, const Values& a, const Values& b,
                   const Tolerance& tolerance, RecordDifference& result);

}  // namespace simrec
