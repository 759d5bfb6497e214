#include "simrec/assignment.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "simrec/error.h"
#include "simrec/number.h"
#include "simrec/selection.h"
#include "simrec/xml_writer.h"

namespace simrec {
namespace {

using catalogue::Member;
using catalogue::Members;
using catalogue::Shape;
using catalogue::Type;

PathStep parseStep(const std::string& text, const std::string& whole) {
  const std::size_t bracket = text.find('[');
  if (bracket == std::string::npos) return {text, std::nullopt};
  std::size_t index = 0;
  const char* const begin = text.data() + bracket + 1;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(begin, end, index);
  if (error != std::errc() || end - stop != 1 || *stop != ']') {
    throw Error("'" + whole + "': '" + text + "' is no member");
  }
  return {text.substr(0, bracket), index};
}

std::vector<PathStep> parsePath(const std::string& path, const std::string& whole) {
  std::vector<PathStep> steps;
  for (std::size_t at = 0; at <= path.size();) {
    const std::size_t dot = std::min(path.find('.', at), path.size());
    steps.push_back(parseStep(path.substr(at, dot - at), whole));
    at = dot + 1;
  }
  return steps;
}

const Member* memberNamed(const Members& members, const std::string& name) {
  const auto found = std::find_if(members.begin(), members.end(),
                                  [&](const Member& member) { return member.name == name; });
  return found != members.end() ? found : nullptr;
}

/// What is wrong with a path, before any file is looked at.
void checkPath(const Assignment& assignment) {
  const auto fail = [&](const std::string& why) {
    throw Error("'" + assignment.text + "': " + why);
  };
  Members members = assignment.kind->members;
  for (std::size_t i = 0; i < assignment.path.size(); ++i) {
    const PathStep& step = assignment.path[i];
    const Member* const member = memberNamed(members, step.name);
    if (member == nullptr) {
      fail(fmt::format("{} has no member {}", assignment.kind->name, step.name));
    }
    const bool indexed = member->shape == Shape::kList || member->shape == Shape::kArray;
    const bool inside = member->shape == Shape::kGroup || member->shape == Shape::kArray;
    if (step.index && !indexed) fail(step.name + " is no list");
    if (step.index && *step.index >= member->count) {
      fail(fmt::format("{} ends at [{}]", step.name, member->count - 1));
    }
    if (member->shape == Shape::kArray && !step.index) fail(step.name + " wants an index");
    const bool last = i + 1 == assignment.path.size();
    if (inside == last) {
      fail(step.name + (last ? " has members of its own" : " has no members of its own"));
    }
    members = member->members;
  }
}

/// Applies an assignment to the values of one record.
class Change {
 public:
  explicit Change(const Assignment& assignment) : assignment_(assignment) {}

  void apply(Values& values, const Members& members, std::size_t step) const {
    const PathStep& here = assignment_.path[step];
    Value& value = valueOf(values, *memberNamed(members, here.name));
    const Members& inner = value.member->members;
    if (auto* const group = std::get_if<std::vector<Value>>(&value.is)) {
      apply(*group, inner, step + 1);
    } else if (auto* const items = std::get_if<std::vector<Values>>(&value.is)) {
      if (*here.index >= items->size())
        fail(fmt::format("there is no {}[{}]", here.name, *here.index));
      apply((*items)[*here.index], inner, step + 1);
    } else if (auto* const list = std::get_if<NumberList>(&value.is)) {
      changeList(*list, *value.member, here.index);
    } else {
      auto& number = std::get<Number>(value.is);
      number = changed(number, *value.member);
    }
  }

 private:
  [[noreturn]] void fail(const std::string& why) const {
    throw Error("'" + assignment_.text + "': " + why);
  }

  /// The value of a member; one that is missing is made, where it belongs.
  Value& valueOf(Values& values, const Member& member) const {
    const auto place = std::find_if(values.begin(), values.end(),
                                    [&](const Value& value) { return value.member >= &member; });
    if (place != values.end() && place->member == &member) return *place;
    if (assignment_.multiplies || member.shape == Shape::kList || member.shape == Shape::kArray) {
      fail(std::string(member.name) + " is missing");
    }
    Value made = {&member, {}};
    if (member.shape == Shape::kGroup) made.is = Values();
    return *values.insert(place, std::move(made));
  }

