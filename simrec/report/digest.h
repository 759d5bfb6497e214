// A capture as the overview tells of it: gathered once for every capture of a page.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "simrec/diagnosis.h"
#include "simrec/overview.h"
#include "simrec/report/moments.h"

namespace simrec::report {

/// What there is to see of a capture.
enum class Pictures : std::uint8_t {
  kNone,
  kOfLens,  ///< lens shading or channels alone, which look alike for all requests
  kOfScene,
};

struct Digest {
  Capture capture;
  Overview overview;
  std::vector<Finding> findings;
  std::vector<Moment> moments;  ///< by camera
  std::string thumbnail;        ///< PNG in base64; empty: there is none
  Pictures pictures = Pictures::kNone;
};

/// Never throws for what is in the capture; a folder that can't be read is a problem of it.
Digest digestOf(const Capture& capture, Doctor& doctor);

}  // namespace simrec::report
