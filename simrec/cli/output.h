// Results on stdout, progress on stderr. Used by one thread at a time.
#pragma once

#include <fmt/format.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "simrec/json.h"

namespace simrec::cli {

/// Writes to stdout. Throws Error as soon as it takes no more.
void put(std::string_view text);

template <typename... Argument>
void print(fmt::format_string<Argument...> format, Argument&&... arguments) {
  put(fmt::format(format, std::forward<Argument>(arguments)...));
}

/// What is still in memory, too.
void flushOutput();

/// Whether stdout is a terminal that wants colours.
bool hasColors();

enum class Color { kPlain, kRed, kYellow, kFaint, kBold };
/// `text` in that colour, where there are colours.
std::string colored(Color color, std::string_view text);

/// A document of the form {"schema":1, ..., "items":[...]}, written as it comes.
class JsonDocument {
 public:
  /// `head` has what stands before the items; "schema" is added in front.
  JsonDocument(const Json& head, const char* items);
  void add(std::string_view item);  ///< as JSON text, or the beginning of it
  void end();

 private:
  const char* comma_ = "";
};

/// A bar on stderr, once the work takes more than a second, where stderr is a terminal.
class Progress {
 public:
  enum class Unit { kPieces, kBytes };

  /// `total` 0: not known.
  Progress(const char* what, std::uint64_t total, bool quiet, Unit unit = Unit::kPieces);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// So much more is done; 0: nothing is, but the work goes on.
  void step(std::uint64_t count = 1);

 private:
  std::string amount(std::uint64_t count) const;
  void draw();

  const char* what_;
  std::uint64_t total_, done_ = 0;
  Unit unit_;
  bool shown_;
  std::chrono::steady_clock::time_point next_;
};

}  // namespace simrec::cli
