// Flat XML records as tables: one row for each member of the caller's record,
// one loop to dump the rows and one to read them back. No state, no locks.
#pragma once

#include <tinyxml2.h>

#include <cstddef>

namespace simulation {

/// One member of a record and the element that carries it as its text.
struct XmlField {
  const char* name;
  std::size_t offset;  ///< of the member in the record
  void (*write)(tinyxml2::XMLElement& element, const void* member);
  void (*read)(const tinyxml2::XMLElement& element, void* member);
};

/// A float in tinyxml2's text form (up to eight significant digits), with a
/// point whatever the process's locale.
void writeFloat(tinyxml2::XMLElement& element, const void* member);

/// The same back; a text that is no number leaves the member.
void queryFloat(const tinyxml2::XMLElement& element, void* member);

/// The same two for an attribute; a missing one leaves the member, too.
void writeFloatAttribute(tinyxml2::XMLElement& element, const char* name, const void* member);
void queryFloatAttribute(const tinyxml2::XMLElement& element, const char* name, void* member);

/// An attribute that is a 64-bit unsigned number, and back.
void writeUnsigned64Attribute(tinyxml2::XMLElement& element, const char* name, const void* member);
void queryUnsigned64Attribute(const tinyxml2::XMLElement& element, const char* name, void* member);

/// Appends one element to `parent` for each row, in order.
template <typename Fields>
void appendFields(tinyxml2::XMLElement& parent, const void* record, const Fields& fields);

/// Reads the first child element of each row's name, in order; a missing one
/// leaves its member.
template <typename Fields>
void applyFields(const tinyxml2::XMLElement& parent, void* record, const Fields& fields);

void appendField(tinyxml2::XMLElement& parent, const void* record, const XmlField& field);
void applyField(const tinyxml2::XMLElement& parent, void* record, const XmlField& field);

template <typename Fields>
void appendFields(tinyxml2::XMLElement& parent, const void* record, const Fields& fields) {
  for (const XmlField& field : fields) appendField(parent, record, field);
}

template <typename Fields>
void applyFields(const tinyxml2::XMLElement& parent, void* record, const Fields& fields) {
  for (const XmlField& field : fields) applyField(parent, record, field);
}

}  // namespace simulation
