// The library's one logger: the Android log under the tag "[SIMULATION]", gated
// by a threshold that is read once. May be called from any thread.
#pragma once

#include <cstddef>
#include <cstdint>

namespace simulation {

/// The Android log priorities that this library uses.
enum LogLevel : int { kVerbose = 2, kDebug = 3, kError = 6 };

/// Writes one message, cut at 1023 characters, unless `level` is below the
/// threshold: the system property "persist.vendor.camera.simulation.loglevel"
/// (default 2: everything) as it was when the process logged first.
void SimulationLog(int level, const char* format, ...) __attribute__((format(printf, 2, 3)));

/// An id, size or count for a "%d": messages show the low 32 bits, signed.
constexpr int shown(std::uint64_t value) {
  return static_cast<int>(static_cast<std::uint32_t>(value));
}

}  // namespace simulation
