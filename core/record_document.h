// A document whose long lists of numbers stay out of tinyxml2's way: they are
// neither copied nor looked through when it is written, nor parsed when it is
// read. Belongs to the call that made it.
#pragma once

#include <tinyxml2.h>

#include <memory>
#include <string_view>
#include <vector>

#include "core/number_text.h"

namespace simulation {

/// Entities are processed, whitespace is preserved.
class RecordDocument final : public tinyxml2::XMLDocument {
 public:
  /// What LoadFile does, with the same outcome for every file. Texts are to be
  /// had from textOf().
  tinyxml2::XMLError load(const char* path);

 private:
  friend void setNumbers(tinyxml2::XMLElement& element, TextBuilder numbers);
  friend std::string_view textOf(const tinyxml2::XMLElement& element);

  bool loadWithoutLists(const char* path);
  const char* takeLists(std::string_view text, char* out);

  std::vector<TextBuilder> written_;     ///< the lists of a document that is dumped
  std::unique_ptr<char[]> file_;         ///< a file that was loaded
  std::vector<std::string_view> lists_;  ///< the lists in it
};

/// Sets the text of an element of a RecordDocument to a list of numbers.
void setNumbers(tinyxml2::XMLElement& element, TextBuilder numbers);

/// The text of an element of a RecordDocument, with a NUL behind it; empty where
/// it has none.
std::string_view textOf(const tinyxml2::XMLElement& element);

}  // namespace simulation
