// The page's templates, filled with plain data. No state.
#pragma once

#include <string>

#include "simrec/json.h"

namespace simrec::report {

/// The template of that file with the data's texts, escaped, in the places of their names. Numbers
/// stand as JSON has them; false and null are nothing.
std::string filled(const char* name, const Json& data);

}  // namespace simrec::report
