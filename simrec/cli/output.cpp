#include "simrec/cli/output.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "simrec/error.h"
#include "simrec/text.h"

namespace simrec::cli {
namespace {

using namespace std::chrono_literals;

/// The bar that stands on stderr; empty: none.
std::string bar;

/// What is on the terminal ends within a line, over which a bar would be drawn.
bool lineIsOpen = false;

bool writesToTerminal() {
  static const bool terminal = isatty(STDOUT_FILENO) == 1;
  return terminal;
}

void drawBar() { std::fputs(bar.c_str(), stderr); }

void eraseBar() {
  if (!bar.empty()) std::fputs("\r\x1b[K", stderr);
}

void fail() { throw Error(std::string("stdout: ") + std::strerror(errno)); }

void write(std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) fail();
}

/// Both may be the same terminal.
void writeAroundBar(std::string_view text) {
  eraseBar();
  lineIsOpen = text.back() != '\n';
  if (lineIsOpen) bar.clear();
  write(text);
  drawBar();
}

}  // namespace

void put(std::string_view text) {
  if (text.empty()) return;
  writesToTerminal() ? writeAroundBar(text) : write(text);
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

Progress::Progress(const char* what, std::uint64_t total, bool quiet, Unit unit)
    : what_(what),
      total_(total),
      unit_(unit),
      shown_(!quiet && isatty(STDERR_FILENO) == 1),
      next_(std::chrono::steady_clock::now() + 1s) {}

Progress::~Progress() {
  eraseBar();
  bar.clear();
}

void Progress::step(std::uint64_t count) {
  done_ += count;
  if (!shown_ || lineIsOpen) return;
  const auto now = std::chrono::steady_clock::now();
  if (now < next_) return;
  next_ = now + 100ms;
  draw();
}

std::string Progress::amount(std::uint64_t count) const {
  return unit_ == Unit::kBytes ? sizeText(count) : std::to_string(count);
}

void Progress::draw() {
  bar = fmt::format("\r{} {}\x1b[K", what_, amount(done_));
  if (total_ > 0) {
    constexpr std::size_t kWidth = 30;
    const double share = static_cast<double>(done_) / static_cast<double>(total_);
    const auto filled = static_cast<std::size_t>(kWidth * std::min(share, 1.0));
    bar = fmt::format("\r{} [{}{}] {}/{}\x1b[K", what_, std::string(filled, '#'),
                      std::string(kWidth - filled, '.'), amount(done_), amount(total_));
  }
  drawBar();
}

}  // namespace simrec::cli
