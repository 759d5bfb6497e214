#include "core/xml_fields.h"

#include "core/bytes.h"
#include "core/number_text.h"
#include "core/xml_document.h"

namespace simulation {
namespace {

/// A float member as a NUL-terminated text.
struct FloatText {
  explicit FloatText(const void* member) { *writeXmlFloat(text, load<float>(member)) = '\0'; }
  char text[kXmlFloatRoom + 1];
};

void storeFloat(const char* text, void* member) {
  float value;
  if (text != nullptr && scanFloat(text, value)) store(member, 0, value);
}

}  // namespace

void writeFloat(tinyxml2::XMLElement& element, const void* member) {
  element.SetText(FloatText(member).text);
}

void queryFloat(const tinyxml2::XMLElement& element, void* member) {
  const tinyxml2::XMLNode* first = element.FirstChild();
  if (first != nullptr && first->ToText() != nullptr) storeFloat(first->Value(), member);
}

void writeFloatAttribute(tinyxml2::XMLElement& element, const char* name, const void* member) {
  element.SetAttribute(name, FloatText(member).text);
}

void queryFloatAttribute(const tinyxml2::XMLElement& element, const char* name, void* member) {
  storeFloat(element.Attribute(name), member);
}

void writeUnsigned64Attribute(tinyxml2::XMLElement& element, const char* name, const void* member) {
  element.SetAttribute(name, load<std::uint64_t>(member));
}

void queryUnsigned64Attribute(const tinyxml2::XMLElement& element, const char* name, void* member) {
  std::uint64_t value;
  if (element.QueryUnsigned64Attribute(name, &value) == tinyxml2::XML_SUCCESS) {
    store(member, 0, value);
  }
}

void appendField(tinyxml2::XMLElement& parent, const void* record, const XmlField& field) {
  field.write(appendElement(parent, field.name), static_cast<const char*>(record) + field.offset);
}

void applyField(const tinyxml2::XMLElement& parent, void* record, const XmlField& field) {
  const tinyxml2::XMLElement* element = parent.FirstChildElement(field.name);
  if (element != nullptr) field.read(*element, static_cast<char*>(record) + field.offset);
}

}  // namespace simulation
