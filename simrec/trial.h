// What the library's readback of a file does, found out by doing it: in a child
// process, over live records whose every byte is watched. Whatever the file makes of
// the child is an answer, never an error.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/raw_file.h"
#include "simrec/live_records.h"

namespace simrec {

struct LogLine {
  int level;  ///< as in LogSink
  std::string text;
};

/// What the readback of one file did to two live records that had no byte in common
/// (but those that Codec::prepare puts into both).
struct Trial {
  enum class End : std::uint8_t {
    kReturned,
    kThrew,
    kAborted,
    kOverflowed,  ///< wrote outside the live record
    kTimedOut,
    kOutOfMemory,  ///< a std::bad_alloc left the readback
    kCrashed,      ///< anything else that ended the child
  };

  End end = End::kCrashed;
  std::string exception;     ///< of kThrew: "invalid_argument", "out_of_range", ...
  std::vector<LogLine> log;  ///< of the first run, up to its end

  /// One for each byte of the live record: 1 when the file told it, whatever was there
  /// before. Prepared bytes count as told when all others are. Empty unless both runs
  /// returned or threw.
  std::vector<std::uint8_t> replaced;
};

struct TrialLimits {
  /// What the child may have beyond what it begins with. Not under sanitizers, which
  /// need address space without end.
  std::size_t memory = std::size_t{1} << 30;
  std::chrono::milliseconds time{10'000};  ///< for one file
};

class TrialMemory;

/// Runs trials one after another. One child serves many files; a new one takes the
/// place of one that died. Not for two threads at once, but each may have its own.
class TrialRunner {
 public:
  /// Throws std::system_error when there is no address space (half a GB). `waiting`, where given,
  /// is called some times a second while a trial goes on.
  explicit TrialRunner(TrialLimits limits = {}, std::function<void()> waiting = {});
  ~TrialRunner();
  TrialRunner(const TrialRunner&) = delete;
  TrialRunner& operator=(const TrialRunner&) = delete;

  /// `codec` must be of static storage. `path` should be absolute, else it counts from
  /// the working folder in which a child began; what it names should be a regular file,
  /// since anything else takes all of the time. Throws std::system_error when no child
  /// can be had.
  Trial tryReadback(const Codec& codec, const std::string& path);

  /// The live record after the first run of the last trial, however that ended. Good until the
  /// next one; empty for a record of more than 4 MB.
  std::string_view liveRecord() const { return liveRecord_; }

 private:
  enum class Answer { kDone, kLast, kGone, kLate };

  Trial gather(const Codec& codec, std::size_t size);
  void startChild();
  Answer ask();
  Answer waitForAnswer() const;
  void endChild();

  const TrialLimits limits_;
  const std::function<void()> waiting_;
  const std::unique_ptr<TrialMemory> memory_;
  std::string_view liveRecord_;
  pid_t child_ = -1;
  std::optional<simulation::FileDescriptor> socket_;
};

}  // namespace simrec
