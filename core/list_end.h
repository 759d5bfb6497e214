// Where a long list of numbers ends in a document's text. No state, no locks.
#pragma once

#include <cstddef>
#include <string_view>

namespace simulation {

/// The first place from `begin` on with a character that no list has, or the end. A
/// text of digits, blanks, points, minus signs and line feeds can't begin, end or
/// change anything, wherever it stands in a document.
std::size_t listEnd(std::string_view text, std::size_t begin);

}  // namespace simulation
