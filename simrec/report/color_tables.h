// Published colour tables, six hexadecimal digits for each of 256 colours.
#pragma once

namespace simrec::report {

extern const char kViridis[];
extern const char kCoolWarm[];

}  // namespace simrec::report
