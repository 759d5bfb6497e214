// Labels as a dump writes them, taken from a chunk of text without a look at each:
// one to three digits and one blank. No state, no locks.
#pragma once

#include <cstddef>
#include <cstdint>

namespace simulation {

/// A chunk's size is a multiple of this, and at most kMostPlain.
inline constexpr std::size_t kPlainStep = 32;
inline constexpr std::size_t kMostPlain = 512;

/// Puts the low 8 bits of each label that ends in the `size` characters at `text` to
/// `labels`, and up to four bytes more. Returns their number; 0 when there is
/// anything but plain labels. A blank stands before `text`, where three characters can
/// be read.
std::size_t takePlainLabels(const char* text, std::size_t size, std::uint8_t* labels);

}  // namespace simulation
