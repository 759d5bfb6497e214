// Replays what lies straight under kCameraData over other live inputs, and dumps what the
// algorithms see then: what an operator's pipeline does after staging a capture.
#pragma once

#include <string>
#include <vector>

#include "problems.h"
#include "scene.h"

namespace capture {

/// The image that the dumps belong to.
inline constexpr char kReplayedImage[] = "REPLAYED";

struct Replayed {
  std::size_t records = 0;          // kinds of input that were replayed on every camera
  std::vector<std::string> absent;  // kinds without a file for some camera
  Problems problems;
};

/// One request on all cameras, under `light`. The dumps of an earlier replay are deleted.
Replayed replayStaged(const Scene& scene, Rgb light, unsigned cameras);

}  // namespace capture
