// Whether a list is sound, without its numbers: much faster than reading them. No state, no locks.
#pragma once

#include <cstddef>
#include <string_view>

#include "catalogue/member.h"

namespace simrec {

/// True where `text` is for certain `wanted` whole numbers of this type, with blanks between. False
/// tells nothing: reading the list does.
bool provesList(std::string_view text, catalogue::Type type, std::size_t wanted);

}  // namespace simrec
