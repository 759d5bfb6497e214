// How stage, unstage and set tell what they do.
#pragma once

#include <string>
#include <vector>

#include "simrec/staging.h"

namespace simrec::cli {

/// A line for each change.
void putChanges(const std::vector<Change>& changes);

/// A line for each file that was kept, which is the user's to look at, and for each capture that
/// has gone.
void putNotable(const std::vector<Change>& changes);

/// A line for each record of a capture that is no file.
void putLeftOut(const std::vector<std::string>& names);

std::size_t countOf(Deed deed, const std::vector<Change>& changes);

}  // namespace simrec::cli
