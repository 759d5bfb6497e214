#include "faces.h"

#include <algorithm>
#include <cmath>

namespace capture {

double skinLikeness(Rgb color) {
  if (color.g < 0.01) return 0;
  const double red = color.r / color.g - 1.6, blue = color.b / color.g - 0.75;
  return std::max(0.0, 1 - 2 * std::hypot(red, blue));
}

std::vector<Face> findFaces(const View& view, std::size_t most) {
  constexpr int kColumns = 16, kRows = 12;
  const Rgb balance = view.whiteBalance().gains();
  std::vector<Face> faces;
  for (int cell = 0; cell < kColumns * kRows && faces.size() < most; ++cell) {
    const Box box = gridCell(cell % kColumns, cell / kColumns, kColumns, kRows);
    const Rgb color = view.mean(box);
    const double likeness = skinLikeness(color * balance);
    if (likeness < 0.5) continue;
    Face face = {asFloat(box.left),
                 asFloat(box.top),
                 asFloat(box.right),
                 asFloat(box.bottom),
                 asFloat(likeness),
                 {},
                 {}};
    copy(color, face.color);
    faces.push_back(face);
  }
  return faces;
}

Bytes faceRoi(const View& view) {
  const std::vector<Face> faces = findFaces(view);
  FaceRoi roi = {view.frameBuffer(),
                 view.request(),
                 view.camera(),
                 static_cast<std::uint32_t>(faces.size()),
                 0,
                 {}};
  std::copy(faces.begin(), faces.end(), roi.faces);
  return bytesOf(roi);
}

}  // namespace capture
