#include "simrec/export/folder_export.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "simrec/error.h"
#include "simrec/table/row_reader.h"

namespace simrec {
namespace {

namespace fs = std::filesystem;

/// Whether there is an export. Throws Error where there is anything that should not be replaced.
bool isExport(const std::string& place, const PartFiles& parts, const std::string& format) {
  std::error_code error;
  const fs::file_status status = fs::status(place, error);
  if (!fs::exists(status)) return false;
  if (!fs::is_directory(status)) throw Error(place + ": no folder");
  const std::string head = readExportHead(place);
  if (!head.empty() && head != headOfExportLog(format, false) &&
      head != headOfExportLog(format, true)) {
    throw Error(place + " is an export of another format: choose another folder");
  }
  bool any = false;
  forEachBelow(place, [&](const fs::directory_entry& entry) {
    any = true;
    if (entry.is_directory() && !entry.is_symlink()) return;
    const std::string name = entry.path().lexically_relative(place).string();
    if (entry.is_regular_file() && (name == kExportLog || parts.knows(name))) return;
    throw Error(fmt::format("{} holds {}, which is no part of an export: choose another folder",
                            place, name));
  });
  if (any && head.empty()) throw Error(place + " is no export: choose another folder");
  return any;
}

}  // namespace

template <typename Lines>
FolderExport<Lines>::FolderExport(const ExportWishes& wishes)
    : draft_(wishes.out),
      tables_(makeTables(wishes.lists)),
      lines_(tables_.begin(), tables_.end()),
      parts_(draft_.path(), nameOf(wishes.format)) {
  const std::string head = headOfExportLog(nameOf(wishes.format), wishes.lists);
  const bool older = isExport(draft_.place(), parts_, nameOf(wishes.format)) && wishes.append;
  if (older && readExportHead(draft_.place()) != head) {
    throw Error(draft_.place() + " has other columns (--lists): nothing can be appended");
  }
  parts_.begin(tables_);
  if (older) parts_.share(draft_.place());
  log_.emplace(draft_.path(), head, older ? draft_.place() : "");
}

template <typename Lines>
typename FolderExport<Lines>::Result FolderExport<Lines>::read(const Batch& batch) const {
  static thread_local Row row;
  Result result;
  for (const File& file : batch.files) {
    const auto index = static_cast<std::size_t>(file.parts->kind - catalogue::kinds().begin());
    const Table& table = tables_[index];
    readRow(*batch.capture, file, table, row);
    const auto same = [&](const Piece& piece) {
      return piece.table == &table && piece.camera == file.parts->camera;
    };
    auto piece = std::find_if(result.pieces.begin(), result.pieces.end(), same);
    if (piece == result.pieces.end()) {
      piece = result.pieces.insert(piece, {&table, file.parts->camera, {}});
    }
    lines_[index].append(piece->lines, row);
    result.problems += row.problem.empty() ? 0 : 1;
  }
  return result;
}

template <typename Lines>
void FolderExport<Lines>::write(const Result& result) {
  for (const Piece& piece : result.pieces) {
    const auto index = static_cast<std::size_t>(piece.table - tables_.data());
    parts_.add(*piece.table, piece.camera, lines_[index].head(), piece.lines);
  }
}

template <typename Lines>
void FolderExport<Lines>::end() {
  parts_.end();
  log_->end();
}

template class FolderExport<JsonLines>;
template class FolderExport<CsvLines>;

}  // namespace simrec
