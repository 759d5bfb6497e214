// Long lists of numbers are kept from the parser: every document must give what
// the parser alone gives.
#include "core/record_document.h"

#include <sstream>

#include "tests/support/camera_data.h"

namespace {

using RecordDocumentTest = CameraDataTest;

std::string textsOf(const tinyxml2::XMLNode& node, bool lists) {
  std::string all;
  for (auto* child = node.FirstChildElement(); child; child = child->NextSiblingElement()) {
    const char* const text = child->GetText();
    all += std::string("<") + child->Name() + ">";
    all += lists ? simulation::textOf(*child).data() : text != nullptr ? text : "";
    all += textsOf(*child, lists);
  }
  return all;
}

TEST_F(RecordDocumentTest, LoadsAsTheParserAloneDoes) {
  std::string list, many;
  for (int i = 0; i < 400; ++i) list += std::to_string(i * 7) + (i % 50 == 0 ? ".5\n-" : " ");
  for (int i = 0; i < 40; ++i) many += "ELEMENT";
  const std::string path = kCamera + "document.xml";
  std::istringstream documents(golden("long_lists.txt"));
  for (std::string text; std::getline(documents, text, '|');) {
    text = replaced(replaced(text, "MANY", many), "ELEMENT", "<n>LIST</n>");
    text = replaced(replaced(text, "LIST", list), "NUL", std::string(1, '\0'));
    writeFile(path, text);
    tinyxml2::XMLDocument parsed;
    simulation::RecordDocument loaded;
    EXPECT_EQ(loaded.load(path.c_str()), parsed.LoadFile(path.c_str())) << text.substr(0, 40);
    EXPECT_TRUE(textsOf(loaded, true) == textsOf(parsed, false)) << text.substr(0, 40);
  }
  for (const char* odd : {"/nowhere", "/dev"}) {
    EXPECT_EQ(simulation::RecordDocument().load(odd), tinyxml2::XMLDocument().LoadFile(odd));
  }
}

}  // namespace
