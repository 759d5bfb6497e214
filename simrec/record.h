// One record file, read: its values by the catalogue's members, and what is odd about it.
// Reads what is there: a readback's own opinion of a file is doctor's to find out.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/record_document.h"
#include "simrec/store.h"
#include "simrec/value.h"

namespace simrec {

/// XML beyond this, and more than this of a binary file, is not read.
inline constexpr std::uint64_t kLargestXml = 64 << 20;
inline constexpr char kTooLargeXml[] = "more than 64 MB of XML: not read";

struct Record {
  File file;
  Values values;                      ///< of the members that the file has, in their order
  std::vector<std::string> problems;  ///< in words for a person; names in them are printable
  std::string bytes;                  ///< of a binary file; as much of it as was read
  bool opened = false;                ///< else the problem tells why not, and there is nothing more

  /// Where the texts of lists are.
  std::unique_ptr<simulation::RecordDocument> document;
};

struct Reading {
  bool lists = true;   ///< else the values of lists are left out
  bool binary = true;  ///< else a binary file is not read beyond its known members
  /// Of an XML member whose text goes on behind its number, that number, as a readback takes it;
  /// else such a member is left out. It is a problem either way.
  bool leading = false;
};

/// What is wrong with a binary file of that size; empty: nothing.
std::string sizeProblem(const catalogue::Kind& kind, std::uint64_t size);

/// Reads `file`, a record of a known kind, in `folder`. Never throws: what keeps the file from
/// being read is a problem of the record.
Record readRecord(const std::string& folder, const File& file, const Reading& reading = {});

}  // namespace simrec
