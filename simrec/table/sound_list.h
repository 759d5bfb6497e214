// Lists of whole numbers as the library writes them, read in one pass. No state, no locks.
#pragma once

#include <cstddef>
#include <string_view>

#include "catalogue/member.h"
#include "simrec/value.h"

namespace simrec {

/// The list at the beginning of `text`, if it is `wanted` whole numbers of this type, digits alone
/// and a blank behind each; returns where what follows the last blank begins. Null tells nothing:
/// parseList() knows what else is a list, and what is wrong with it.
const char* readSoundList(std::string_view text, catalogue::Type type, std::size_t wanted,
                          NumberList::Values& values);

}  // namespace simrec
