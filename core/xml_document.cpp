#include "core/xml_document.h"

#include <camx/memory.h>

#include <cstdio>

#include "core/log.h"

namespace simulation {
namespace {

struct CloseStream {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};

}  // namespace

XmlDocument newXmlDocument() {
  return XmlDocument(new (0, 0, nullptr, 0)
                         tinyxml2::XMLDocument(true, tinyxml2::PRESERVE_WHITESPACE));
}

tinyxml2::XMLElement& appendElement(tinyxml2::XMLNode& parent, const char* name) {
  return *parent.InsertEndChild(parent.GetDocument()->NewElement(name))->ToElement();
}

tinyxml2::XMLError saveXml(tinyxml2::XMLDocument& document, const char* path) {
  std::unique_ptr<std::FILE, CloseStream> stream(std::fopen(path, "w"));
  if (stream == nullptr) return tinyxml2::XML_ERROR_FILE_COULD_NOT_BE_OPENED;
  document.SaveFile(stream.get());
  const bool written = std::ferror(stream.get()) == 0;
  const bool closed = std::fclose(stream.release()) == 0;
  return written && closed ? tinyxml2::XML_SUCCESS : tinyxml2::XML_ERROR_FILE_READ_ERROR;
}

void saveXmlAndLog(tinyxml2::XMLDocument& document, const char* path, int successLevel) {
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

const tinyxml2::XMLNode* loadXmlRoot(tinyxml2::XMLDocument& document, const char* path) {
  if (document.LoadFile(path) != tinyxml2::XML_SUCCESS) {
    SimulationLog(kError, "load %s failed", path);
    return nullptr;
  }
  const tinyxml2::XMLNode* root = document.FirstChild();
  if (root == nullptr) SimulationLog(kError, "read xml root failed");
  return root;
}

}  // namespace simulation
