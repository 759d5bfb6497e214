#include <fnmatch.h>
#include <strings.h>

#include <cstring>
#include <functional>
#include <string>

#include "catalogue/kind.h"

namespace catalogue {
namespace {

/// The name behind the family: "AECData" of "AE_AECData".
const char* tailOf(const Kind& kind) {
  const char* const line = std::strchr(kind.name, '_');
  return line != nullptr ? line + 1 : kind.name;
}

using Test = std::function<bool(const Kind& kind)>;

std::vector<const Kind*> select(const Test& test) {
  std::vector<const Kind*> found;
  for (const Kind& kind : kinds()) {
    if (test(kind)) found.push_back(&kind);
  }
  return found;
}

}  // namespace

bool isWildcard(std::string_view form) { return form.find_first_of("*?[") != form.npos; }

std::vector<const Kind*> kindsLike(std::string_view form) {
  if (form.empty()) return {};
  const std::string text(form);
  const auto matches = [&](const char* name) {
    return fnmatch(text.c_str(), name, FNM_CASEFOLD) == 0;
  };
  if (isWildcard(form)) {
    return select([&](const Kind& kind) { return matches(kind.name) || matches(tailOf(kind)); });
  }
  const Test ways[] = {
      [&](const Kind& kind) { return strcasecmp(kind.name, text.c_str()) == 0; },
      [&](const Kind& kind) { return strcasecmp(tailOf(kind), text.c_str()) == 0; },
      [&](const Kind& kind) { return strcasestr(kind.name, text.c_str()) != nullptr; },
  };
  for (const Test& way : ways) {
    std::vector<const Kind*> found = select(way);
    if (!found.empty()) return found;
  }
  return {};
}

}  // namespace catalogue
