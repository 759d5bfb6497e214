// Bytes as text of a page. No state.
#pragma once

#include <string>
#include <string_view>

namespace simrec::report {

std::string base64(std::string_view bytes);

/// Compressed as browsers' "deflate" (RFC 1950), in base64.
std::string packed(std::string_view text);

}  // namespace simrec::report
