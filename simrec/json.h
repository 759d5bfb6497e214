// Values and names as JSON: integers exact, floats as the decimal in the file, "nan", "inf" and
// "-inf" as strings. Appended to a text, so that long lists cost no tree of their own.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "simrec/record.h"

namespace simrec {

using Json = nlohmann::ordered_json;

/// Adds `key` with a name from disk, U+FFFD for what is not UTF-8, and then the name in hex
/// under `bytesKey`.
void setName(Json& object, const char* key, const char* bytesKey, std::string_view name);

/// A name that setName() added. Throws what is none.
std::string nameIn(const Json& object, const char* key, const char* bytesKey);

/// A number, or the string for one that JSON has no number for.
Json toJson(const Number& number);
Json toJson(double decimal);

/// In ASCII alone: nothing in it is obeyed by a terminal.
std::string dump(const Json& value);

/// The members of `record` that have a value, as an object. Lists of more than 20 numbers as
/// {"count","min","mean","max"} but with `lists`. Binary records begin with "size", and
/// end with "hex" with `lists`.
void appendValues(std::string& out, const Record& record, bool lists);

/// The same in pieces, of which none holds all of a large file.
void writeValues(const std::function<void(std::string_view piece)>& write, const Record& record,
                 bool lists);

/// The numbers of a list as a JSON array: floats as the file has them.
void appendNumbers(std::string& out, const NumberList& list);

/// Adds the variable parts that the record's kind has: "camera", "ev", "text" (a name), "index".
void setParts(Json& object, const catalogue::FileName& parts);

/// Lists of up to this many numbers are shown whole.
inline constexpr std::size_t kShortList = 20;

}  // namespace simrec
