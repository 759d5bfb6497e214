// The one way the library ends the process: a caller broke a bound that no
// record can recover from (a file type, camera, ring or region index, a count).
// Nothing is logged.
#pragma once

namespace simulation {

/// Aborts the process. The only place that calls abort.
[[noreturn]] void fatal();

/// Aborts unless `index` is below `bound`.
template <typename Index>
void requireBelow(Index index, Index bound) {
  if (!(index < bound)) fatal();
}

}  // namespace simulation
