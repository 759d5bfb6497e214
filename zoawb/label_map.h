// The segmentation's label map as text: each of its bytes in decimal, followed
// by one blank. No state, no locks.
#pragma once

#include <tinyxml2.h>

#include "core/xml_printer.h"

namespace simulation {

/// Writes a map of QSegImageInfo::kStatsSize bytes.
void writeLabelMap(XmlPrinter& printer, const void* map);

/// Splits the element's text at each blank, converts every piece as std::stoi
/// does and stores the low 8 bits. A last piece without a blank is dropped, and
/// fewer values leave the rest of the map. A piece that is no number throws
/// before anything is stored; more values than the map holds abort.
void readLabelMap(const tinyxml2::XMLElement& element, void* map);

}  // namespace simulation
