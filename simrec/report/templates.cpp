#include "simrec/report/templates.h"

#include <kainjow/mustache.hpp>

#include "simrec/report/assets.h"

namespace simrec::report {
namespace {

namespace mustache = kainjow::mustache;

mustache::data dataOf(const Json& json) {
  if (json.is_object()) {
    mustache::data object;
    for (const auto& [key, value] : json.items()) object[key] = dataOf(value);
    return object;
  }
  if (json.is_array()) {
    mustache::data list(mustache::data::type::list);
    for (const Json& item : json) list.push_back(dataOf(item));
    return list;
  }
  // An empty text is nothing, too: a section of it is left out.
  if (json.is_string() && !json.get_ref<const std::string&>().empty()) {
    return json.get_ref<const std::string&>();
  }
  if (json.is_boolean()) return json.get<bool>();
  if (json.is_null() || json.is_string()) return false;
  return dump(json);
}

mustache::data partial(const char* name) {
  return mustache::partial([name] { return std::string(asset(name).text); });
}

}  // namespace

std::string filled(const char* name, const Json& data) {
  mustache::mustache page{std::string(asset(name).text)};
  if (!page.is_valid()) throw std::logic_error(std::string(name) + ": " + page.error_message());
  mustache::data all = dataOf(data);
  for (const char* const each : {"axes.html", "figure.html", "table.html"})
    all[each] = partial(each);
  std::string text;
  page.render(all, [&text](const std::string& piece) { text += piece; });
  return text;
}

}  // namespace simrec::report
