// The values of an XML record by the catalogue's members. No state.
#pragma once

#include <string>
#include <vector>

#include "catalogue/kind.h"
#include "core/record_document.h"
#include "simrec/value.h"

namespace simrec {

struct Reading;

/// What kept `document` from being loaded, in words.
std::string xmlProblem(const simulation::RecordDocument& document);

/// Adds the values that the document has, in the order of the members, and what is odd: members
/// that are missing or no value of their type, elements and attributes that are none.
void readXmlValues(const simulation::RecordDocument& document, const catalogue::Kind& kind,
                   const Reading& reading, Values& values, std::vector<std::string>& problems);

}  // namespace simrec
