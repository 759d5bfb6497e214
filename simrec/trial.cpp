#include "simrec/trial.h"

#include <poll.h>
#include <simulation/simulation.h>
#include <sys/socket.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <system_error>
#include <utility>

#include "core/log.h"
#include "simrec/trial_child.h"
#include "simrec/trial_memory.h"

namespace simrec {
namespace {

using State = TrialSheet::State;

/// Larger live records than this don't stay in memory.
constexpr std::size_t kMostKept = std::size_t{4} << 20;

void putQuestion(TrialSheet& sheet, const Codec& codec, const std::string& path, std::size_t size) {
  sheet.codec = &codec;
  sheet.size = size;
  sheet.path[path.copy(sheet.path, sizeof sheet.path - 1)] = '\0';
  sheet.state = State::kAsked;
  sheet.compared = false;
  sheet.exception[0] = '\0';
  sheet.logUsed = 0;
}

bool isPrepared(const Codec& codec, std::size_t at) {
  return std::any_of(codec.prepared.begin(), codec.prepared.end(),
                     [at](const ByteRange& range) { return at >= range.begin && at < range.end; });
}

/// What is the same now was not before, but for the prepared bytes.
std::vector<std::uint8_t> compare(const Codec& codec, const char* one, const char* other,
                                  std::size_t size) {
  std::vector<std::uint8_t> same(size);
  std::transform(one, one + size, other, same.begin(), [](char a, char b) { return a == b; });
  if (codec.prepare == nullptr) return same;
  if (std::all_of(same.begin(), same.end(), [](std::uint8_t byte) { return byte != 0; })) {
    return same;
  }
  for (std::size_t i = 0; i < size; ++i) {
    if (isPrepared(codec, i)) same[i] = 0;
  }
  return same;
}

/// The library's and this program's values that are made on first use: made before a
/// fork, none can be half made in a child by a thread that is not there.
void makeStatics() {
  SimulationMgr::getInstance();
  simulation::SimulationLog(0, "%s", "");  // below every threshold, which is read all the same
}

}  // namespace

TrialRunner::TrialRunner(TrialLimits limits, std::function<void()> waiting)
    : limits_(limits), waiting_(std::move(waiting)), memory_(std::make_unique<TrialMemory>()) {
  makeStatics();
}

TrialRunner::~TrialRunner() { endChild(); }

Trial TrialRunner::tryReadback(const Codec& codec, const std::string& path) {
  TrialSheet& sheet = memory_->sheet();
  const std::size_t size = liveSize(codec, path);
  // A child that someone else ended while it had nothing to do gets a successor.
  for (int attempt = 0; attempt < 3; ++attempt) {
    if (child_ < 0) startChild();
    putQuestion(sheet, codec, path, size);
    const Answer answer = ask();
    if (answer != Answer::kDone) endChild();
    if (sheet.state == State::kRunning) {
      sheet.end = answer == Answer::kLate ? Trial::End::kTimedOut : Trial::End::kCrashed;
      sheet.state = State::kEnded;
    }
    if (sheet.state == State::kEnded) return gather(codec, size);
  }
  throw std::system_error(ECHILD, std::generic_category(), "no process to try readbacks in");
}

Trial TrialRunner::gather(const Codec& codec, std::size_t size) {
  const TrialSheet& sheet = memory_->sheet();
  const char* const live = memory_->live(0, size);
  Trial trial;
  trial.end = sheet.end;
  trial.exception.assign(sheet.exception, strnlen(sheet.exception, sizeof sheet.exception));
  trial.log = sheet.lines();
  if (sheet.compared) {
    trial.replaced = compare(codec, live, memory_->live(1, size), size);
  }
  liveRecord_ = {live, size};
  if (size > kMostKept) {
    liveRecord_ = {};
    memory_->release();
  }
  return trial;
}

void TrialRunner::startChild() {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
    throw std::system_error(errno, std::generic_category(), "no socket to try readbacks with");
  }
  socket_.emplace(ends[0]);
  const simulation::FileDescriptor childsEnd(ends[1]);
  child_ = fork();
  if (child_ == 0) serveTrials(*memory_, childsEnd.get(), limits_.memory);
  if (child_ < 0) {
    throw std::system_error(errno, std::generic_category(), "no process to try readbacks in");
  }
}

TrialRunner::Answer TrialRunner::ask() {
  constexpr char kQuestion = '?';
  if (send(socket_->get(), &kQuestion, 1, MSG_NOSIGNAL) != 1) return Answer::kGone;
  return waitForAnswer();
}

TrialRunner::Answer TrialRunner::waitForAnswer() const {
  using std::chrono::steady_clock;
  const auto deadline = steady_clock::now() + limits_.time;
  pollfd answered = {socket_->get(), POLLIN, 0};
  for (;;) {
    constexpr std::chrono::milliseconds kNothing{0}, kPiece{100};
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - steady_clock::now());
    const int ready =
        poll(&answered, 1, static_cast<int>(std::clamp(left, kNothing, kPiece).count()));
    if (ready > 0) break;
    if (ready < 0 && errno != EINTR) return Answer::kLate;
    if (left <= kNothing) return Answer::kLate;
    if (waiting_) waiting_();
  }
  char byte = 0;
  if (recv(socket_->get(), &byte, 1, 0) != 1) return Answer::kGone;
  return byte == kTrialDoneLast ? Answer::kLast : Answer::kDone;
}

/// Leaves neither a process nor a descriptor behind.
void TrialRunner::endChild() {
  if (child_ < 0) return;
  kill(child_, SIGKILL);
  while (waitpid(child_, nullptr, 0) < 0 && errno == EINTR) {
  }
  child_ = -1;
  socket_.reset();
}

}  // namespace simrec
