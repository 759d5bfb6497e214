// Which records of a capture a command is about: kinds and a camera, as a person names them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simrec/store.h"

namespace simrec {

class Selection {
 public:
  Selection() = default;

  /// No kinds: all. Throws Error for a form that stands for no kind, or for several without
  /// being a wildcard.
  Selection(const std::vector<std::string>& kinds, std::optional<int> camera);

  /// Records of the camera, and those that have none.
  bool takes(const catalogue::FileName& parts) const;

  /// Those of `files` that are records and that it takes.
  std::vector<File> of(std::vector<File> files) const;

 private:
  std::vector<const catalogue::Kind*> kinds_;
  std::optional<int> camera_;
};

/// The kind that `form` stands for. Throws Error when that is none or several.
const catalogue::Kind& kindFor(const std::string& form);

}  // namespace simrec
