// Copies and moves of files that keep their times and modes, and their owners where this
// process may give files away.
#pragma once

#include <filesystem>

namespace simulation_host {

/// Copies a file, or a folder with all that it holds; `to` does not exist. The copy of a
/// folder is open to its owner, whatever its mode was. Throws std::runtime_error; what
/// was copied until then stays.
void copyKept(const std::filesystem::path& from, const std::filesystem::path& to);

/// To another file system too, and over a file. At any time `to` is the old file or the
/// whole new one. Throws std::runtime_error; `from` is still there then.
void moveKept(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace simulation_host
