// One change of a member, as a person writes it: "AE_AECData.LuxIndex=350",
// "LSC.rGain*=1.02", "AWB_QsegImageData.qsegInstInfos[2].roi.left=0".
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "catalogue/kind.h"
#include "simrec/record.h"

namespace simrec {

/// A part of a member's path: "qsegInstInfos[2]".
struct PathStep {
  std::string name;
  std::optional<std::size_t> index;
};

struct Assignment {
  std::string text;  ///< as it was given
  const catalogue::Kind* kind;
  std::vector<PathStep> path;
  bool multiplies;    ///< '*=': `value` is a factor
  std::string value;  ///< a number's text
};

/// Throws Error for what is no assignment, names no member or no number.
Assignment parseAssignment(const std::string& text);

/// Changes the member in `values`, which are of the assignment's kind; one that the file lacks is
/// put in its place. A list without an index is changed in all its numbers. Throws Error for an
/// index beyond what is there and a value that does not fit the member.
void apply(const Assignment& assignment, Values& values);

}  // namespace simrec
