#include "simrec/cli/interruption.h"

#include <unistd.h>

#include <atomic>

namespace simrec::cli {
namespace {

std::atomic<int> seen = 0;
static_assert(std::atomic<int>::is_always_lock_free, "signal handlers may set it");

void remember(int signal) { seen = signal; }

}  // namespace

void Interrupted::endProcess() const {
  struct sigaction action = {};
  action.sa_handler = SIG_DFL;
  sigaction(signal, &action, nullptr);
  raise(signal);
  _exit(128 + signal);  // it is blocked
}

Interruption::Interruption() {
  seen = 0;
  struct sigaction action = {};
  action.sa_handler = remember;
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
  for (Held& held : held_) {
    sigaction(held.signal, nullptr, &held.before);
    if (held.before.sa_handler != SIG_IGN) sigaction(held.signal, &action, nullptr);
  }
}

Interruption::~Interruption() {
  for (const Held& held : held_) sigaction(held.signal, &held.before, nullptr);
}

void Interruption::check() const {
  if (const int signal = seen) throw Interrupted{signal};
}

}  // namespace simrec::cli
