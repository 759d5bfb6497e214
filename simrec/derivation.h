// A new capture made of another one, with members changed.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simrec/assignment.h"
#include "simrec/store.h"

namespace simrec {

struct Derivation {
  Capture from;
  std::string name;  ///< of the new capture, in the data folder
  std::vector<Assignment> changes;
  std::optional<int> camera;  ///< only records of this camera, and those that have none, change
};

struct Derived {
  std::vector<std::string> changed;  ///< the names of the records that were changed
  std::vector<std::string> leftOut;  ///< of those that are no files that can be read
};

/// Makes the capture: its records are copies, those that change written as the library writes
/// them. It appears whole, under its name, or not at all. Throws Error when the name can't be had,
/// a change fits no record or a record can't be written again without a loss; what a killed process
/// left is removed by the next one.
Derived derive(const Store& store, const Derivation& derivation);

}  // namespace simrec
