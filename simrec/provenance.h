// Where a capture comes from that simrec made of another one, as its own file tells.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simrec/json.h"

namespace simrec {

struct Provenance {
  std::string capture;               ///< the name of the one it was copied from
  std::vector<std::string> changes;  ///< as they were given: "AE_AECData.LuxIndex=350"
};

/// None where there is no such file, or one that simrec didn't write.
std::optional<Provenance> readProvenance(const Capture& capture);

/// {"capture","changes"}, and "captureBytes" for a name that is not UTF-8.
Json toJson(const Provenance& provenance);

/// "from IMG_000072 with AE_AECData.LuxIndex=350", printable.
std::string sentenceFor(const Provenance& provenance);

}  // namespace simrec
