#include "core/xml_fields.h"

#include "core/bytes.h"
#include "core/xml_document.h"

namespace simulation {

void writeFloat(tinyxml2::XMLElement& element, const void* member) {
  element.SetText(load<float>(member));
}

void queryFloat(const tinyxml2::XMLElement& element, void* member) {
  float value = load<float>(member);
  element.QueryFloatText(&value);
  store(member, 0, value);
}

void appendField(tinyxml2::XMLElement& parent, const void* record, const XmlField& field) {
  field.write(appendElement(parent, field.name), static_cast<const char*>(record) + field.offset);
}

void applyField(const tinyxml2::XMLElement& parent, void* record, const XmlField& field) {
  const tinyxml2::XMLElement* element = parent.FirstChildElement(field.name);
  if (element != nullptr) field.read(*element, static_cast<char*>(record) + field.offset);
}

}  // namespace simulation
