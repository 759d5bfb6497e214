#include "simrec/export/export.h"

#include <algorithm>

#include "simrec/export/database_export.h"
#include "simrec/export/folder_export.h"
#include "simrec/table/batches.h"

namespace simrec {
namespace {

/// What a writer makes of the records, batch by batch.
template <typename Writer>
void writeAll(Batches& batches, Writer& writer, ExportCounts& counts,
              const std::function<void()>& step) {
  const Capture* counted = nullptr;  // compared only: a batch holds it while it is looked at
  const auto work = [&](Batch& batch) {
    auto result = writer.read(batch);
    return std::pair(std::move(batch), std::move(result));
  };
  const auto take = [&](auto& result) {
    const Batch& batch = result.first;
    counts.rows += batch.files.size();
    counts.problems += result.second.problems;
    if (!batch.files.empty() && batch.capture.get() != counted) {
      ++counts.captures;
      counted = batch.capture.get();
    }
    writer.write(result.second);
    if (batch.last) {
      counted = nullptr;
      step();
    }
  };
  forEachBatch(batches, work, take);
}

template <typename Writer>
ExportCounts exportWith(Batches::Source captures, const ExportWishes& wishes,
                        const std::function<void()>& step) {
  Writer writer(wishes);
  ExportCounts counts;
  const auto isNew = [&](const Capture& capture, const File& file) {
    return writer.isNew(capture, file);
  };
  const auto tell = [&](const Capture&, const std::string& why) {
    constexpr std::size_t kMostTroubles = 10;
    if (counts.troubles.size() < kMostTroubles) {
      counts.troubles.push_back(why);
    } else {
      ++counts.moreTroubles;
    }
  };
  Batches batches(std::move(captures), isNew, tell);
  writeAll(batches, writer, counts, step);
  writer.finish();
  return counts;
}

template <typename Captures>
ExportCounts exportFrom(const Captures& captures, const ExportWishes& wishes,
                        const std::function<void()>& step) {
  const Batches::Source source = [&captures, next = std::size_t{0}]() mutable {
    return next < captures.size() ? std::optional(captures[next++]) : std::nullopt;
  };
  switch (wishes.format) {
    case ExportFormat::kJsonLines:
      return exportWith<FolderExport<JsonLines>>(source, wishes, step);
    case ExportFormat::kCsv:
      return exportWith<FolderExport<CsvLines>>(source, wishes, step);
    case ExportFormat::kSqlite:
      break;
  }
  return exportWith<DatabaseExport>(source, wishes, step);
}

}  // namespace

const char* nameOf(ExportFormat format) {
  switch (format) {
    case ExportFormat::kJsonLines:
      return "jsonl";
    case ExportFormat::kCsv:
      return "csv";
    case ExportFormat::kSqlite:
      break;
  }
  return "sqlite";
}

ExportCounts exportTables(std::vector<Capture> captures, const ExportWishes& wishes,
                          const std::function<void()>& step) {
  std::sort(captures.begin(), captures.end(),
            [](const Capture& a, const Capture& b) { return a.name < b.name; });
  const auto same = [](const Capture& a, const Capture& b) { return a.name == b.name; };
  captures.erase(std::unique(captures.begin(), captures.end(), same), captures.end());
  return exportFrom(captures, wishes, step);
}

ExportCounts exportTables(CaptureList captures, const ExportWishes& wishes,
                          const std::function<void()>& step) {
  captures.sortByName();
  return exportFrom(captures, wishes, step);
}

}  // namespace simrec
