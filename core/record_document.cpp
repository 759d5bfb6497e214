#include "core/record_document.h"

#include "core/list_end.h"

namespace simulation {
namespace {

/// Stands for a list in the text that is parsed: this character, then a letter
/// that tells which.
constexpr char kListMark = '\x01';
constexpr std::size_t kMostLists = 26;

/// Shorter lists are left to the parser.
constexpr std::size_t kShortestList = 256;

bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// Not where a mark could be the file's own (an entity may stand for it), or become
/// part of a longer text. What is in lists need not be looked at.
bool mayHoldMarks(std::string_view text) {
  const auto lacks = [text](auto part) { return text.find(part) == std::string_view::npos; };
  return lacks(kListMark) && lacks('&') && lacks("<![CDATA[");
}

}  // namespace

tinyxml2::XMLError RecordDocument::load(const char* path) {
  // Whatever is wrong with the file, tinyxml2 says what, and what it could parse.
  if (loadWithoutLists(path)) return tinyxml2::XML_SUCCESS;
  lists_.clear();
  file_ = {};
  return LoadFile(path);
}

bool RecordDocument::loadWithoutLists(const char* path) {
  file_ = readWholeFile(path);
  if (file_.size == 0) return false;
  const std::string_view text(file_.bytes.get(), file_.size);
  findLists(text);
  if (lists_.empty()) return parses(text);
  const std::string marked = withMarks(text);
  for (const std::string_view list : lists_)
    file_.bytes[static_cast<std::size_t>(list.data() + list.size() - text.data())] = '\0';
  return !marked.empty() && parses(marked);
}

/// Lists stand between two tags. A document that holds one in another place than an
/// element's text, say in a comment, loses it there, where no number is read.
void RecordDocument::findLists(std::string_view text) {
  for (std::size_t at = 0; lists_.size() < kMostLists;) {
    const std::size_t begin = text.find('>', at) + 1;  // 0 when there is none
    if (begin == 0 || text.size() - begin < kShortestList) return;
    at = listEnd(text, begin);
    const std::string_view list = text.substr(begin, at - begin);
    const bool whole = at < text.size() && text[at] == '<';
    if (whole && list.size() >= kShortestList && isDigit(list.front())) lists_.push_back(list);
    at = text.find('<', at);
  }
}

/// The text with marks in the places of its lists; empty where marks could not be told
/// from what the file holds.
std::string RecordDocument::withMarks(std::string_view text) const {
  std::string marked;
  const char* copied = text.data();
  const auto copyUpTo = [&](const char* at) {
    const std::string_view part(copied, static_cast<std::size_t>(at - copied));
    marked += part;
    return mayHoldMarks(part);
  };
  char name = 'A';
  for (const std::string_view list : lists_) {
    if (!copyUpTo(list.data())) return "";
    marked += {kListMark, name++};
    copied = list.data() + list.size();
  }
  return copyUpTo(text.data() + text.size()) ? marked : "";
}

std::string_view textOf(const tinyxml2::XMLElement& element) {
  const char* const text = element.GetText();
  if (text == nullptr) return "";
  const auto* const document = static_cast<const RecordDocument*>(element.GetDocument());
  if (text[0] != kListMark || document->lists_.empty()) return text;
  return document->lists_[static_cast<std::size_t>(text[1] - 'A')];
}

}  // namespace simulation
