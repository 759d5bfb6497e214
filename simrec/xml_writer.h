// XML records written from their values, by the library's own printers: what the library dumped
// and nobody changed comes out as the same bytes.
#pragma once

#include <string>

#include "catalogue/kind.h"
#include "simrec/value.h"

namespace simrec {

/// Writes a record to `path`, over what is there. Throws Error when the file did not take it
/// all; a part of it may be there then.
void writeXmlRecord(const catalogue::Kind& kind, const Values& values, const std::string& path);

/// A float at the digits that its file holds.
Number throughText(float value, catalogue::Digits digits);

}  // namespace simrec
