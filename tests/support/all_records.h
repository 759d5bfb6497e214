// All record operations as one table, for tests that treat them alike.
#pragma once

#include <array>
#include <ostream>

#include "tests/support/camera_data.h"

struct RecordOperation {
  const char* name;  ///< of its function, without "SimulationFor"
  void (*call)(SimulationInfo* info, char* data, unsigned int request, unsigned int camera);
  const char* file;     ///< that camera kCamId dumps; its name after "simulation_"
  std::size_t size;     ///< of the caller's memory
  bool staged = false;  ///< a readback replaces all that it replaces at once, or nothing

  void run(std::uint32_t mode, char* data, unsigned int request = kRequest,
           unsigned int camera = kCamId, const char* folder = "IMG_0001") const;

  /// Memory that the operation may have, other bytes for another seed; for XML,
  /// words that are numbers in every reading.
  std::string memory(unsigned int seed) const;

  /// The file of a dump by run(), and that of a readback.
  std::string dumped() const;
  std::string replayed() const;
};

inline void PrintTo(const RecordOperation& record, std::ostream* out) { *out << record.name; }

extern const std::array<RecordOperation, 26> kAllRecords;

const RecordOperation& recordNamed(const std::string& name);