  Number changed(const Number& before, const Member& member) const {
    const auto fits = parseNumber(
        assignment_.multiplies ? product(before, member) : assignment_.value, member.type);
    if (const auto* const why = std::get_if<std::string>(&fits)) fail(*why);
    const Number& number = std::get<Number>(fits);
    if (vanishes(number, before, member)) fail("that is too near to 0 for the record");
    if (!number.isFloat() && number.integer > member.most && !number.isSigned()) {
      fail(fmt::format("{} is {} at most", member.name, member.most));
    }
    return number;
  }

  /// A value that is not 0 becomes one, in memory or in the digits that the file has.
  bool vanishes(const Number& number, const Number& before, const Member& member) const {
    if (!number.isFloat()) return false;
    const bool text = assignment_.kind->format == catalogue::Format::kXml;
    const float kept = text ? throughText(number.single, member.digits).single : number.single;
    const std::string mantissa = assignment_.value.substr(0, assignment_.value.find_first_of("eE"));
    return kept == 0 && mantissa.find_first_of("123456789") != std::string::npos &&
           (!assignment_.multiplies || before.single != 0);
  }

  /// As a text, so that the bounds of every type are looked after in one place.
  std::string product(const Number& before, const Member& member) const {
    const double factor = std::get<Number>(parseNumber(assignment_.value, Type::kFloat)).decimal;
    if (member.type == Type::kFloat) {
      const double exact = static_cast<double>(before.single) * factor;
      const auto nearest = static_cast<float>(exact);
      // Beyond a float's range is no value, but for what was infinite before.
      if (std::isinf(nearest) && !std::isinf(exact)) return fmt::format("{:.9g}", exact);
      return fmt::format("{:.9g}", nearest);
    }
    const auto whole = before.isSigned()
                           ? static_cast<long double>(static_cast<std::int64_t>(before.integer))
                           : static_cast<long double>(before.integer);
    return fmt::format("{:.0f}", std::nearbyint(whole * static_cast<long double>(factor)) + 0.0L);
  }

  void changeList(NumberList& list, const Member& member, std::optional<std::size_t> index) const {
    if (index && *index >= list.size()) {
      fail(fmt::format("there is no {}[{}]", member.name, *index));
    }
    list.text = {};
    std::visit(
        [&](auto& items) {
          for (std::size_t i = index.value_or(0); i < (index ? *index + 1 : items.size()); ++i) {
            setItem(items[i], member);
          }
        },
        list.values);
  }

  template <typename Item>
  void setItem(Item& item, const Member& member) const {
    Number before;
    before.type = member.type;
    if constexpr (std::is_same_v<Item, float>) {
      before.single = item;
      item = changed(before, member).single;
    } else {
      before.integer = item;
      item = static_cast<Item>(changed(before, member).integer);
    }
  }

  const Assignment& assignment_;
};

}  // namespace

Assignment parseAssignment(const std::string& text) {
  const std::size_t equals = text.find('=');
  const std::size_t dot = text.find('.');
  if (equals == std::string::npos || dot == 0 || dot > equals) {
    throw Error("'" + text + "' is no change: KIND.MEMBER=VALUE");
  }
  Assignment assignment;
  assignment.text = text;
  assignment.multiplies = text[equals - 1] == '*';
  const std::size_t end = equals - (assignment.multiplies ? 1 : 0);
  assignment.kind = &kindFor(text.substr(0, dot));
  assignment.path = parsePath(text.substr(dot + 1, end - dot - 1), text);
  assignment.value = text.substr(equals + 1);
  checkPath(assignment);
  const auto number = parseNumber(assignment.value, Type::kFloat);
  if (assignment.multiplies && std::holds_alternative<std::string>(number)) {
    throw Error("'" + text + "': " + std::get<std::string>(number));
  }
  return assignment;
}

void apply(const Assignment& assignment, Values& values) {
  Change(assignment).apply(values, assignment.kind->members, 0);
}

}  // namespace simrec
