// Long lists of numbers are kept from the parser: every document must give what
// the parser alone gives.
#include "core/record_document.h"

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
  std::string list;
  for (int i = 0; i < 400; ++i) list += std::to_string(i * 7) + (i % 50 == 0 ? ".5\n-" : " ");
  const std::string path = kCamera + "document.xml";
  const std::string element = "<n>" + list + "</n>";
  std::string many;
  for (int i = 0; i < 40; ++i) many += element;
  const std::string documents[] = {
      "<a>" + element + "<b>x</b>" + element + "</a>",
      "<a>" + many + "</a>",
      "<?xml version=\"1.0\"?><!-- >" + list + "<n> --><a>" + element + "</a>",
      "<a><![CDATA[>" + list + "<]]>" + element + "</a>",
      "<a x=\">" + list + "<\">" + element + "</a>",
      "<a><n> " + list + "</n><n>" + list + "&#65;</n><n>" + list + "\r\n</n></a>",
      "<a><n>" + list + "<b>1</b>" + list + "</n></a>",
      "<a>\x01"
      "A</a>",
      "<a><n>\x01"
      "A</n>" +
          element + "</a>",
      "<a><n>" + list + "\x01</n></a>",
      "<a><n>&#1;A</n>" + element + "<n>&#x1;Z</n></a>",
      "<a>" + element + "<n>&#1;A</n></b>",
      "<a>" + element + "</b>",
      "<a>" + element,
      "<a><n>" + list,
      "<a>" + element + "</a>" + list,
      list,
      element + std::string(1, '\0') + element,
      "\xEF\xBB\xBF" + element,
      ">" + list + "<",
      "",
  };
  for (const std::string& text : documents) {
    writeFile(path, text);
    tinyxml2::XMLDocument parsed;
    simulation::RecordDocument loaded;
    EXPECT_EQ(loaded.load(path.c_str()), parsed.LoadFile(path.c_str())) << text.substr(0, 40);
    EXPECT_TRUE(textsOf(loaded, true) == textsOf(parsed, false)) << text.substr(0, 40);
  }
  simulation::RecordDocument missing;
  EXPECT_EQ(missing.load("/nowhere"), tinyxml2::XML_ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(missing.load("/dev"), tinyxml2::XMLDocument().LoadFile("/dev"));
}

}  // namespace
