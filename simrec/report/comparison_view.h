// Two captures side by side.
#pragma once

#include <functional>

#include "simrec/report/views.h"

namespace simrec::report {

/// Calls `use` with the table of what differs, then with the pictures of each pair that differs,
/// one group at a time. Throws Error where a folder can't be read.
void forEachDifference(const Capture& a, const Capture& b, Ids& ids,
                       const std::function<void(const Json& group)>& use);

}  // namespace simrec::report
