// What is staged, as simrec's journal in the data folder tells: where it comes from, and each
// file with its content, by which an edited one is told from an untouched one.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "simrec/content.h"

namespace simrec {

struct JournalEntry {
  std::string file;  ///< its name straight under the data folder
  Content content;
};

struct Journal {
  std::string from;        ///< the capture, as it was named
  std::int64_t since = 0;  ///< nanoseconds since 1970
  /// Which of the two folders for files that are not in place yet was theirs: 0 or 1.
  int folder = 0;
  std::vector<JournalEntry> files;
};

/// None where no journal of that name stands in `folder`. Throws Error for one that simrec did
/// not write: names in it lead nowhere else.
std::optional<Journal> readJournal(const Directory& folder, const std::string& name);

/// Writes it, down to the disk, as a file that isn't there yet. Throws Error, also for one that is
/// too large to be read again.
void writeJournal(const Journal& journal, const Directory& folder, const std::string& name);

}  // namespace simrec
