#include "simrec/report/views.h"

#include <fmt/format.h>

#include "simrec/expected_values.h"
#include "simrec/report/bayer_grid.h"
#include "simrec/report/encoding.h"
#include "simrec/report/label_map.h"
#include "simrec/report/lens_shading.h"
#include "simrec/text.h"

namespace simrec::report {
namespace {

constexpr std::size_t kThumbnailColumns = 64;

/// What is shown how; the Bayer grids have a form of their own.
enum class Look { kTable, kBayerGrid, kShading, kSegmentation, kSpectral, kPlane };

Look lookOf(const catalogue::Kind& kind) {
  constexpr std::pair<std::string_view, Look> kLooks[] = {
      {"LSC", Look::kShading},
      {"AWB_QsegImageData", Look::kSegmentation},
      {"ZOAWB_SpectralSensorInfo", Look::kSpectral},
      {"ACB_acb", Look::kPlane},
  };
  if (isBayerGrid(kind)) return Look::kBayerGrid;
  for (const auto& [name, look] : kLooks) {
    if (name == kind.name) return look;
  }
  return Look::kTable;
}

}  // namespace

bool isPictured(const catalogue::Kind& kind) { return lookOf(kind) != Look::kTable; }

bool showsScene(const catalogue::Kind& kind) {
  const Look look = lookOf(kind);
  return look == Look::kBayerGrid || look == Look::kSegmentation || look == Look::kPlane;
}

std::string titleOf(const catalogue::FileName& parts) {
  std::string title =
      parts.kind->hasCamera() ? fmt::format("Camera {}", parts.camera.value_or(0)) : std::string();
  const auto add = [&](const std::string& text) { title += (title.empty() ? "" : ", ") + text; };
  if (parts.text) add(printable(*parts.text));
  if (parts.index) add(fmt::format("call {}", *parts.index));
  if (parts.ev) add(fmt::format("ev {}", *parts.ev));
  if (title.empty()) title = "All cameras";
  if (isBayerGrid(*parts.kind) && parts.kind->place == catalogue::Place::kNamed) add("offline");
  return title;
}

Json newView(const File& file, const std::vector<std::string>& problems) {
  return {{"viewTitle", titleOf(*file.parts)},
          {"viewFile", printable(file.name)},
          {"viewProblems", problems},
          {"viewFacts", false},
          {"figures", Json::array()},
          {"tables", Json::array()},
          {"scatter", false},
          {"chart", false},
          {"bars", false},
          {"dataSets", Json::array()}};
}

Json viewOf(const Record& record, const ViewOptions& options, Ids& ids) {
  switch (lookOf(*record.file.parts->kind)) {
    case Look::kBayerGrid:
      return bayerGridView(record, ids);
    case Look::kShading:
      return shadingView(record, ids);
    case Look::kSegmentation:
      return segmentationView(record, ids);
    case Look::kSpectral:
      return spectralView(record, ids);
    case Look::kPlane:
      return planeView(record, options, ids);
    case Look::kTable:
      break;
  }
  return newView(record.file, record.problems);
}

bool hasThumbnail(const catalogue::Kind& kind) {
  const Look look = lookOf(kind);
  return look == Look::kBayerGrid || look == Look::kSegmentation || look == Look::kShading;
}

std::string thumbnailOf(const Record& record) {
  switch (lookOf(*record.file.parts->kind)) {
    case Look::kBayerGrid: {
      const BayerGrid grid = bayerGridOf(record.values);
      return thumbnailOf(grid.red, grid.green, grid.blue);
    }
    case Look::kSegmentation: {
      const auto map = labelMapOf(record.values);
      return map ? base64(map->reduced(kThumbnailColumns).png()) : "";
    }
    case Look::kShading: {
      const auto channels = shadingOf(record.values);
      if (channels.empty() || !channels[0].gains.isDrawable()) return "";
      const Extremes extremes = extremesOf(channels[0].gains.values);
      return base64(pngOf(channels[0].gains, {extremes.low, extremes.high}, sequentialPalette()));
    }
    default:
      return "";
  }
}

}  // namespace simrec::report
