// The kinds of record files that the library writes and reads, one row each.
// Constant data.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "catalogue/member.h"

namespace catalogue {

enum class Format : std::uint8_t { kXml, kBinary };

/// Where a dump puts the file below the data folder; a readback looks straight in it.
enum class Place : std::uint8_t {
  kRequest,  ///< the folder of the request and camera, later that of the image
  kNamed,    ///< the folder that SimulationInfo::folderName names
};

/// XML: what a readback does at an element that the file lacks.
enum class Missing : std::uint8_t {
  kSkipped,  ///< that member stays live
  kEnds,     ///< so do all behind it
  kForbids,  ///< so does everything
};

struct Kind {
  const char* name;       ///< the file's name without its variable parts: "AE_AECData"
  const char* operation;  ///< the member of Simulation that dumps it and reads it back
  /// The file's name behind "simulation_"; {text}, {camera}, {ev} and {index} stand for
  /// its variable parts, of which there is one of each at most.
  const char* pattern;
  Place place;
  bool firstDumpWins;  ///< a file that exists is left alone
  Format format;
  const char* root;      ///< XML: the document's element
  const char* wrapper;   ///< XML: the lone element in it that carries the members; null: none
  std::size_t bytes;     ///< binary: of the record; 0: the caller's size
  std::size_t liveHead;  ///< binary: leading bytes that a readback leaves live
  Members members;
  const char* content;   ///< for people
  const char* readback;  ///< for people: what a readback replaces
  int firstRequest = 0;  ///< requests below this are neither dumped nor replayed
  bool staged = false;   ///< binary: a file that is shorter than the record replaces nothing
  Missing missing = Missing::kSkipped;

  bool has(std::string_view part) const {
    return std::string_view(pattern).find(part) != std::string_view::npos;
  }
  bool hasCamera() const { return has("{camera}"); }
};

/// In the order of the documents: exposure, white balance, faces, shading, ACB.
const Rows<Kind>& kinds();

/// The kind of that very name; null when there is none.
const Kind* kindNamed(std::string_view name);

/// The kinds that somebody may mean: the one of that name, else those whose name ends so
/// behind its family, else those with it anywhere, whatever the case; with '*', '?' or '[' a
/// wildcard over the names with and without the family.
std::vector<const Kind*> kindsLike(std::string_view form);

/// Whether the form is a wildcard, which may well stand for several kinds.
bool isWildcard(std::string_view form);

}  // namespace catalogue
