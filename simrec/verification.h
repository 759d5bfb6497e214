// Whether a capture shows what the replay of another one must have fed to the algorithms. The
// catalogue tells which members a readback replaces, and the texts which digits of them a file
// holds.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "simrec/json.h"
#include "simrec/selection.h"

namespace simrec {

enum class Fed {
  kYes,
  kNo,
  kMissing,      ///< no such record was dumped
  kNotReplayed,  ///< its own rule leaves it out here
};

/// "fed", "not fed", "missing", "not replayed"
const char* nameOf(Fed fed);

/// A member that is not what it must be.
struct Unfed {
  std::string name;  ///< "ExposureIndexLong.Gain", "RSum[17]"
  Json expected, found;
};

struct VerifiedRecord {
  File file;  ///< in the capture that was replayed
  Fed fed = Fed::kYes;
  /// In words, where members don't say it, and where a record that was fed was not so as a whole.
  std::string why;
  std::vector<Unfed> members;                             ///< of each list the first ten
  std::vector<std::pair<std::string, std::size_t>> more;  ///< lists with more than those: how many
  /// Of a binary record: bytes that differ, half-open; the first thousand, and how many there are.
  std::vector<std::pair<std::uint64_t, std::uint64_t>> ranges;
  std::uint64_t rangeCount = 0;
};

/// The files of `dump` that answer to those of `replayed`, by the same position; null where
/// there is none. Lens-shading records answer by text, ev and order, not by their number.
std::vector<const File*> answering(const std::vector<File>& replayed,
                                   const std::vector<File>& dump);

/// One record of `replayed` against its partner (null: none) in `dump`.
VerifiedRecord verify(const Capture& replayed, const File& file, const Capture& dump,
                      const File* partner);

}  // namespace simrec
