#include "simrec/xml_writer.h"

#include <simulation/records.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <type_traits>

#include "core/number_text.h"
#include "core/xml_printer.h"
#include "simrec/error.h"
#include "simrec/number.h"

namespace simrec {
namespace {

using catalogue::Carrier;
using catalogue::Digits;
using catalogue::Member;
using catalogue::Type;
using simulation::XmlPrinter;

using WriteFloat = char* (*)(char*, float);

WriteFloat writerOf(Digits digits) {
  switch (digits) {
    case Digits::kSix:
      return simulation::writeStreamFloat;
    case Digits::kSixDecimals:
      return simulation::writeFixedFloat;
    case Digits::kEight:
      break;
  }
  return simulation::writeXmlFloat;
}

char* writeNumber(char* out, const Member& member, const Number& number) {
  if (number.isFloat()) return writerOf(member.digits)(out, number.single);
  if (number.isSigned()) {
    return simulation::writeSigned(out, static_cast<std::int64_t>(number.integer));
  }
  return simulation::writeUnsigned(out, number.integer);
}

/// What stands behind gain `index` of a shading table: its rows are lines.
bool endsLine(const Member& member, std::size_t index) {
  return member.digits == Digits::kSixDecimals && (index + 1) % kLscColumns == 0;
}

template <typename Item>
void pushItems(XmlPrinter& printer, const Member& member, const std::vector<Item>& items) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    printer.pushNumbers(1, [&](char* out, std::size_t) {
      if constexpr (std::is_same_v<Item, float>) {
        return simulation::writeBlank(writerOf(member.digits)(out, items[i]));
      } else {
        return simulation::writeItem(out, static_cast<std::uint64_t>(items[i]));
      }
    });
    if (endsLine(member, i)) printer.pushCharacter('\n');
  }
}

void pushItems(XmlPrinter& printer, const Member&, const std::vector<std::uint8_t>& labels) {
  printer.pushBytes(labels.data(), labels.size());
}

void pushList(XmlPrinter& printer, const Member& member, const NumberList& list) {
  if (list.size() == 0) return printer.pushCharacter(' ');
  std::visit([&](const auto& items) { pushItems(printer, member, items); }, list.values);
}

/// The numbers of a list that is an attribute, a blank behind each.
std::string listText(const NumberList& list) {
  std::string text;
  std::visit(
      [&](const auto& items) {
        for (const auto item : items) text += std::to_string(item) + ' ';
      },
      list.values);
  return text;
}

void pushAttribute(XmlPrinter& printer, const Value& value) {
  if (const NumberList* const list = value.list()) {
    return printer.PushAttribute(value.member->name, listText(*list).c_str());
  }
  std::array<char, 64> text;
  *writeNumber(text.data(), *value.member, *value.number()) = '\0';
  printer.PushAttribute(value.member->name, text.data());
}

void pushValues(XmlPrinter& printer, const Values& values);

void pushContent(XmlPrinter& printer, const Value& value) {
  if (const Number* const number = value.number()) {
    printer.pushNumber([&](char* out, int) { return writeNumber(out, *value.member, *number); }, 0);
  } else if (const NumberList* const list = value.list()) {
    pushList(printer, *value.member, *list);
  } else if (const Values* const members = value.members()) {
    pushValues(printer, *members);
  } else {
    for (const Values& item : *value.items()) {
      printer.OpenElement(value.member->item);
      pushValues(printer, item);
      printer.CloseElement();
    }
  }
}

/// Attributes stand before elements: they belong to the tag that is still open.
void pushValues(XmlPrinter& printer, const Values& values) {
  for (const Value& value : values) {
    if (value.member->carrier == Carrier::kAttribute) pushAttribute(printer, value);
  }
  for (const Value& value : values) {
    if (value.member->carrier == Carrier::kAttribute) continue;
    printer.OpenElement(value.member->name);
    pushContent(printer, value);
    printer.CloseElement();
  }
}

}  // namespace

void writeXmlRecord(const catalogue::Kind& kind, const Values& values, const std::string& path) {
  const auto printer = std::make_unique<XmlPrinter>(path.c_str());
  printer->OpenElement(kind.root);
  if (kind.wrapper != nullptr) printer->OpenElement(kind.wrapper);
  pushValues(*printer, values);
  if (kind.wrapper != nullptr) printer->CloseElement();
  printer->CloseElement();
  if (printer->finish() != tinyxml2::XML_SUCCESS) throw Error(path + ": " + std::strerror(errno));
}

Number throughText(float value, Digits digits) {
  std::array<char, 64> text;
  const char* const end = writerOf(digits)(text.data(), value);
  const auto number =
      parseNumber({text.data(), static_cast<std::size_t>(end - text.data())}, Type::kFloat);
  if (const auto* const there = std::get_if<Number>(&number)) return *there;
  Number largest;  // its text, rounded up, is beyond a float's range
  largest.single = value;
  largest.decimal = shortestDecimal(value);
  return largest;
}

}  // namespace simrec
