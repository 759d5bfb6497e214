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
  std::uint64_t records = 0;
  std::uint64_t bytes = 0;             ///< of the record files
  std::optional<std::int64_t> newest;  ///< of the record files; nanoseconds since 1970
  bool looksLikeCapture = false;      ///< a name begins as records' do, or the folder can't be read
  std::vector<std::string> problems;  ///< printable; a folder that can't be read is one
};

Overview overviewOf(const Capture& capture);

/// The same of files that are at hand, in any order.
Overview overviewOf(const Capture& capture, const std::vector<File>& files);

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
