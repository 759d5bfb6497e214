// Faces in a view, found by the colour of skin, and the regions of interest that
// white balance and face detection make of them. The layouts are this program's
// own, but for the size of FaceRoi and that of its first member.
#pragma once

#include <simulation/records.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "record.h"

namespace capture {

struct Face {
  float left, top, right, bottom;  // fractions of the frame
  float confidence;                // 1 for the colour of skin itself
  float color[3];                  // sensor readings
  std::uint32_t reserved[14];
};

inline constexpr std::size_t kMaxFaces = 20;

struct FaceRoi {
  std::uint64_t frameBuffer;  // means something in the recording process only
  std::uint32_t request, camera, count, reserved;
  Face faces[kMaxFaces];
};
static_assert(sizeof(FaceRoi) == kFdRoiSize && offsetof(FaceRoi, frameBuffer) == 0);

/// 1 for the chromaticity of skin, 0 far from it, for a balanced colour.
double skinLikeness(Rgb color);

/// `most` at most.
std::vector<Face> findFaces(const View& view, std::size_t most = kMaxFaces);

Bytes faceRoi(const View& view);

/// How a replayed FaceRoi differs from the recorded one.
inline constexpr char kFrameBufferStays[] = "the first 8 bytes, a pointer, which stay live";

}  // namespace capture
