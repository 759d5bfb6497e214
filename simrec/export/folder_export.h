// An export as folders of text files.
#pragma once

#include <string>
#include <vector>

#include "simrec/export/draft.h"
#include "simrec/export/export.h"
#include "simrec/export/export_log.h"
#include "simrec/export/part_files.h"
#include "simrec/export/row_text.h"
#include "simrec/table/batches.h"

namespace simrec {

/// `Lines`: JsonLines or CsvLines.
template <typename Lines>
class FolderExport {
 public:
  /// The rows of one partition in a batch.
  struct Piece {
    const Table* table;
    std::optional<int> camera;
    std::string lines;
  };
  struct Result {
    std::vector<Piece> pieces;
    std::uint64_t problems = 0;
  };

  /// Throws Error where what stands there is none of these exports, or none to append to.
  explicit FolderExport(const ExportWishes& wishes);

  bool isNew(const Capture& capture, const File& file) { return log_->isNew(capture, file); }
  /// May be called by several threads at once.
  Result read(const Batch& batch) const;
  void write(const Result& result);
  /// All is written; nothing of it stands in its place yet.
  void end();
  void publish() { draft_.publish(); }

 private:
  Draft draft_;
  std::vector<Table> tables_;
  std::vector<Lines> lines_;  ///< of the table of that index
  PartFiles parts_;
  std::optional<ExportLog> log_;
};

extern template class FolderExport<JsonLines>;
extern template class FolderExport<CsvLines>;

}  // namespace simrec
