// The page's own files (style, script, templates, the plotting library), which the build puts into
// the program. Constant data.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace simrec::report {

struct Asset {
  std::string_view name;  ///< of the file
  std::string_view text;
  std::string_view hash;  ///< as a Content-Security-Policy has it: "sha256-..."
};

/// Throws std::logic_error for a file that was not built in.
const Asset& asset(std::string_view name);

}  // namespace simrec::report
