// Files copied, and known again by their content. No state.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "simrec/directory.h"

namespace simrec {

/// A content as far as it must be known again. Where two contents of one size differ in a single
/// byte, their hashes differ for sure.
struct Content {
  std::uint64_t bytes = 0;
  std::uint64_t hash = 0;

  bool operator==(const Content& other) const { return bytes == other.bytes && hash == other.hash; }
};

/// Of a regular file; none where its rights keep us from reading it. Throws Error.
std::optional<Content> contentOf(const Directory& folder, const std::string& name);

/// Copies a regular file, or what a link leads to, to a name where nothing stands. The copy has
/// the rights of the original as far as the umask goes. Throws Error.
Content copyFile(const Directory& from, const std::string& name, const Directory& to,
                 const std::string& newName);

}  // namespace simrec
