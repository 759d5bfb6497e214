// A document that is read back. Its long lists of numbers stay out of tinyxml2's
// way. Belongs to the call that made it.
#pragma once

#include <tinyxml2.h>

#include <memory>
#include <string_view>
#include <vector>

namespace simulation {

/// Entities are processed, whitespace is preserved.
class RecordDocument final : public tinyxml2::XMLDocument {
 public:
  /// What LoadFile does, with the same outcome for every regular file. Texts are
  /// to be had from textOf().
  tinyxml2::XMLError load(const char* path);

 private:
  friend std::string_view textOf(const tinyxml2::XMLElement& element);

  bool loadWithoutLists(const char* path);
  const char* takeLists(std::string_view text, char* out);
  bool parses(std::string_view text) {
    return Parse(text.data(), text.size()) == tinyxml2::XML_SUCCESS;
  }

  std::unique_ptr<char[]> file_;         ///< the file that was loaded
  std::vector<std::string_view> lists_;  ///< the lists in it
};

/// The text of an element of a RecordDocument, with a NUL behind it; empty where
/// it has none.
std::string_view textOf(const tinyxml2::XMLElement& element);

}  // namespace simulation
