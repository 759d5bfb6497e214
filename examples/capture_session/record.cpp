#include "record.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "catalogue/file_name.h"
#include "data_folder.h"

namespace capture {
namespace {

std::string textOf(const RecordFile& file, unsigned camera) {
  std::string text = file.text;
  const std::size_t mark = text.find('#');
  return mark == std::string::npos ? text : text.replace(mark, 1, std::to_string(camera));
}

}  // namespace

std::vector<std::string> filesOf(const Record& record, const View& view, const std::string& folder,
                                 unsigned number) {
  const std::string prefix = folder.empty() ? "" : folder + "/";
  std::vector<std::string> files;
  for (const RecordFile& file : record.files) {
    const int camera = static_cast<int>(view.camera());
    files.push_back(
        prefix + catalogue::makeFileName({catalogue::kindNamed(file.kind), camera, file.ev,
                                          textOf(file, view.camera()), static_cast<int>(number)}));
  }
  return files;
}

std::vector<std::string> logLines(const char* pattern, const std::vector<std::string>& files) {
  if (!pattern) return {};
  const std::string text = pattern;
  const std::size_t star = text.find('*');
  const std::string extension = text.substr(star + 1, 4);
  std::vector<std::string> lines;
  for (const std::string& file : files) {
    if (file.compare(file.size() - 4, 4, extension) != 0) continue;
    lines.push_back(text.substr(0, star) + kCameraData + "/" + file + text.substr(star + 5));
  }
  return lines;
}

void copy(Rgb color, float (&to)[3]) {
  to[0] = asFloat(color.r);
  to[1] = asFloat(color.g);
  to[2] = asFloat(color.b);
}

void passThroughText(Bytes* bytes, std::size_t offset, std::size_t count, const char* format) {
  for (std::size_t i = 0; i < count; ++i, offset += sizeof(float)) {
    char text[64];
    std::snprintf(text, sizeof text, format, double{structureIn<float>(*bytes, offset)});
    const float value = std::strtof(text, nullptr);
    std::memcpy(bytes->data() + offset, &value, sizeof value);
  }
}

std::vector<Record> allRecords() {
  std::vector<Record> all;
  for (const auto& family : {aeRecords, awbRecords, awbStatsRecords, qsegRecords, zoawbRecords,
                             faceRecords, lscRecords, acbRecords}) {
    for (Record& record : family()) all.push_back(std::move(record));
  }
  return all;
}

}  // namespace capture
