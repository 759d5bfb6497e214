// All record operations as one table, for tests that treat them alike.
#pragma once

#include <simulation/simulation.h>

#include <array>
#include <cstddef>
#include <ostream>
#include <vector>

using Bytes = std::vector<char>;

struct RecordOperation {
  const char* name;
  std::size_t size;  ///< of the caller's memory
  bool staged;       ///< a readback replaces all that it replaces at once, or nothing
  std::size_t files = 1;
  void (*run)(SimulationInfo& info, char* data, unsigned int request, unsigned int camera);
};

extern const std::array<RecordOperation, 26> kAllRecords;

inline std::ostream& operator<<(std::ostream& out, const RecordOperation& operation) {
  return out << operation.name;
}

/// Memory of the caller's that any of the operations may have: words that are
/// numbers in every reading, other ones for another seed.
Bytes callersMemory(const RecordOperation& operation, unsigned int seed);
