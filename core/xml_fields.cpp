#include "core/xml_fields.h"

#include <cstdint>

#include "core/bytes.h"
#include "core/fatal.h"
#include "core/number_text.h"
#include "core/xml_document.h"

namespace simulation {
namespace {

/// A number as a NUL-terminated text.
struct NumberText {
  template <typename Write, typename Value>
  NumberText(Write write, Value value) {
    *write(text, value) = '\0';
  }
  char text[kUnsignedRoom + 1];
};
static_assert(kUnsignedRoom >= kSignedRoom && kUnsignedRoom >= kXmlFloatRoom);

template <typename Value>
void storeMember(void* member, Value value) {
  if (member == nullptr) fatal();
  store(member, 0, value);
}

void storeFloat(const char* text, void* member) {
  float value;
  if (text != nullptr && scanFloat(text, value)) storeMember(member, value);
}

}  // namespace

void appendFields(tinyxml2::XMLElement& parent, const void* record, XmlFields fields) {
  for (const XmlField& field : fields) {
    if (field.write == nullptr) continue;
    field.write(appendElement(parent, field.name), static_cast<const char*>(record) + field.offset);
  }
}

void applyFields(const tinyxml2::XMLNode& parent, void* record, XmlFields fields) {
  for (const XmlField& field : fields) {
    const tinyxml2::XMLElement* element = parent.FirstChildElement(field.name);
    if (element == nullptr) continue;
    field.read(*element, record != nullptr ? static_cast<char*>(record) + field.offset : nullptr);
  }
}

void appendArray(tinyxml2::XMLElement& parent, const void* items, const XmlArray& array) {
  for (std::size_t i = 0; i < array.count; ++i) {
    appendFields(appendElement(parent, array.name),
                 static_cast<const char*>(items) + i * array.stride, array.item);
  }
}

void applyArray(const tinyxml2::XMLNode& parent, void* items, const XmlArray& array) {
  std::size_t i = 0;
  for (auto* child = parent.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement(), ++i) {
    const bool inside = items != nullptr && i < array.count;
    applyFields(*child, inside ? static_cast<char*>(items) + i * array.stride : nullptr,
                array.item);
  }
}

void writeInt(tinyxml2::XMLElement& element, const void* member) {
  element.SetText(NumberText(writeSigned, load<std::int32_t>(member)).text);
}

void readInt(const tinyxml2::XMLElement& element, void* member) {
  storeMember(member, toInt(textOf(element)));
}

void writeFloat(tinyxml2::XMLElement& element, const void* member) {
  element.SetText(NumberText(writeXmlFloat, load<float>(member)).text);
}

void readFloat(const tinyxml2::XMLElement& element, void* member) {
  storeMember(member, toFloat(textOf(element)));
}

void queryFloat(const tinyxml2::XMLElement& element, void* member) {
  const tinyxml2::XMLNode* first = element.FirstChild();
  if (first != nullptr && first->ToText() != nullptr) storeFloat(textOf(element).data(), member);
}

template <typename Word>
void writeWord(tinyxml2::XMLElement& element, const void* member) {
  element.SetText(NumberText(writeUnsigned, load<Word>(member)).text);
}

template <typename Word>
void readLowBits(const tinyxml2::XMLElement& element, void* member) {
  storeMember(member, static_cast<Word>(toLongLong(textOf(element))));
}

template void writeWord<std::uint16_t>(tinyxml2::XMLElement&, const void*);
template void writeWord<std::uint32_t>(tinyxml2::XMLElement&, const void*);
template void writeWord<std::uint64_t>(tinyxml2::XMLElement&, const void*);
template void readLowBits<std::uint16_t>(const tinyxml2::XMLElement&, void*);
template void readLowBits<std::uint32_t>(const tinyxml2::XMLElement&, void*);
template void readLowBits<std::uint64_t>(const tinyxml2::XMLElement&, void*);

void writeFloatAttribute(tinyxml2::XMLElement& element, const char* name, const void* member) {
  element.SetAttribute(name, NumberText(writeXmlFloat, load<float>(member)).text);
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

}  // namespace simulation
