// A kind of algorithm input that is recorded and replayed: one entry in a table.
// What such an input holds is computed from a view; the library is told only
// where it lies and, where the operation wants it, how large it is.
#pragma once

#include <simulation/simulation.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "view.h"

namespace capture {

/// The caller's structures as they lie in memory; aligned for any of them.
using Bytes = std::vector<std::uint8_t>;

template <typename Structure>
Bytes bytesOf(const Structure& structure) {
  Bytes bytes(sizeof structure);
  std::memcpy(bytes.data(), &structure, sizeof structure);
  return bytes;
}

/// What an operation is called with.
struct Call {
  Simulation& simulation;
  SimulationInfo* info;
  Bytes& data;
  unsigned request, camera;
};

struct Record {
  const char* name;
  /// Below the request's folder. A '#' stands for the camera's id.
  std::vector<std::string> files;
  enum { kBinary, kXml } format;
  Bytes (*compute)(const View&);
  void (*run)(const Call&);

  /// What a replay leaves in place of `live`; null: what was recorded, byte for
  /// byte. `difference` tells how that differs from what was recorded.
  Bytes (*replayed)(const Bytes& recorded, const Bytes& live) = nullptr;
  const char* difference = "";

  /// Part of an error line that every replay of this record logs.
  const char* replayLog = nullptr;
};

/// The white-balance inputs.
std::vector<Record> awbRecords();

}  // namespace capture
