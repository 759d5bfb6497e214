#include "core/xml_document.h"

#include <camx/memory.h>

#include "core/log.h"

namespace simulation {

XmlDocument newXmlDocument() { return XmlDocument(new (0, 0, nullptr, 0) RecordDocument); }

const tinyxml2::XMLElement* findElement(const tinyxml2::XMLNode& parent, const char* name) {
  const tinyxml2::XMLElement* element = parent.FirstChildElement(name);
  if (element == nullptr) SimulationLog(kError, "read %s element failed", name);
  return element;
}

const tinyxml2::XMLNode* loadXmlRoot(RecordDocument& document, const char* path) {
  if (document.load(path) != tinyxml2::XML_SUCCESS) {
    SimulationLog(kError, "load %s failed", path);
    return nullptr;
  }
  const tinyxml2::XMLNode* root = document.FirstChild();
  if (root == nullptr) SimulationLog(kError, "read xml root failed");
  return root;
}

}  // namespace simulation
