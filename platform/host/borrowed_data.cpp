#include "borrowed_data.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include "loan.h"

namespace simulation_host {
namespace {

/// Tells the programs started with a borrowed folder: they would wait for their own end.
constexpr char kBorrowed[] = "SIMULATION_CAMERA_DATA_BORROWED";

void tell(const std::string& what) {
  std::fprintf(stderr, "%s: %s\n", program_invocation_short_name, what.c_str());
}

void tellOfAside(const std::string& folder) {
  if (folder.empty()) return;
  tell(std::string("files in ") + kCameraData + " that had no safe place to go are now in " +
       folder);
}

/// Locks the root folder: it is there for every user of the same /data, and nothing is
/// left of the lock. The descriptor stays open in this process and all that it starts. At
/// its end the guardian gives the turn to the next, and a program left in the background
/// loses the folder; of a guardian that was killed, the next waits for all that it has started.
int waitForTurn() {
  constexpr int kAfterStandardStreams = 3;
  const int root = open("/", O_RDONLY | O_DIRECTORY);
  const int lock = fcntl(root, F_DUPFD, kAfterStandardStreams);
  if (root >= 0) close(root);
  if (flock(lock, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    tell(std::string("waits for another program that uses ") + kCameraData);
    while (flock(lock, LOCK_EX) != 0 && errno == EINTR) continue;
  }
  if (flock(lock, LOCK_EX) != 0) {
    throw std::runtime_error(std::string("locking the root folder: ") + std::strerror(errno));
  }
  return lock;
}

/// What this process would be ended by, and what tells that its child has ended.
sigset_t guardedSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGCHLD, SIGHUP, SIGINT, SIGQUIT, SIGTERM}) sigaddset(&signals, signal);
  return signals;
}

/// Waits for the end of the child. It gets the signals that were meant for it, but for those
/// of the terminal, which it has got.
int waitFor(pid_t child, const sigset_t& signals) {
  int status = 0;
  while (waitpid(child, &status, WNOHANG) == 0) {
    siginfo_t info;
    const int signal = sigwaitinfo(&signals, &info);
    if (signal > 0 && signal != SIGCHLD && info.si_code <= 0) kill(child, signal);
  }
  return status;
}

/// Ends this process as its child has ended.
[[noreturn]] void endAs(int status) {
  if (WIFSIGNALED(status)) {
    const rlimit noSecondCore = {0, 0};
    setrlimit(RLIMIT_CORE, &noSecondCore);
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, WTERMSIG(status));
    std::signal(WTERMSIG(status), SIG_DFL);
    std::raise(WTERMSIG(status));
    sigprocmask(SIG_UNBLOCK, &signals, nullptr);
  }
  _exit(WEXITSTATUS(status));
}

[[noreturn]] void guard(pid_t child, const sigset_t& signals, int lock) {
  int status = waitFor(child, signals);
  try {
    tellOfAside(endLoan());
  } catch (const std::exception& error) {
    tell(error.what());
    if (status == 0) status = W_EXITCODE(EXIT_FAILURE, 0);
  }
  flock(lock, LOCK_UN);
  endAs(status);
}

/// Returns 0 in the child, else why there is none.
int goOnGuarded(int lock) {
  const sigset_t signals = guardedSignals();
  sigset_t before;
  sigprocmask(SIG_BLOCK, &signals, &before);
  const auto onChild = std::signal(SIGCHLD, SIG_DFL);
  const pid_t guardian = getpid();
  const pid_t child = fork();
  if (child > 0) guard(child, signals, lock);
  const int error = errno;
  std::signal(SIGCHLD, onChild);
  sigprocmask(SIG_SETMASK, &before, nullptr);
  if (child < 0) return error;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != guardian) _exit(EXIT_FAILURE);
  setenv(kBorrowed, "1", 1);
  return 0;
}

}  // namespace

std::string borrowCameraData(const std::string& folder) {
  if (std::getenv(kBorrowed) != nullptr) return "a program around this one has borrowed it";
  try {
    const int lock = waitForTurn();
    tellOfAside(endStaleLoan());
    takeLoan(folder);
    if (const int error = goOnGuarded(lock); error != 0) {
      tellOfAside(endLoan());
      return std::string("a new process: ") + std::strerror(error);
    }
    return {};
  } catch (const std::exception& error) {
    return error.what();
  }
}

}  // namespace simulation_host
