// XML record files: making, saving and loading their documents. No state, no
// locks; a document belongs to the call that made it.
#pragma once

#include <tinyxml2.h>

#include <memory>

#include "core/record_document.h"

namespace simulation {

using XmlDocument = std::unique_ptr<RecordDocument>;

/// An empty document, accounted for by the pipeline. Null when there is no
/// memory.
XmlDocument newXmlDocument();

/// A new element called `name`, the last child of `parent`.
tinyxml2::XMLElement& appendElement(tinyxml2::XMLNode& parent, const char* name);

/// Writes the document, indented, to `path`. Success means that every byte was
/// taken by the file: a full disk is XML_ERROR_FILE_READ_ERROR, tinyxml2's
/// nearest name, and may leave a part of the document behind.
tinyxml2::XMLError saveXml(const tinyxml2::XMLDocument& document, const char* path);

/// The same, telling the outcome in the log: a success at `successLevel`.
void saveXmlAndLog(const tinyxml2::XMLDocument& document, const char* path, int successLevel);

/// The first child element called `name`; a missing one is logged and null.
const tinyxml2::XMLElement* findElement(const tinyxml2::XMLNode& parent, const char* name);

/// Loads `path` and returns the document's first node as it is, which need not
/// be an element. A failure is logged and gives null.
const tinyxml2::XMLNode* loadXmlRoot(RecordDocument& document, const char* path);

}  // namespace simulation
