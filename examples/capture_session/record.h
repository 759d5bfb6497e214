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

/// The caller's structures as they lie in memory; aligned for any of them. Where
/// an operation wants pointers, what they point to is here.
using Bytes = std::vector<std::uint8_t>;

template <typename Structure>
Bytes bytesOf(const Structure& structure) {
  Bytes bytes(sizeof structure);
  std::memcpy(bytes.data(), &structure, sizeof structure);
  return bytes;
}

template <typename Structure>
Structure structureIn(const Bytes& bytes, std::size_t offset = 0) {
  Structure structure;
  std::memcpy(&structure, bytes.data() + offset, sizeof structure);
  return structure;
}

/// What an operation is called with.
struct Call {
  Simulation& simulation;
  SimulationInfo* info;
  Bytes& data;
  unsigned request, camera;
};

/// A file of a record: its kind in the catalogue, and the parts of its name that are
/// neither the camera nor the number of the dump in the burst's folder.
struct RecordFile {
  const char* kind;
  int ev = 0;
  const char* text = "";  ///< a '#' stands for the camera's id
};

struct Record {
  const char* name;

  /// Binary files hold the beginning of the data, one after the other, and all of it
  /// when there are no others.
  std::vector<RecordFile> files;
  Bytes (*compute)(const View&);
  void (*run)(const Call&);

  /// What a replay leaves in place of `live`; null: what was recorded, byte for
  /// byte. `difference` tells how that differs from what was recorded.
  struct {
    Bytes (*result)(const Bytes& recorded, const Bytes& live) = nullptr;
    const char* difference = "";
  } replay = {};

  /// The lines that the library logs as errors though all went well: one for
  /// each file that "*.xml" or "*.bin" in the text stands for.
  struct {
    const char* dump = nullptr;
    const char* replay = nullptr;
  } log = {};

  /// Whether the files go to the request's folder, or to one that the requests of
  /// a burst share and that keeps the file of the first, of the last or of each.
  enum { kRequest, kFirstOfBurst, kLastOfBurst, kEachOfBurst } place = kRequest;

  bool large = false;  // 100 kB and more for a request and camera
};

inline constexpr bool kLarge = true;
inline constexpr char kNinthDigit[] = "the 9th digit of some floats, which the text does not hold";
inline constexpr char kDumpSuccess[] = "dump *.xml success";
inline constexpr char kReplaySuccess[] = "readback *.xml success";

/// In the order in which a request makes them.
std::vector<Record> allRecords();
std::vector<Record> aeRecords();
std::vector<Record> awbRecords();
std::vector<Record> awbStatsRecords();
std::vector<Record> qsegRecords();
std::vector<Record> zoawbRecords();
std::vector<Record> faceRecords();
std::vector<Record> lscRecords();
std::vector<Record> acbRecords();

/// The record's files below `folder` (empty: straight under kCameraData), with
/// `number` as the index of those that have one.
std::vector<std::string> filesOf(const Record& record, const View& view, const std::string& folder,
                                 unsigned number = 0);

/// The lines that `pattern`, one of a record's log texts or null, stands for.
std::vector<std::string> logLines(const char* pattern, const std::vector<std::string>& files);

/// `Simulation` operations of the usual forms.
using Operation = void (Simulation::*)(SimulationInfo*, void*, unsigned, unsigned);

template <Operation operation>
void run(const Call& call) {
  (call.simulation.*operation)(call.info, call.data.data(), call.request, call.camera);
}

inline float asFloat(double value) { return static_cast<float>(value); }
void copy(Rgb color, float (&to)[3]);

/// Makes of `count` floats in `bytes` what is left of them when they were written
/// to a file as text, in a format of printf, and read.
inline constexpr char kXmlFormat[] = "%.8g", kStreamFormat[] = "%g", kFixedFormat[] = "%f";
void passThroughText(Bytes* bytes, std::size_t offset, std::size_t count, const char* format);

/// Usual results of replays: but for some floats that were text, as recorded.
template <const char* format, std::size_t first, std::size_t count>
Bytes floatsThroughText(const Bytes& recorded, const Bytes&) {
  Bytes result = recorded;
  passThroughText(&result, first * sizeof(float), count, format);
  return result;
}

/// But for `size` bytes that stay live.
template <std::size_t offset, std::size_t size>
Bytes keepLive(const Bytes& recorded, const Bytes& live) {
  Bytes result = recorded;
  std::memcpy(&result[offset], &live[offset], size);
  return result;
}

}  // namespace capture
