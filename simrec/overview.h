// A capture at a glance: what its folder tells without a file being read.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "simrec/store.h"

namespace simrec {

struct Overview {
  std::set<int> cameras;
  std::uint64_t records = 0;           ///< that a command can read
  std::uint64_t bytes = 0;             ///< of the files with a record's name
  std::optional<std::int64_t> newest;  ///< of these; nanoseconds since 1970
  bool looksLikeCapture = false;  ///< a name begins as records' do, or the folder can't be read
  /// Printable, by file; a folder that can't be read is one. Of very many the first, and then one
  /// that tells how many more there are.
  std::vector<std::string> problems;
  std::uint64_t problemCount = 0;  ///< all of them
};

Overview overviewOf(const Capture& capture);

/// The same of files that are at hand, in any order.
Overview overviewOf(const Capture& capture, const std::vector<File>& files);

/// Whether list has a row for it: a name in it begins as records' do, or it can't be read.
bool looksLikeCapture(const Capture& capture);

/// Records that another camera of the capture has. There may be as many as files times cameras, so
/// only some are named.
struct MissingRecords {
  std::vector<std::string> files;  ///< the names that they would have
  std::uint64_t more = 0;          ///< others
};
MissingRecords missingRecords(const std::vector<File>& files);
inline constexpr char kMissing[] = "missing, other cameras have it";

/// The others in words; there are some.
std::string wordsForMore(const MissingRecords& missing);

}  // namespace simrec
