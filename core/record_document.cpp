#include "core/record_document.h"

#include <sys/stat.h>

#include <cstdint>

#include "core/raw_file.h"

namespace simulation {
namespace {

/// Stands for a list in the text that is parsed: this character, then a letter
/// that tells which.
constexpr char kListMark = '\x01';
constexpr std::size_t kMostLists = 26;

/// Shorter lists are left to the parser.
constexpr std::size_t kShortestList = 256;

/// Whether `text` could stand between two tags only as what it is: with none of
/// these characters can it begin, end or change anything, wherever in a document.
/// Written, and kept out of line, so that compilers look at many characters at once.
__attribute__((noinline)) bool isList(std::string_view text) {
  std::uint8_t plain = 1;
  for (const char character : text) {
    const auto code = static_cast<std::uint8_t>(character);
    std::uint8_t known = 0;
    if (static_cast<std::uint8_t>(code - '0') < 10) known = 1;
    if (code == ' ') known = 1;
    if (code == '.') known = 1;
    if (code == '-') known = 1;
    if (code == '\n') known = 1;
    plain &= known;
  }
  return plain != 0 && text.front() >= '0' && text.front() <= '9';
}

/// Not where a mark could be the file's own (an entity may stand for it), or become
/// part of a longer text.
bool mayHoldLists(std::string_view text) {
  const auto lacks = [text](auto part) { return text.find(part) == std::string_view::npos; };
  return lacks(kListMark) && lacks('&') && lacks("<![CDATA[");
}

/// The size of a regular file; 0 for anything else.
std::size_t sizeOf(const FileDescriptor& file) {
  struct stat status = {};
  const bool known = file.valid() && fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode);
  return known ? static_cast<std::size_t>(status.st_size) : 0;
}

}  // namespace

tinyxml2::XMLError RecordDocument::load(const char* path) {
  // Whatever is wrong with the file, tinyxml2 says what, and what it could parse.
  if (loadWithoutLists(path)) return tinyxml2::XML_SUCCESS;
  lists_.clear();
  file_.reset();
  return LoadFile(path);
}

bool RecordDocument::loadWithoutLists(const char* path) {
  const FileDescriptor file(open(path, O_RDONLY));
  const std::size_t size = sizeOf(file);
  file_.reset(new char[size]);
  if (size == 0 || readUpTo(file, file_.get(), size) != size) return false;
  const std::string_view text(file_.get(), size);
  const std::unique_ptr<char[]> rest(new char[size]);
  const char* const end = takeLists(text, rest.get());
  if (lists_.empty()) return parses(text);
  if (!mayHoldLists(text)) return false;
  for (const std::string_view list : lists_)
    file_.get()[list.data() + list.size() - file_.get()] = '\0';
  return parses({rest.get(), static_cast<std::size_t>(end - rest.get())});
}

/// Copies `text` to `out`, with marks instead of its lists. Returns the end.
const char* RecordDocument::takeLists(std::string_view text, char* out) {
  std::size_t copied = 0;
  const auto copyUpTo = [&](std::size_t at) { out += text.copy(out, at - copied, copied); };
  for (std::size_t end = 0; lists_.size() < kMostLists;) {
    const std::size_t begin = text.find('>', end) + 1;  // 0 when there is none
    end = text.find('<', begin);
    if (begin == 0 || end == std::string_view::npos) break;
    const std::string_view list = text.substr(begin, end - begin);
    if (list.size() < kShortestList || !isList(list)) continue;
    copyUpTo(begin);
    copied = end;
    *out++ = kListMark;
    *out++ = static_cast<char>('A' + lists_.size());
    lists_.push_back(list);
  }
  copyUpTo(text.size());
  return out;
}

std::string_view textOf(const tinyxml2::XMLElement& element) {
  const char* const text = element.GetText();
  if (text == nullptr) return "";
  const auto* const document = static_cast<const RecordDocument*>(element.GetDocument());
  if (text[0] != kListMark || document->lists_.empty()) return text;
  return document->lists_[static_cast<std::size_t>(text[1] - 'A')];
}

}  // namespace simulation
