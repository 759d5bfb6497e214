// The child's side of trials: a process that runs readbacks until one ends it.
#pragma once

#include <cstddef>

#include "simrec/trial_memory.h"

namespace simrec {

/// What the child answers when it goes on, and when it has used up too much memory to.
inline constexpr char kTrialDone = 'd';
inline constexpr char kTrialDoneLast = 'l';

/// Called right after fork(). Serves the questions that `socket` announces, a byte
/// each, until the other end is closed. Keeps no other descriptor of the parent's, and
/// none of its signal handlers; prints nothing.
[[noreturn]] void serveTrials(const TrialMemory& memory, int socket, std::size_t memoryLimit);

}  // namespace simrec
