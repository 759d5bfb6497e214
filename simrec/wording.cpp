#include "simrec/wording.h"

#include <fmt/format.h>

#include "simrec/json.h"

namespace simrec {

std::string textOf(const Number& number) {
  const Json json = toJson(number);
  return json.is_string() ? json.get<std::string>() : dump(json);
}

std::string remarkOn(const catalogue::Member& member, const Number* number) {
  std::string text = member.unit;
  const auto add = [&](std::string_view part) {
    if (part.empty()) return;
    text += text.empty() ? "" : ", ";
    text += part;
  };
  for (const auto& meaning : member.meanings) {
    if (number != nullptr && static_cast<std::int64_t>(number->integer) == meaning.value) {
      add(meaning.text);
    }
  }
  add(member.what);
  return text;
}

std::string percentage(double share) { return fmt::format("{:.3g} %", 100 * share); }

std::string roughly(const Number& distance) {
  return distance.isFloat() ? fmt::format("{:.6g}", distance.decimal) : textOf(distance);
}

}  // namespace simrec
