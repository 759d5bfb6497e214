#include "core/xml_document.h"

#include <camx/memory.h>

#include "core/log.h"
#include "core/raw_file.h"
#include "core/xml_printer.h"

namespace simulation {

XmlDocument newXmlDocument() { return XmlDocument(new (0, 0, nullptr, 0) RecordDocument); }

tinyxml2::XMLElement& appendElement(tinyxml2::XMLNode& parent, const char* name) {
  return *parent.InsertEndChild(parent.GetDocument()->NewElement(name))->ToElement();
}

tinyxml2::XMLError saveXml(const tinyxml2::XMLDocument& document, const char* path) {
  FileDescriptor file(open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666));
  if (!file.valid()) return tinyxml2::XML_ERROR_FILE_COULD_NOT_BE_OPENED;
  XmlPrinter printer(file);
  document.Print(&printer);
  const bool written = printer.finish();
  const bool closed = file.close();
  return written && closed ? tinyxml2::XML_SUCCESS : tinyxml2::XML_ERROR_FILE_READ_ERROR;
}

void saveXmlAndLog(const tinyxml2::XMLDocument& document, const char* path, int successLevel) {
  const tinyxml2::XMLError error = saveXml(document, path);
  if (error == tinyxml2::XML_SUCCESS) {
    SimulationLog(successLevel, "dump %s success", path);
  } else {
    SimulationLog(kError, "dump %s failed, Error: %s", path,
                  tinyxml2::XMLDocument::ErrorIDToName(error));
  }
}

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
