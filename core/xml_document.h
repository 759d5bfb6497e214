// XML record files that are read back: their documents, and what a missing part
// logs. No state, no locks; a document belongs to the call that made it.
#pragma once

#include <tinyxml2.h>

#include <memory>

#include "core/record_document.h"

namespace simulation {

using XmlDocument = std::unique_ptr<RecordDocument>;

/// An empty document, accounted for by the pipeline. Null when there is no
/// memory.
XmlDocument newXmlDocument();

/// The first child element called `name`; a missing one is logged and null.
const tinyxml2::XMLElement* findElement(const tinyxml2::XMLNode& parent, const char* name);

/// Loads `path` and returns the document's first node as it is, which need not
/// be an element. A failure is logged and gives null.
const tinyxml2::XMLNode* loadXmlRoot(RecordDocument& document, const char* path);

}  // namespace simulation
