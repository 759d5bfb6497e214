// The results as tables on stdout.
#pragma once

#include <map>
#include <string>

namespace bench {

/// The counters of each benchmark that ran, by its name.
using Results = std::map<std::string, std::map<std::string, double>>;

/// The ring is measured beside 10, 100, ... dump folders of other requests.
inline constexpr int kMostFolders = 10000;

/// Prints what ran; the number of goals missed that must be reached.
int printTables(const Results& results);

}  // namespace bench
