// Seeds aimed at the readers of long lists, which look at many characters at once.
#pragma once

#include <filesystem>

namespace fuzz {

/// Fills the folders of the targets document, lsc, qseg and stats.
void writeListSeeds(const std::filesystem::path& folder);

}  // namespace fuzz
