// What every fuzz target shares. A target turns its input into the file that a
// readback reads, in a private /data/vendor/camera, and calls the operation on
// memory whose end the address sanitizer guards. One thread only.
#pragma once

#include <simulation/records.h>
#include <simulation/simulation.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

/// Ends the process, which the fuzzer takes as a finding, unless `holds`.
void require(bool holds, const char* claim);

/// The files under /data/vendor/camera that the target's operations read: each
/// of them shows the input. Defined by the target, closed by a null.
extern const char* const kRecordFiles[];

/// Where the input is.
inline constexpr char kInputFile[] = "/data/vendor/camera/input";

/// Makes `input` the content of all record files.
void setInput(std::string_view input);

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// The caller's record: a heap block of exactly `size` bytes, filled with values
/// that differ from place to place.
class Record {
 public:
  explicit Record(std::size_t size);

  /// For a big record that serves more than one input: makes it as it was at first.
  void refill();

  void* data() { return bytes_.get(); }
  std::size_t size() const { return live_.size(); }

  /// What the record held before, to be changed into what is expected of it.
  std::string& live() { return live_; }

  /// Sets bytes both of the record and of what is expected.
  template <typename Value>
  void set(std::size_t offset, Value value) {
    std::memcpy(bytes_.get() + offset, &value, sizeof value);
    live_.replace(offset, sizeof value, bytes_.get() + offset, sizeof value);
  }

  /// Whether bytes `begin` to `end` are as expected.
  bool isLive(std::size_t begin, std::size_t end) const;
  bool isLive() const { return isLive(0, size()); }

 private:
  std::unique_ptr<char[]> bytes_;
  std::string live_;
};

/// How an operation ends, or the plain replay that tells how it should.
enum class Outcome { kReturned, kInvalidArgument, kOutOfRange, kBoundBroken };

/// What the fatal helper throws instead of ending the process.
struct Fatal {};

/// Any other exception goes on, and the fuzzer reports it.
Outcome outcomeOf(const std::function<void()>& action);

struct Result {
  std::vector<std::string> log;
  bool keptDocument = false;  ///< a document was left allocated; it is released by now
  int keptBlocks = 0;         ///< the same for CamxCalloc

  /// Whether a message begins with `text`.
  bool logged(std::string_view text) const;
  /// Whether a message ends with " success".
  bool claimsSuccess() const;
};

/// Calls `operation` and checks what holds for all of them: the outcome that is due
/// and no other, no descriptor left open, nothing after a claim of success.
Result run(Outcome due, const std::function<void(Simulation&)>& operation);

/// The context of a readback.
SimulationInfo readback();

}  // namespace fuzz
