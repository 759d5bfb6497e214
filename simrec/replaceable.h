// The bytes of a live record that a readback of a whole file replaces, by the catalogue.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "simrec/record.h"

namespace simrec {

/// One for each of the `size` bytes of the live record: 1 where a file like `record` with nothing
/// missing from it would be put.
std::vector<std::uint8_t> replaceableBytes(const Record& record, std::size_t size);

/// The members of which `replaced`, one for each byte of the live record, lacks some that are in
/// replaceableBytes(): "LuxIndex", "rGain[12] to [220]".
std::vector<std::string> membersLeft(const Record& record,
                                     const std::vector<std::uint8_t>& replaced);

}  // namespace simrec
