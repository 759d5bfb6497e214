// Folders, names and documents of the plain versions.
#pragma once

#include <tinyxml2.h>

#include <string>

#include "bench/family.h"

namespace bench::plain {

inline bool isDump(const Call& call) { return call.info.mode == 0; }

/// The file of a record in its request's folder, which a dump makes.
/// `name` begins with the family: "AWB_TuningMode".
std::string requestFile(const Call& call, const std::string& name, const char* extension);

/// The file of a record in the folder that the call names.
std::string namedFile(const Call& call, const std::string& name, const char* extension);

void makeFolder(const std::string& path);

void writeFile(const std::string& path, const void* data, std::size_t size, int flags);
/// The count that was read.
std::size_t readFile(const std::string& path, void* data, std::size_t size, long offset = 0);

/// A new element with a text; `value` is anything that tinyxml2 takes.
template <typename Value>
void append(tinyxml2::XMLNode& parent, const char* name, Value value) {
  tinyxml2::XMLElement* element = parent.GetDocument()->NewElement(name);
  element->SetText(value);
  parent.InsertEndChild(element);
}

tinyxml2::XMLElement& append(tinyxml2::XMLNode& parent, const char* name);

}  // namespace bench::plain
