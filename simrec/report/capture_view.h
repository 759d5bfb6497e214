// A capture's own section of a page.
#pragma once

#include <functional>

#include "simrec/report/digest.h"
#include "simrec/report/views.h"

namespace simrec::report {

/// What is known of it without pictures: facts, findings, its cameras beside each other.
/// `large`: pictures follow.
Json captureHead(const Digest& digest, const std::string& id, bool large);

/// Calls `use` with each view, one at a time: those with pictures by kind, then the tables of the
/// small records and the list of files. Nothing is thrown for what is in the files.
void forEachGroup(const Capture& capture, const ViewOptions& options, Ids& ids,
                  const std::function<void(const Json& group)>& use);

}  // namespace simrec::report
