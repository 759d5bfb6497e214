#include "simrec/xml_values.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <optional>

#include "simrec/number.h"
#include "simrec/record.h"
#include "simrec/text.h"

namespace simrec {
namespace {

using catalogue::Carrier;
using catalogue::Kind;
using catalogue::Member;
using catalogue::Members;
using catalogue::Replay;
using catalogue::Shape;
using tinyxml2::XMLElement;

/// The number that `text` begins with, where the standard conversions would take one. Hexadecimal
/// digits are for doctor's trials to tell.
std::optional<Number> leadingNumber(std::string_view text, catalogue::Type type) {
  constexpr std::size_t kLongest = 64;
  for (std::size_t size = std::min(text.size(), kLongest); size > 0; --size) {
    const auto parsed = parseNumber(text.substr(0, size), type);
    const auto* const number = std::get_if<Number>(&parsed);
    if (number == nullptr) continue;
    const bool hexadecimal = size < text.size() && (text[size] == 'x' || text[size] == 'X');
    return hexadecimal && number->approximately() == 0 ? std::nullopt : std::optional(*number);
  }
  return std::nullopt;
}

/// Reads the members of one element after the other; what it finds odd is told with the
/// member's path.
class Reader {
 public:
  Reader(const Reading& reading, std::vector<std::string>& problems)
      : reading_(reading), problems_(problems) {}

  Values read(const XMLElement& parent, const Members& members, const std::string& path) {
    Values values;
    values.reserve(members.size());
    for (const Member& member : members) {
      if (auto value = readMember(parent, member, path + member.name)) {
        values.push_back(std::move(*value));
      }
    }
    tellUnknown(parent, members, path);
    return values;
  }

  /// What stands beside a wrapper.
  void tellOthers(const XMLElement& root, const char* wrapper) {
    const Member lone[] = {{wrapper, Shape::kGroup}};
    tellUnknown(root, lone, "");
  }

  void tell(const std::string& problem) {
    constexpr std::size_t kMostProblems = 20;
    if (problems_.size() < kMostProblems) problems_.push_back(problem);
  }

 private:
  std::optional<Value> readMember(const XMLElement& parent, const Member& member,
                                  const std::string& path) {
    if (member.carrier == Carrier::kAttribute) {
      const char* const text = parent.Attribute(member.name);
      if (text != nullptr) return readText(text, member, path);
    } else if (const XMLElement* const element = parent.FirstChildElement(member.name)) {
      return readElement(*element, member, path);
    }
    if (member.replay != Replay::kOnlyReplaced) tell(path + " is missing");
    return std::nullopt;
  }

  std::optional<Value> readElement(const XMLElement& element, const Member& member,
                                   const std::string& path) {
    switch (member.shape) {
      case Shape::kGroup:
        return Value{&member, read(element, member.members, path + ".")};
      case Shape::kArray:
        return readItems(element, member, path);
      case Shape::kNumber:
      case Shape::kList:
        break;
    }
    return readText(simulation::textOf(element), member, path);
  }

  /// As a readback does: whatever the items are called.
  Value readItems(const XMLElement& element, const Member& member, const std::string& path) {
    std::vector<Values> items;
    for (const XMLElement* child = element.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
      if (items.size() == member.count) {
        tell(fmt::format("{}: more than {} items", path, member.count));
        break;
      }
      items.push_back(read(*child, member.members, fmt::format("{}[{}].", path, items.size())));
    }
    if (items.size() < member.count) {
      tell(fmt::format("{}: {} instead of {}", path, counted(items.size(), "item"), member.count));
    }
    return {&member, std::move(items)};
  }

  std::optional<Value> readText(std::string_view text, const Member& member,
                                const std::string& path) {
    if (member.shape == Shape::kList) {
      if (!reading_.lists) return std::nullopt;
      std::string problem;
      NumberList list = parseList(text, member.type, kMostTimes * member.count, problem);
      if (!problem.empty()) tell(path + ": " + problem);
      return Value{&member, std::move(list)};
    }
    if (member.replay == Replay::kFirstByte) {  // a truth value in the eyes of a readback
      if (text == "true") text = "1";
      if (text == "false") text = "0";
    }
    const auto parsed = parseNumber(text, member.type);
    std::optional<Number> number;
    if (const auto* const problem = std::get_if<std::string>(&parsed)) {
      tell(path + ": " + *problem);
      if (reading_.leading) number = leadingNumber(text, member.type);
    } else {
      number = std::get<Number>(parsed);
    }
    if (!number) return std::nullopt;
    number->text = text;
    return Value{&member, *number};
  }

