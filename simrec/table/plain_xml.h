// XML records as the library writes them: each member in its place and sound, nothing else there.
// No state.
#pragma once

#include <string_view>

#include "simrec/table/row.h"

namespace simrec {

/// Fills the cells of the row's members from `text`, which must stay where it is. False where the
/// text is anything else, sound or not: the members' cells are good for nothing then.
bool readPlainXml(std::string_view text, Row& row);

}  // namespace simrec
