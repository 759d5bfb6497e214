// Any file as a record document: what it makes of the file, with long lists of
// numbers kept from the parser, must be what the parser alone makes of it.
#include "core/record_document.h"

#include <cstring>

#include "fuzz/support/fuzz.h"

const char* const fuzz::kRecordFiles[] = {nullptr};

namespace {

using tinyxml2::XMLAttribute;
using tinyxml2::XMLElement;
using tinyxml2::XMLNode;

/// Of an attribute, what is before a '>': a list that stands behind one in an
/// attribute is replaced by its mark, where no number is read any more.
std::string_view numberOf(const XMLAttribute& attribute) {
  const std::string_view value = attribute.Value();
  return value.substr(0, value.find('>'));
}

void compareAttributes(const XMLElement& loaded, const XMLElement& parsed) {
  const XMLAttribute* ours = loaded.FirstAttribute();
  const XMLAttribute* theirs = parsed.FirstAttribute();
  for (; ours != nullptr && theirs != nullptr; ours = ours->Next(), theirs = theirs->Next()) {
    fuzz::require(std::strcmp(ours->Name(), theirs->Name()) == 0, "attributes have the same name");
    fuzz::require(numberOf(*ours) == numberOf(*theirs), "attributes have the same value");
  }
  fuzz::require(ours == theirs, "elements have the same attributes");
}

void compareElements(const XMLElement& loaded, const XMLElement& parsed) {
  fuzz::require(std::strcmp(loaded.Name(), parsed.Name()) == 0, "elements have the same name");
  const char* const text = parsed.GetText();
  fuzz::require(simulation::textOf(loaded) == (text != nullptr ? text : ""),
                "elements have the same text");
  compareAttributes(loaded, parsed);
}

bool isText(const XMLNode& node) { return node.ToText() != nullptr; }
bool isElement(const XMLNode& node) { return node.ToElement() != nullptr; }

/// The depth is bounded by the parser.
void compareTrees(const XMLNode& loaded, const XMLNode& parsed) {
  const XMLNode* ours = loaded.FirstChild();
  const XMLNode* theirs = parsed.FirstChild();
  for (; ours != nullptr && theirs != nullptr;
       ours = ours->NextSibling(), theirs = theirs->NextSibling()) {
    fuzz::require(isText(*ours) == isText(*theirs) && isElement(*ours) == isElement(*theirs),
                  "nodes are of the same kind");
    if (isElement(*ours)) compareElements(*ours->ToElement(), *theirs->ToElement());
    compareTrees(*ours, *theirs);
  }
  fuzz::require(ours == theirs, "nodes have as many children");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::setInput(fuzz::textOf(data, size));
  tinyxml2::XMLDocument parsed;
  simulation::RecordDocument loaded;
  const tinyxml2::XMLError error = parsed.LoadFile(fuzz::kInputFile);
  fuzz::require(loaded.load(fuzz::kInputFile) == error, "both loads have the same outcome");
  fuzz::require(loaded.ErrorID() == parsed.ErrorID(), "both documents have the same error");
  compareTrees(loaded, parsed);
  return 0;
}
