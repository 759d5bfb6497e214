// What a page says of all its captures: rows with thumbnails, findings, timelines, and whether the
// cameras of a request agree.
#pragma once

#include <vector>

#include "simrec/report/digest.h"
#include "simrec/report/parts.h"

namespace simrec::report {

/// A row for each capture. `sections` has the id of each one's own section; empty: it has none.
Json overviewRows(const std::vector<Digest>& digests, const std::vector<std::string>& sections);

/// A finding of a capture.
Json findingRow(const Finding& finding);

/// Every finding of every capture, errors first.
Json findingRows(const std::vector<Digest>& digests, const std::vector<std::string>& sections);

/// Graphs over requests, the table of the same numbers, and from which request on exposure had
/// settled; false: no capture has any.
Json timelines(const std::vector<Digest>& digests);

/// The cameras of one capture beside each other, with what is to be said of them; false: there are
/// fewer than two.
Json cameraComparison(const std::vector<Moment>& moments);

/// The requests whose cameras are not consistent, of those that lie in folders of their own.
Json requestConsistency(const std::vector<Digest>& digests);

}  // namespace simrec::report
