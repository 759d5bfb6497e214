#include "simrec/json.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

#include "core/number_text.h"
#include "simrec/number.h"
#include "simrec/text.h"

namespace simrec {
namespace {

using catalogue::Format;
using catalogue::Type;

/// Calls `item` for each item, with commas between.
template <typename Items, typename Item>
void appendAll(std::string& out, const Items& items, Item item) {
  const char* comma = "";
  for (const auto& each : items) {
    out += comma;
    comma = ",";
    item(each);
  }
}

/// Whether JSON takes `text` as a number as it stands.
bool isJsonNumber(std::string_view text) {
  std::size_t at = text.substr(0, 1) == "-" ? 1 : 0;
  const auto digits = [&] {
    const std::size_t begin = at;
    while (at < text.size() && text[at] >= '0' && text[at] <= '9') ++at;
    return at - begin;
  };
  const bool zero = at < text.size() && text[at] == '0';
  const std::size_t whole = digits();
  if (whole == 0 || (zero && whole > 1)) return false;
  if (at < text.size() && text[at] == '.') {
    ++at;
    if (digits() == 0) return false;
  }
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    if (digits() == 0) return false;
  }
  return at == text.size();
}

constexpr std::string_view kBlanks = " \t\n\v\f\r";

/// The first `count` numbers of a list's text, each as it stands where that is JSON.
void appendFloats(std::string& out, std::string_view text, std::size_t count) {
  const char* comma = "";
  for (; count > 0; --count) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    const std::string_view token = text.substr(0, text.find_first_of(kBlanks));
    text.remove_prefix(token.size());
    out += comma;
    comma = ",";
    if (isJsonNumber(token)) {
      out += token;
    } else {
      const auto number = parseNumber(token, Type::kFloat);
      out += dump(toJson(std::get<Number>(number)));
    }
  }
}

/// Numbers of a list by the library's own writer, a comma instead of each blank.
void appendIntegers(std::string& out, const std::vector<std::uint8_t>& values) {
  const std::size_t begin = out.size();
  out.resize(begin + values.size() * simulation::kByteItemRoom + 64);
  const char* const end = simulation::writeItems(&out[begin], values.data(), values.size());
  out.resize(static_cast<std::size_t>(end - out.data()));
  std::replace(out.begin() + static_cast<std::ptrdiff_t>(begin), out.end(), ' ', ',');
  if (!values.empty()) out.pop_back();
}

template <typename Integer>
void appendIntegers(std::string& out, const std::vector<Integer>& values) {
  char text[simulation::kUnsignedRoom];
  appendAll(out, values,
            [&](Integer value) { out.append(text, simulation::writeUnsigned(text, value)); });
}

void appendList(std::string& out, const NumberList& list, bool whole) {
  if (whole || list.size() <= kShortList) return appendNumbers(out, list);
  const Summary summary = summaryOf(list);
  const Json json = {{"count", summary.count},
                     {"min", toJson(summary.min)},
                     {"mean", toJson(summary.mean)},
                     {"max", toJson(summary.max)}};
  out += dump(json);
}

void appendMembers(std::string& out, const Values& values, bool lists);

void appendValue(std::string& out, const Value& value, bool lists) {
  if (const Number* const number = value.number()) {
    out += dump(toJson(*number));
  } else if (const NumberList* const list = value.list()) {
    appendList(out, *list, lists);
  } else if (const Values* const members = value.members()) {
    out += '{';
    appendMembers(out, *members, lists);
    out += '}';
  } else {
    out += '[';
    appendAll(out, *value.items(), [&](const Values& item) {
      out += '{';
      appendMembers(out, item, lists);
      out += '}';
    });
    out += ']';
  }
}

void appendMembers(std::string& out, const Values& values, bool lists) {
  appendAll(out, values, [&](const Value& value) {
    out += dump(value.member->name) + ":";
    appendValue(out, value, lists);
  });
}

}  // namespace

void appendNumbers(std::string& out, const NumberList& list) {
  out += '[';
  std::visit(
      [&](const auto& values) {
        using Item = typename std::decay_t<decltype(values)>::value_type;
        if constexpr (!std::is_same_v<Item, float>) {
          appendIntegers(out, values);
        } else if (!list.text.empty()) {
          appendFloats(out, list.text, values.size());
        } else {
          appendAll(out, values, [&](float value) { out += dump(toJson(shortestDecimal(value))); });
        }
      },
      list.values);
  out += ']';
}

void setName(Json& object, const char* key, const char* bytesKey, std::string_view name) {
  object[key] = asUtf8(name);
  if (!isUtf8(name)) object[bytesKey] = hex(name);
}

Json toJson(double decimal) {
  if (std::isnan(decimal)) return "nan";
  if (std::isinf(decimal)) return decimal < 0 ? "-inf" : "inf";
  // As lists have it in their files: 1, not 1.0. Larger ones are written with an exponent.
  const bool whole = std::fabs(decimal) < 1e15 && decimal == std::trunc(decimal);
  if (whole && (decimal != 0 || !std::signbit(decimal))) return static_cast<std::int64_t>(decimal);
  return decimal;
}

Json toJson(const Number& number) {
  if (number.isFloat()) return toJson(number.decimal);
  if (number.isSigned()) return static_cast<std::int64_t>(number.integer);
  return number.integer;
}

std::string dump(const Json& value) {
  return value.dump(-1, ' ', true, Json::error_handler_t::replace);
}

void writeValues(const std::function<void(std::string_view piece)>& write, const Record& record,
                 bool lists) {
  const bool binary = record.file.parts->kind->format == Format::kBinary;
  std::string text = "{";
  if (binary) text += "\"size\":" + std::to_string(record.file.bytes);
  if (binary && !record.values.empty()) text += ',';
  appendMembers(text, record.values, lists);
  if (binary && lists) {
    write(text + ",\"hex\":\"");
    constexpr std::size_t kPiece = 1 << 16;
    const std::string_view bytes = record.bytes;
    for (std::size_t at = 0; at < bytes.size(); at += kPiece) write(hex(bytes.substr(at, kPiece)));
    text = '"';
  }
  write(text + '}');
}

void appendValues(std::string& out, const Record& record, bool lists) {
  writeValues([&out](std::string_view piece) { out += piece; }, record, lists);
}

void setParts(Json& object, const catalogue::FileName& parts) {
  if (parts.camera) object["camera"] = *parts.camera;
  if (parts.ev) object["ev"] = *parts.ev;
  if (parts.text) setName(object, "text", "textBytes", *parts.text);
  if (parts.index) object["index"] = *parts.index;
}

}  // namespace simrec
