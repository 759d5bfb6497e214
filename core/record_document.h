// A document that is read back. Its long lists of numbers stay out of tinyxml2's
// way. Belongs to the call that made it.
#pragma once

#include <tinyxml2.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/whole_file.h"

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
  void findLists(std::string_view text);
  std::string withMarks(std::string_view text) const;
  bool parses(std::string_view text) {
    return Parse(text.data(), text.size()) == tinyxml2::XML_SUCCESS;
  }

  WholeFile file_;                       ///< the file that was loaded
  std::vector<std::string_view> lists_;  ///< the lists in it
};

/// The text of an element of a RecordDocument, with a NUL behind it; empty where
/// it has none.
std::string_view textOf(const tinyxml2::XMLElement& element);

}  // namespace simulation
