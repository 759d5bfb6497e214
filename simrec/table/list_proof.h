// Whether a list is sound, without its numbers: much faster than reading them. No state, no locks.
#pragma once

#include <cstddef>
#include <string_view>

#include "catalogue/member.h"

namespace simrec {

/// Where the list at the beginning of `text` ends, if it is for certain `wanted` whole numbers of
/// this type with blanks between: at the first character that no such list has, or at the end. Null
/// tells nothing: reading the list does.
const char* endOfSoundList(std::string_view text, catalogue::Type type, std::size_t wanted);

}  // namespace simrec
