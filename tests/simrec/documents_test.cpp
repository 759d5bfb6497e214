// The README's table of records and the pages on the formats say what the catalogue does.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <vector>

#include "catalogue/kind.h"
#include "tests/support/camera_data.h"

using catalogue::Format;
using catalogue::Kind;

namespace {

std::string document(const char* name) { return readFile(std::string(SIMULATION_FOLDER) + name); }

/// As the documents write it.
std::string fileName(const Kind& kind) {
  std::string name = kind.pattern;
  for (const auto& [part, letter] :
       {std::pair{"{camera}", "c"}, {"{ev}", "e"}, {"{index}", "i"}, {"{text}", "<text>"}}) {
    name = replaced(name, part, letter);
  }
  return name;
}

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// The row of the README's table; as one text, so that the table can be made of it.
std::string readmeRow(const Kind& kind) {
  const bool named = kind.place == catalogue::Place::kNamed;
  const std::string bytes = kind.bytes == 0 ? "" : ", " + std::to_string(kind.bytes) + " bytes";
  return "| `" + std::string(kind.operation) + "` | " + (named ? "named: " : "") + "`" +
         fileName(kind) + "` | " + kind.content + bytes +
         (kind.firstDumpWins ? "; the first dump stays" : "") + " | " + kind.readback + " |\n";
}

TEST(Documents, TheReadmesTableIsTheCatalogue) {
  std::string table;
  for (const Kind& kind : catalogue::kinds()) table += readmeRow(kind);
  EXPECT_TRUE(contains(document("README.md"), table)) << table;
}

/// The kinds of a section of the formats' page, and its text: a row of the table of binary
/// files, or an XML section.
struct Section {
  std::string text;
  std::vector<const Kind*> kinds;
};

std::vector<Section> sectionsOfFormats() {
  std::vector<Section> sections;
  bool xml = false;
  std::istringstream lines(document("doc/formats.md"));
  for (std::string line; std::getline(lines, line);) {
    xml = xml || line == "## XML files";
    if (!xml || line.rfind("### ", 0) == 0) sections.emplace_back();
    sections.back().text += line + "\n";
    for (const Kind& kind : catalogue::kinds()) {
      if (contains(line, "`simulation_" + fileName(kind) + "`")) {
        sections.back().kinds.push_back(&kind);
      }
    }
  }
  return sections;
}

void expectMembers(const std::string& text, const catalogue::Members& members, const Kind& kind) {
  for (const catalogue::Member& member : members) {
    EXPECT_TRUE(contains(text, "`" + std::string(member.name) + "`"))
        << kind.name << "'s " << member.name;
    expectMembers(text, member.members, kind);
  }
}

TEST(Documents, ThePageOnFormatsNamesEveryKindAndMember) {
  std::size_t kinds = 0;
  for (const Section& section : sectionsOfFormats()) {
    bool named = false, stays = false;
    for (const Kind* const kind : section.kinds) {
      ++kinds;
      named = named || kind->place == catalogue::Place::kNamed;
      stays = stays || kind->firstDumpWins;
      expectMembers(section.text, kind->members, *kind);
      for (const std::string& part :
           {std::string(kind->root != nullptr ? kind->root : ""),
            std::string(kind->wrapper != nullptr ? kind->wrapper : ""),
            kind->bytes == 0 ? std::string() : std::to_string(kind->bytes)}) {
        EXPECT_TRUE(contains(section.text, part)) << kind->name << ": " << part;
      }
      const std::string live = "bytes 0 to " + std::to_string(kind->liveHead - 1) + " stay live";
      EXPECT_EQ(contains(section.text, live), kind->liveHead != 0) << kind->name;
    }
    if (section.kinds.empty()) continue;
    EXPECT_EQ(contains(section.text, "named folder"), named) << section.text;
    EXPECT_EQ(contains(section.text, "first dump stays"), stays) << section.text;
  }
  EXPECT_EQ(kinds, catalogue::kinds().size());
}

}  // namespace
