// What is wrong with the files of a capture, and what a readback of each would do. The verdict is
// the library's: every file is tried out in a child process.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "simrec/record.h"
#include "simrec/trial.h"

namespace simrec {

enum class Severity { kError, kWarning, kNote };
const char* nameOf(Severity severity);

enum class Readback {
  kWhole,
  kPartly,  ///< some members are replaced
  kNone,    ///< the live data stays
  kThrows,
  kAborts,     ///< the camera process ends
  kOverflows,  ///< writes past the caller's record
  kHangs,
  kUnread,  ///< no readback looks for a file of this name
};
const char* nameOf(Readback readback);

struct Finding {
  std::string file;  ///< as on disk; empty: the capture itself
  Severity severity;
  std::string what;  ///< printable
  Readback readback;
};

/// How large the files of the kinds are whose size only the caller knows.
using SizeSurvey = std::map<const catalogue::Kind*, std::map<std::uint64_t, std::size_t>>;

/// Counts the files of all captures; folders that can't be read, or are not there, have none.
/// Calls `looked` after each.
SizeSurvey surveySizes(
    const Store& store, const std::function<void()>& looked = [] {});

/// Not for two threads at once.
class Doctor {
 public:
  /// `working`, where given, is called again and again while a file is tried out.
  explicit Doctor(SizeSurvey sizes, std::function<void()> working = {})
      : sizes_(std::move(sizes)), trials_({}, std::move(working)) {}

  /// By file; a sound capture has none. Calls `examined` after each file.
  std::vector<Finding> examine(
      const Capture& capture, const std::function<void()>& examined = [] {});

 private:
  void examineFile(const Capture& capture, const File& file, std::vector<Finding>& findings);

  const SizeSurvey sizes_;
  TrialRunner trials_;
};

}  // namespace simrec
