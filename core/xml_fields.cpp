#include "core/xml_fields.h"

#include <cstdint>

#include "core/bytes.h"
#include "core/number_text.h"

namespace simulation {
namespace {

void storeFloat(const char* text, void* member) {
  float value;
  if (text != nullptr && scanFloat(text, value)) storeMember(member, value);
}

}  // namespace

void printFields(XmlPrinter& printer, const void* record, XmlFields fields) {
  for (const XmlField& field : fields) {
    if (field.write == nullptr) continue;
    printer.OpenElement(field.name);
    field.write(printer, static_cast<const char*>(record) + field.offset);
    printer.CloseElement();
  }
}

void applyFields(const tinyxml2::XMLNode& parent, void* record, XmlFields fields) {
  for (const XmlField& field : fields) {
    const tinyxml2::XMLElement* element = parent.FirstChildElement(field.name);
    if (element == nullptr) continue;
    field.read(*element, record != nullptr ? static_cast<char*>(record) + field.offset : nullptr);
  }
}

void printArray(XmlPrinter& printer, const void* items, const XmlArray& array) {
  for (std::size_t i = 0; i < array.count; ++i) {
    printer.OpenElement(array.name);
    printFields(printer, static_cast<const char*>(items) + i * array.stride, array.item);
    printer.CloseElement();
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

void writeInt(XmlPrinter& printer, const void* member) {
  printer.pushNumber(writeSigned, load<std::int32_t>(member));
}

void readInt(const tinyxml2::XMLElement& element, void* member) {
  storeMember(member, toInt(textOf(element)));
}

void writeFloat(XmlPrinter& printer, const void* member) {
  printer.pushNumber(writeXmlFloat, load<float>(member));
}

void readFloat(const tinyxml2::XMLElement& element, void* member) {
  storeMember(member, toFloat(textOf(element)));
}

void queryFloat(const tinyxml2::XMLElement& element, void* member) {
  const tinyxml2::XMLNode* first = element.FirstChild();
  if (first != nullptr && first->ToText() != nullptr) storeFloat(textOf(element).data(), member);
}

template <typename Word>
void writeWord(XmlPrinter& printer, const void* member) {
  printer.pushNumber(writeUnsigned, load<Word>(member));
}

template <typename Word>
void readLowBits(const tinyxml2::XMLElement& element, void* member) {
  storeMember(member, static_cast<Word>(toLongLong(textOf(element))));
}

template void writeWord<std::uint16_t>(XmlPrinter&, const void*);
template void writeWord<std::uint32_t>(XmlPrinter&, const void*);
template void writeWord<std::uint64_t>(XmlPrinter&, const void*);
template void readLowBits<std::uint16_t>(const tinyxml2::XMLElement&, void*);
template void readLowBits<std::uint32_t>(const tinyxml2::XMLElement&, void*);
template void readLowBits<std::uint64_t>(const tinyxml2::XMLElement&, void*);

void writeFloatAttribute(XmlPrinter& printer, const char* name, const void* member) {
  char text[kXmlFloatRoom + 1];
  *writeXmlFloat(text, load<float>(member)) = '\0';
  printer.PushAttribute(name, text);
}

void queryFloatAttribute(const tinyxml2::XMLElement& element, const char* name, void* member) {
  storeFloat(element.Attribute(name), member);
}

void writeUnsigned64Attribute(XmlPrinter& printer, const char* name, const void* member) {
  printer.PushAttribute(name, load<std::uint64_t>(member));
}

void queryUnsigned64Attribute(const tinyxml2::XMLElement& element, const char* name, void* member) {
  std::uint64_t value;
  if (element.QueryUnsigned64Attribute(name, &value) == tinyxml2::XML_SUCCESS) {
    storeMember(member, value);
  }
}

}  // namespace simulation
