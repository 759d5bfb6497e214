// The names of record files and of the folders that they lie in, made and taken apart.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "catalogue/kind.h"

namespace catalogue {

/// What every record file's name begins with.
inline constexpr std::string_view kRecordPrefix = "simulation_";

/// The variable parts of a record file's name. Numbers stand in it as "%d" shows them.
struct FileName {
  const Kind* kind;
  std::optional<int> camera = {};
  std::optional<int> ev = {};            ///< exposure step
  std::optional<std::string> text = {};  ///< what the caller put into the name
  std::optional<int> index = {};         ///< lens shading: the number of the call
};

/// The name of such a file; parts that its kind has and that are missing count as 0 and "".
std::string makeFileName(const FileName& parts);

/// The parts of a name; none when no record file is called so.
std::optional<FileName> parseFileName(std::string_view name);

/// The folder of a request's dumps before they are moved, below the data folder.
struct RequestFolder {
  int request, camera;
};

inline constexpr std::string_view kTmpFolder = "tmp";

/// Its name in "tmp".
std::string makeRequestFolder(const RequestFolder& parts);
std::optional<RequestFolder> parseRequestFolder(std::string_view name);

}  // namespace catalogue
