// A bounded text for paths: what does not fit is cut silently, as every path and
// file name of the library is.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace simulation {

/// A text of the caller's; a missing one is shown as "%s" shows it.
inline const char* textOrNull(const char* text) { return text != nullptr ? text : "(null)"; }

/// A path of at most Size - 1 characters, made by joining texts and numbers:
/// `Path(prefix, "_TuningMode_camId[", camId, "].bin")`.
template <std::size_t Size>
class BoundedPath {
 public:
  template <typename... Piece>
  explicit BoundedPath(const Piece&... pieces) {
    (append(pieces), ...);
  }

  const char* c_str() const { return text_.data(); }
  char* data() { return text_.data(); }
  std::string_view view() const { return {text_.data(), length_}; }

 private:
  void append(std::string_view piece) {
    length_ += piece.copy(text_.data() + length_, Size - 1 - length_);
  }
  void append(const char* piece) { append(std::string_view(textOrNull(piece))); }
  void append(const BoundedPath& piece) { append(piece.view()); }

  /// In decimal, as "%d" shows it.
  void append(int number) {
    char digits[11];
    char* const end = digits + sizeof digits;
    char* begin = end;
    const bool negative = number < 0;
    auto rest = static_cast<std::uint32_t>(number);
    if (negative) rest = 0U - rest;
    do {
      *--begin = static_cast<char>('0' + rest % 10);
      rest /= 10;
    } while (rest != 0);
    if (negative) *--begin = '-';
    append(std::string_view(begin, static_cast<std::size_t>(end - begin)));
  }
  /// An id: file names show it as "%d" does, its 32 bits taken as signed.
  void append(unsigned int id) { append(static_cast<int>(id)); }

  std::array<char, Size> text_{};
  std::size_t length_ = 0;
};

/// The size of every path buffer of the record operations.
using Path = BoundedPath<128>;

}  // namespace simulation
