// Flat XML records as tables: one row for each member of the caller's record,
// one loop to dump the rows and one to read them back. No state, no locks.
#pragma once

#include <tinyxml2.h>

#include <cstddef>

#include "core/bytes.h"
#include "core/fatal.h"
#include "core/record_document.h"
#include "core/xml_printer.h"

namespace simulation {

/// One member of a record and the element that carries it.
struct XmlField {
  const char* name;
  std::size_t offset;  ///< of the member in the record
  /// Writes what is in the element; null where a dump leaves the member out.
  void (*write)(XmlPrinter& printer, const void* member);
  /// Stores what the element holds. A null member stands for one past its table:
  /// storing into it aborts.
  void (*read)(const tinyxml2::XMLElement& element, void* member);
};

/// The rows of a table, in the order of the document.
class XmlFields {
 public:
  template <std::size_t Count>
  constexpr XmlFields(const XmlField (&rows)[Count]) : begin_(rows), end_(rows + Count) {}

  const XmlField* begin() const { return begin_; }
  const XmlField* end() const { return end_; }

 private:
  const XmlField* begin_;
  const XmlField* end_;
};

/// Writes one element for each row, in order.
void printFields(XmlPrinter& printer, const void* record, XmlFields fields);

/// Reads the first child element of each row's name, in order; a missing one
/// leaves its member.
void applyFields(const tinyxml2::XMLNode& parent, void* record, XmlFields fields);

/// A fixed number of like items, each an element of its own.
struct XmlArray {
  const char* name;
  std::size_t count;
  std::size_t stride;  ///< from item to item in the record
  XmlFields item;
};

void printArray(XmlPrinter& printer, const void* items, const XmlArray& array);

/// Reads the child elements of `parent` into the items in document order,
/// whatever their names. A child past the last item that would store something
/// aborts.
void applyArray(const tinyxml2::XMLNode& parent, void* items, const XmlArray& array);

/// @name Kinds of members, for the rows of a table
/// The readers named after a standard conversion throw what it throws, for an
/// element without text too.
/// @{
void writeInt(XmlPrinter& printer, const void* member);
void readInt(const tinyxml2::XMLElement& element, void* member);  ///< std::stoi

/// A float in tinyxml2's text form (up to eight significant digits), with a
/// point whatever the process's locale.
void writeFloat(XmlPrinter& printer, const void* member);
void readFloat(const tinyxml2::XMLElement& element, void* member);  ///< std::stof
/// A text that is no number leaves the member.
void queryFloat(const tinyxml2::XMLElement& element, void* member);

template <typename Word>
void writeWord(XmlPrinter& printer, const void* member);
/// The low bits of std::stoll's result.
template <typename Word>
void readLowBits(const tinyxml2::XMLElement& element, void* member);
/// @}

/// Stores element `index` of a member; for readers of one's own.
template <typename Value>
void storeMember(void* member, Value value, std::size_t index = 0) {
  if (member == nullptr) fatal();
  store(member, index * sizeof value, value);
}

/// @name Members that are an attribute
/// An attribute that is missing or no number leaves the member.
/// @{
void writeFloatAttribute(XmlPrinter& printer, const char* name, const void* member);
void queryFloatAttribute(const tinyxml2::XMLElement& element, const char* name, void* member);
void writeUnsigned64Attribute(XmlPrinter& printer, const char* name, const void* member);
void queryUnsigned64Attribute(const tinyxml2::XMLElement& element, const char* name, void* member);
/// @}

}  // namespace simulation
