#include "core/xml_document.h"

#include <camx/memory.h>

#include <cstdio>

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

}  // namespace simulation
