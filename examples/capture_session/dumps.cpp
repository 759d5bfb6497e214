#include "dumps.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "data_folder.h"

namespace capture {
namespace {

namespace fs = std::filesystem;

fs::path inData(const std::string& file) { return fs::path(kCameraData) / file; }

/// 0 when there is no such file.
std::uint64_t sizeOf(const fs::path& path) {
  std::error_code error;
  const auto size = fs::file_size(path, error);
  return error ? 0 : size;
}

void appendContent(const fs::path& path, Bytes* content) {
  const std::size_t end = content->size();
  content->resize(end + sizeOf(path));
  std::ifstream(path, std::ios::binary)
      .read(reinterpret_cast<char*>(content->data() + end),
            static_cast<std::streamsize>(content->size() - end));
}

/// What its binary files hold is the beginning of `data`, all of it where there
/// are no others.
bool filesHold(const Bytes& data, const std::vector<std::string>& files) {
  Bytes content;
  bool all = true;
  for (const std::string& file : files) {
    const bool binary = fs::path(file).extension() == ".bin";
    if (binary) appendContent(inData(file), &content);
    all = all && binary;
  }
  return content.size() <= data.size() && (!all || content.size() == data.size()) &&
         std::equal(content.begin(), content.end(), data.begin());
}

}  // namespace

std::string Dumps::namedFolder(unsigned index) const {
  return index == photo_ ? imageFolder(index) : burstFolder(index);
}

std::string Dumps::keyOf(const Record& record, const View& view) const {
  return record.name + namedFolder(view.index()) + std::to_string(view.camera());
}

void Dumps::add(const Record& record, const View& view) {
  if (record.place == Record::kRequest) return;
  Kept& kept = kept_[keyOf(record, view)];
  if (kept.dumps++ == 0 || record.place != Record::kFirstOfBurst) kept.index = view.index();
}

std::vector<std::string> Dumps::files(const Record& record, const View& view,
                                      const std::string& folder) const {
  if (record.place == Record::kRequest) return filesOf(record, view, folder);
  return filesOf(record, view, namedFolder(view.index()), kept_.at(keyOf(record, view)).dumps - 1);
}

unsigned Dumps::keptIndex(const Record& record, const View& view) const {
  if (record.place == Record::kRequest) return view.index();
  return kept_.at(keyOf(record, view)).index;
}

std::string Dumps::check(const Record& record, const View& view, const Bytes& data,
                         Written* written) {
  if (keptIndex(record, view) != view.index()) return "";
  const auto names = files(record, view, requestFolder(view.request(), view.camera()));
  std::uint64_t bytes = 0;
  for (const std::string& name : names) {
    const std::uint64_t size = sizeOf(inData(name));
    if (size == 0) return "no file for ";
    bytes += size;
  }
  count(record, view, {names.size(), bytes}, written);
  return filesHold(data, names) ? "" : "wrong bytes in the file for ";
}

/// Takes back what was counted for a file that is now written again.
void Dumps::count(const Record& record, const View& view, const Written& dump, Written* written) {
  written->files += dump.files;
  written->bytes += dump.bytes;
  if (record.place != Record::kLastOfBurst) return;
  Written& before = kept_[keyOf(record, view)].counted;
  written->files -= before.files;
  written->bytes -= before.bytes;
  before = dump;
}

}  // namespace capture
