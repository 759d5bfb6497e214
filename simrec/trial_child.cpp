#include "simrec/trial_child.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <initializer_list>
#include <new>
#include <stdexcept>
#include <string_view>

#include "simrec/platform.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define SIMREC_SANITIZED true
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || \
    __has_feature(memory_sanitizer)
#define SIMREC_SANITIZED true
#endif
#endif
#ifndef SIMREC_SANITIZED
#define SIMREC_SANITIZED false
#endif

namespace simrec {
namespace {

using End = Trial::End;

constexpr bool kSanitized = SIMREC_SANITIZED;

constexpr int kSocket = 3;  ///< where the child has its end

/// A readback that throws keeps its document, so a child grows. Beyond this it makes
/// room for a new one.
constexpr std::size_t kMostGrowth = std::size_t{64} << 20;

const TrialMemory* sharedMemory = nullptr;  ///< for the signal handler

/// Says how the child ends, since a parent that ignores its children can't ask.
void onDeath(int signal, siginfo_t* info, void*) {
  TrialSheet& sheet = sharedMemory->sheet();
  const bool hole = signal == SIGSEGV && sharedMemory->isHole(info->si_addr);
  sheet.end = signal == SIGABRT ? End::kAborted : hole ? End::kOverflowed : End::kCrashed;
  sheet.state = TrialSheet::State::kEnded;
  _exit(1);
}

/// On a stack of its own, for one that overflowed.
void catchDeath() {
  alignas(16) static char stack[65536];
  stack_t alternate = {};
  alternate.ss_sp = stack;
  alternate.ss_size = sizeof stack;
  sigaltstack(&alternate, nullptr);
  struct sigaction action = {};
  action.sa_sigaction = onDeath;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  for (const int signal : {SIGSEGV, SIGBUS, SIGABRT, SIGFPE, SIGILL}) {
    sigaction(signal, &action, nullptr);
  }
}

void forgetSignals() {
  for (int signal = 1; signal < NSIG; ++signal) std::signal(signal, SIG_DFL);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
}

void forgetDescriptors(int socket) {
  dup2(socket, kSocket);
  close_range(kSocket + 1, ~0U, 0);
  const int nothing = open("/dev/null", O_RDWR);
  for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nothing, standard);
  if (nothing > kSocket) close(nothing);
}

/// Bytes of address space in use; 0 where nothing tells.
std::size_t addressSpace() {
  char text[32] = {};
  const simulation::FileDescriptor file(open("/proc/self/statm", O_RDONLY));
  if (file.valid()) simulation::readUpTo(file, text, sizeof text - 1);
  return std::strtoull(text, nullptr, 10) * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

void limit(decltype(RLIMIT_AS) resource, rlim_t most) {
  rlimit limits = {};
  getrlimit(resource, &limits);
  limits.rlim_cur = std::min(most, limits.rlim_max);
  setrlimit(resource, &limits);
}

End threw(TrialSheet& sheet, std::string_view what) {
  sheet.exception[what.copy(sheet.exception, sizeof sheet.exception - 1)] = '\0';
  return End::kThrew;
}

End readBack(TrialSheet& sheet, char* live) {
  try {
    sheet.codec->read(sheet.path, live, sheet.size);
    return End::kReturned;
  } catch (const std::bad_alloc&) {
    return End::kOutOfMemory;
  } catch (const std::invalid_argument&) {
    return threw(sheet, "invalid_argument");
  } catch (const std::out_of_range&) {
    return threw(sheet, "out_of_range");
  } catch (const std::exception&) {
    return threw(sheet, "exception");
  } catch (...) {
    return threw(sheet, "unknown");
  }
}

/// Bytes that differ between the two live records, everywhere.
void fill(char* live, std::size_t size, std::size_t which) {
  const std::uint8_t flip = which == 0 ? 0 : 0xFF;
  std::uint8_t next = 3;
  for (std::size_t i = 0; i < size; ++i, ++next) live[i] = static_cast<char>(next ^ flip);
}

void runTrial(const TrialMemory& memory) {
  TrialSheet& sheet = memory.sheet();
  sheet.state = TrialSheet::State::kRunning;
  for (std::size_t which = 0; which < 2; ++which) {
    char* const live = memory.live(which, sheet.size);
    fill(live, sheet.size, which);
    if (sheet.codec->prepare != nullptr) sheet.codec->prepare(sheet.path, live);
  }
  End second = End::kOutOfMemory;
  {
    const LogCatcher catcher(
        [&sheet](int level, std::string_view text) { sheet.addLine(level, text); });
    sheet.end = readBack(sheet, memory.live(0, sheet.size));
  }
  if (sheet.end != End::kOutOfMemory) second = readBack(sheet, memory.live(1, sheet.size));
  sheet.compared = second != End::kOutOfMemory;
  if (!sheet.compared) sheet.end = End::kOutOfMemory;
  sheet.state = TrialSheet::State::kEnded;
}

}  // namespace

void serveTrials(const TrialMemory& memory, int socket, std::size_t memoryLimit) {
  forgetSignals();
  forgetDescriptors(socket);
  sharedMemory = &memory;
  catchDeath();
  const std::size_t start = addressSpace();
  limit(RLIMIT_CORE, 0);
  if (!kSanitized) limit(RLIMIT_AS, start + memoryLimit);
  char byte;
  while (read(kSocket, &byte, 1) == 1) {
    runTrial(memory);
    byte = addressSpace() > start + kMostGrowth ? kTrialDoneLast : kTrialDone;
    if (write(kSocket, &byte, 1) != 1 || byte == kTrialDoneLast) break;
  }
  _exit(0);
}

}  // namespace simrec
