#include "simrec/cli/output.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "simrec/error.h"

namespace simrec::cli {
namespace {

using namespace std::chrono_literals;

/// Whether a bar stands on stderr.
bool barDrawn = false;

void eraseBar() {
  if (barDrawn) std::fputs("\r\x1b[K", stderr);
  barDrawn = false;
}

void fail() { throw Error(std::string("stdout: ") + std::strerror(errno)); }

}  // namespace

void put(std::string_view text) {
  eraseBar();  // both may be the same terminal
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) fail();
}

void flushOutput() {
  if (std::fflush(stdout) != 0) fail();
}

bool hasColors() {
  const char* const no = std::getenv("NO_COLOR");
  return isatty(STDOUT_FILENO) == 1 && (no == nullptr || *no == '\0');
}

std::string colored(Color color, std::string_view text) {
  static const bool colors = hasColors();
  constexpr const char* kCodes[] = {"", "31", "33", "2", "1"};
  if (!colors || color == Color::kPlain) return std::string(text);
  return fmt::format("\x1b[{}m{}\x1b[0m", kCodes[static_cast<int>(color)], text);
}

JsonDocument::JsonDocument(const Json& head, const char* items) {
  Json document = {{"schema", 1}};
  document.update(head);
  std::string text = dump(document);
  text.pop_back();
  put(text + ",\"" + items + "\":[");
}

void JsonDocument::add(std::string_view item) {
  put(comma_);
  put(item);
  comma_ = ",\n";
}

void JsonDocument::end() { put("]}\n"); }

Progress::Progress(const char* what, std::uint64_t total, bool quiet)
    : what_(what),
      total_(total),
      shown_(!quiet && isatty(STDERR_FILENO) == 1),
      next_(std::chrono::steady_clock::now() + 1s) {}

Progress::~Progress() { eraseBar(); }

void Progress::step(std::uint64_t count) {
  done_ += count;
  if (!shown_) return;
  const auto now = std::chrono::steady_clock::now();
  if (now < next_) return;
  next_ = now + 100ms;
  draw();
}

void Progress::draw() {
  barDrawn = true;
  if (total_ == 0) {
    fmt::print(stderr, "\r{} {}\x1b[K", what_, done_);
    return;
  }
  constexpr std::size_t kWidth = 30;
  const auto filled = static_cast<std::size_t>(kWidth * std::min(done_, total_) / total_);
  fmt::print(stderr, "\r{} [{}{}] {}/{}\x1b[K", what_, std::string(filled, '#'),
             std::string(kWidth - filled, '.'), done_, total_);
}

}  // namespace simrec::cli
