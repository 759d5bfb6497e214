// The memory that a trial and its child process share: the question, the answer, and
// two live records, each right before pages that nobody may touch. Belongs to one
// runner, which sets it up before it forks.
#pragma once

#include <climits>
#include <cstddef>
#include <cstdint>
#include <string>

#include "simrec/live_records.h"
#include "simrec/trial.h"

namespace simrec {

/// What stands in shared memory beside the live records.
struct TrialSheet {
  enum class State : std::uint8_t { kAsked, kRunning, kEnded };

  const Codec* codec;
  std::size_t size;         ///< of the live record
  char path[2 * PATH_MAX];  ///< one that is cut here can't be opened either way
  State state;              ///< kEnded: `end` and what follows are told
  bool compared;            ///< both live records went through a readback
  Trial::End end;
  char exception[32];
  std::size_t logUsed;
  char log[65536];  ///< lines, each after its level and its length

  /// Appends a line while there is room.
  void addLine(int level, std::string_view text);

  /// A child that went wild may have written anything here.
  std::vector<LogLine> lines() const;
};

class TrialMemory {
 public:
  TrialMemory();
  ~TrialMemory();
  TrialMemory(const TrialMemory&) = delete;
  TrialMemory& operator=(const TrialMemory&) = delete;

  TrialSheet& sheet() const { return *sheet_; }

  /// Live record 0 or 1, with a hole behind its last byte and one before its pages.
  char* live(std::size_t which, std::size_t size) const;

  /// Whether `address` is in a hole.
  bool isHole(const void* address) const;

  /// Gives back the pages of both live records.
  void release() const;

 private:
  char* const holes_;  ///< all of it; the live records are islands in it
  TrialSheet* sheet_;
};

}  // namespace simrec
