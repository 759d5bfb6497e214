// Signals that ask a command to end, held until it can without leaving anything half done.
#pragma once

#include <signal.h>

namespace simrec::cli {

/// Thrown by Interruption::check(). No std::exception: nobody takes it for a failure of the work.
struct Interrupted {
  int signal;
  /// Ends the process by the signal, which is what its caller, a shell perhaps, looks for.
  [[noreturn]] void endProcess() const;
};

/// While it lives, the first of Ctrl-C, SIGTERM and SIGHUP is remembered; after that the same
/// signal ends the process at once. One that is ignored (nohup) stays so. One at a time.
class Interruption {
 public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  /// Throws Interrupted once there was one.
  void check() const;

 private:
  struct Held {
    int signal;
    struct sigaction before;
  };
  Held held_[3] = {{SIGINT, {}}, {SIGTERM, {}}, {SIGHUP, {}}};
};

}  // namespace simrec::cli
