// All record operations as one table, for tests that treat them alike.
#pragma once

#include <simulation/simulation.h>

#include <array>
#include <vector>

using Bytes = std::vector<char>;

struct RecordOperation {
  const char* name;
  std::size_t size;   ///< of the caller's memory
  bool staged;        ///< a readback replaces all that it replaces at once, or nothing
  std::size_t files;  ///< that a dump writes
  void (*call)(SimulationInfo& info, char* data, unsigned int request, unsigned int camera);

  void run(std::uint32_t mode, Bytes& data, unsigned int request, unsigned int camera,
           const char* folder = "IMG_0001") const;

  /// Memory that the operation may have: words that are numbers in every reading,
  /// other ones for another seed.
  Bytes memory(unsigned int seed) const;
};

extern const std::array<RecordOperation, 26> kAllRecords;
