#include <algorithm>
#include <map>
#include <utility>

#include "simrec/directory.h"
#include "simrec/error.h"
#include "simrec/staging.h"

namespace simrec {
namespace {

using catalogue::FileName;

/// Lens-shading files that count together.
using Series = std::pair<std::string, int>;

Series seriesOf(const FileName& parts) { return {parts.text.value_or(""), parts.ev.value_or(0)}; }

/// Numbered anew, and the last one repeated.
void place(std::vector<const File*> series, int files, std::vector<Placement>& placements) {
  std::sort(series.begin(), series.end(),
            [](const File* a, const File* b) { return a->parts->index < b->parts->index; });
  const int count = std::max(static_cast<int>(series.size()), files);
  for (int index = 0; index < count; ++index) {
    const File& file = *series[std::min(static_cast<std::size_t>(index), series.size() - 1)];
    FileName parts = *file.parts;
    parts.index = index;
    placements.push_back({file.name, makeFileName(parts)});
  }
}

}  // namespace

std::vector<Placement> placementsOf(const std::vector<File>& files, int shadingFiles) {
  std::vector<Placement> placements;
  std::map<Series, std::vector<const File*>> shading;
  for (const File& file : files) {
    if (!file.isRecord() || file.type != FileType::kRegular) continue;
    if (file.parts->index) {
      shading[seriesOf(*file.parts)].push_back(&file);
    } else {
      placements.push_back({file.name, file.name});
    }
  }
  for (const auto& series : shading) place(series.second, shadingFiles, placements);
  return placements;
}

std::vector<std::string> leftOut(const Capture& capture, const std::vector<File>& files) {
  std::vector<std::string> names;
  const Directory folder(capture.path);
  for (const File& file : files) {
    if (file.type == FileType::kRegular) continue;
    const auto status = folder.look(file.name, true);
    if (status && S_ISREG(status->st_mode)) throw Error(folder.pathOf(file.name) + ": unreadable");
    names.push_back(file.name);
  }
  return names;
}

}  // namespace simrec
