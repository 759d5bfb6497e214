#include "core/file_type.h"

#include <array>
#include <cstdint>

#include "core/fatal.h"

namespace simulation {
namespace {

constexpr std::array kNames = {"IMG", "AWB",        "ZOAWB",        "OfflineAWB", "AE",
                               "LSC", "AnchorPick", "SRAnchorPick", "FACE",       "ACB"};

}  // namespace

const char* nameOf(FileType type) {
  const std::size_t index = static_cast<std::uint32_t>(type);
  requireBelow(index, kNames.size());
  return kNames[index];
}

}  // namespace simulation
