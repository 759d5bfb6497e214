// The records of captures as tables for other programs to analyse: folders of text files, or one
// SQLite database.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "simrec/capture_list.h"

namespace simrec {

enum class ExportFormat { kJsonLines, kCsv, kSqlite };

/// "jsonl", "csv", "sqlite".
const char* nameOf(ExportFormat format);

struct ExportWishes {
  ExportFormat format = ExportFormat::kJsonLines;
  std::string out;      ///< the folder or the database
  bool lists = false;   ///< lists are columns, too
  bool append = false;  ///< to what is there; only what is new
};

struct ExportCounts {
  std::uint64_t captures = 0;  ///< with a record that was taken
  std::uint64_t rows = 0;
  std::uint64_t problems = 0;  ///< rows with one
  /// Captures that could not be looked into, and why, in words; the first few of them.
  std::vector<std::string> troubles;
  std::uint64_t moreTroubles = 0;
};

/// Takes all records of the captures, in the order of the captures' names. `step` is called once
/// for each capture that was read, by one thread at a time, and `last` once all is written, before
/// it takes the place of what stood at `out`: what either throws ends the export, and leaves that.
/// It must be an export of this format, or nothing. A folder that several of the captures are is
/// taken once. Throws Error, also for a capture that can't be looked into.
ExportCounts exportTables(
    std::vector<Capture> captures, const ExportWishes& wishes, const std::function<void()>& step,
    const std::function<void()>& last = [] {});

/// The same of all captures of a data folder; those that can't be looked into are told.
ExportCounts exportTables(
    CaptureList captures, const ExportWishes& wishes, const std::function<void()>& step,
    const std::function<void()>& last = [] {});

}  // namespace simrec