  static bool isKnown(const Members& members, const char* name, Carrier carrier) {
    for (const Member& member : members) {
      if (member.carrier == carrier && std::strcmp(member.name, name) == 0) return true;
    }
    return false;
  }

  void tellUnknown(const XMLElement& parent, const Members& members, const std::string& path) {
    for (auto* child = parent.FirstChildElement(); child; child = child->NextSiblingElement()) {
      if (isKnown(members, child->Name(), Carrier::kElement)) {
        if (child == parent.FirstChildElement(child->Name())) continue;
        tell(fmt::format("<{}> stands there again: the first counts", path + child->Name()));
        continue;
      }
      tell(fmt::format("<{}> is no member", path + shortened(child->Name())));
    }
    for (auto* attribute = parent.FirstAttribute(); attribute; attribute = attribute->Next()) {
      if (isKnown(members, attribute->Name(), Carrier::kAttribute)) continue;
      tell(fmt::format("the attribute {} is no member", path + shortened(attribute->Name())));
    }
  }

  /// Of a list that is longer than any should be, this many times as much is looked at.
  static constexpr std::size_t kMostTimes = 4;

  const Reading& reading_;
  std::vector<std::string>& problems_;
};

/// A list that ends early, or goes on for too long. Of one that was not read to its end the
/// numbers are not counted.
void tellLengths(const Values& values, Reader& reader) {
  std::size_t regions = 0;
  bool grid = false;
  if (const Value* const count = find(values, "numROIs")) {
    regions = static_cast<std::size_t>(count->number()->integer);
    grid = true;
  }
  for (const Value& value : values) {
    const NumberList* const list = value.list();
    if (list == nullptr || !list->whole) continue;
    const bool perRegion = grid && value.member->carrier == Carrier::kElement;
    const std::size_t wanted = perRegion ? regions : value.member->count;
    if (list->size() == wanted) continue;
    reader.tell(fmt::format("{}: {} instead of {}", value.member->name,
                            counted(list->size(), "number"), wanted));
  }
}

const char* wordsFor(tinyxml2::XMLError error) {
  switch (error) {
    case tinyxml2::XML_ERROR_MISMATCHED_ELEMENT:
      return "an element is not closed, or by another's name";
    case tinyxml2::XML_ERROR_PARSING_ATTRIBUTE:
      return "an attribute is damaged";
    case tinyxml2::XML_ELEMENT_DEPTH_EXCEEDED:
      return "elements are nested too deeply";
    case tinyxml2::XML_ERROR_FILE_NOT_FOUND:
    case tinyxml2::XML_ERROR_FILE_COULD_NOT_BE_OPENED:
    case tinyxml2::XML_ERROR_FILE_READ_ERROR:
      return "can't be read";
    case tinyxml2::XML_ERROR_EMPTY_DOCUMENT:
      return "holds no XML";
    default:
      return "the XML is damaged";
  }
}

}  // namespace

std::string xmlProblem(const simulation::RecordDocument& document) {
  const std::string words = wordsFor(document.ErrorID());
  return document.ErrorLineNum() > 0 ? fmt::format("{} (line {})", words, document.ErrorLineNum())
                                     : words;
}

void readXmlValues(const simulation::RecordDocument& document, const Kind& kind,
                   const Reading& reading, Values& values, std::vector<std::string>& problems) {
  const bool damaged = !problems.empty();
  Reader reader(reading, problems);
  const XMLElement* root = document.FirstChildElement();
  if (root == nullptr) {
    if (!damaged) reader.tell("holds no element");
    return;
  }
  if (std::strcmp(root->Name(), kind.root) != 0) {
    reader.tell(fmt::format("the root is <{}>, not <{}>", shortened(root->Name()), kind.root));
  }
  if (kind.wrapper != nullptr) {
    reader.tellOthers(*root, kind.wrapper);
    root = root->FirstChildElement(kind.wrapper);
  }
  if (root == nullptr) return reader.tell(fmt::format("<{}> is missing", kind.wrapper));
  values = reader.read(*root, kind.members, "");
  if (reading.lists) tellLengths(values, reader);
}

}  // namespace simrec
