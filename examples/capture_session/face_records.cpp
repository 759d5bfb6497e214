// What face detection found, and where white balance looks for it.
#include "faces.h"

#include <algorithm>
#include <iterator>

namespace capture {
namespace {

/// The result in six blocks, each of which is handed over by itself.
struct FdResult {
  std::uint32_t header[4];  // request, camera, faces, reserved
  float boxes[kMaxFaces][4];
  float confidences[kMaxFaces];
  float colors[kMaxFaces][3];
  std::uint16_t tracks[kMaxFaces];
  std::uint32_t lumaHistogram[64];
};
static_assert(sizeof(FdResult) == 16 + 320 + 80 + 240 + 40 + 256, "no gap between blocks");

Bytes fdResult(const View& view) {
  const std::vector<Face> faces = findFaces(view);
  FdResult result = {};
  result.header[0] = view.request();
  result.header[1] = view.camera();
  result.header[2] = static_cast<std::uint32_t>(faces.size());
  for (std::size_t i = 0; i < faces.size(); ++i) {
    const Face& face = faces[i];
    const float box[4] = {face.left, face.top, face.right, face.bottom};
    std::copy_n(box, 4, result.boxes[i]);
    result.confidences[i] = face.confidence;
    std::copy_n(face.color, 3, result.colors[i]);
    result.tracks[i] = static_cast<std::uint16_t>(i + 1);
  }
  for (const Rgb& cell : view.grid(40, 30)) {
    ++result.lumaHistogram[static_cast<std::size_t>(luma(cell) * 63)];
  }
  return bytesOf(result);
}

void runFdResult(const Call& call) {
  const auto at = [&](std::size_t offset) { return &call.data[offset]; };
  call.simulation.SimulationForFDResult(
      call.info, at(offsetof(FdResult, header)), sizeof FdResult::header,
      at(offsetof(FdResult, boxes)), sizeof FdResult::boxes, at(offsetof(FdResult, confidences)),
      sizeof FdResult::confidences, at(offsetof(FdResult, colors)), sizeof FdResult::colors,
      at(offsetof(FdResult, tracks)), sizeof FdResult::tracks,
      at(offsetof(FdResult, lumaHistogram)), sizeof FdResult::lumaHistogram, call.request,
      call.camera);
}

}  // namespace

std::vector<Record> faceRecords() {
  return {
      {"FDResult", {{"FACE_FDResult"}}, fdResult, runFdResult},
      {"FDROIData",
       {{"FACE_FaceROI"}},
       faceRoi,
       run<&Simulation::SimulationForFDROIData>,
       {keepLive<0, sizeof FaceRoi::frameBuffer>, kFrameBufferStays}},
  };
}

}  // namespace capture
