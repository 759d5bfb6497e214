#include "simrec/export/export.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <set>
#include <utility>

#include "simrec/error.h"
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
ExportCounts exportWith(Batches::Source captures, const ExportWishes& wishes, bool named,
                        const std::function<void()>& step, const std::function<void()>& last) {
  Writer writer(wishes);
  ExportCounts counts;
  const auto isNew = [&](const Capture& capture, const File& file) {
    return writer.isNew(capture, file);
  };
  const auto tell = [&](const Capture&, const std::string& why) {
    if (named) throw Error(why);
    constexpr std::size_t kMostTroubles = 10;
    if (counts.troubles.size() < kMostTroubles) {
      counts.troubles.push_back(why);
    } else {
      ++counts.moreTroubles;
    }
  };
  Batches batches(std::move(captures), isNew, tell);
  writeAll(batches, writer, counts, step);
  writer.end();
  last();
  writer.publish();
  return counts;
}

template <typename Captures>
ExportCounts exportFrom(const Captures& captures, const ExportWishes& wishes, bool named,
                        const std::function<void()>& step, const std::function<void()>& last) {
  const Batches::Source source = [&captures, next = std::size_t{0}]() mutable {
    return next < captures.size() ? std::optional(captures[next++]) : std::nullopt;
  };
  switch (wishes.format) {
    case ExportFormat::kJsonLines:
      return exportWith<FolderExport<JsonLines>>(source, wishes, named, step, last);
    case ExportFormat::kCsv:
      return exportWith<FolderExport<CsvLines>>(source, wishes, named, step, last);
    case ExportFormat::kSqlite:
      break;
  }
  return exportWith<DatabaseExport>(source, wishes, named, step, last);
}

/// By the first of its names.
void leaveEachFolderOnce(std::vector<Capture>& captures) {
  std::set<std::pair<dev_t, ino_t>> seen;
  const auto again = [&](const Capture& capture) {
    struct stat status = {};
    if (stat(capture.path.c_str(), &status) != 0) {
      throw Error(capture.path + ": " + std::strerror(errno));
    }
    return !seen.emplace(status.st_dev, status.st_ino).second;
  };
  captures.erase(std::remove_if(captures.begin(), captures.end(), again), captures.end());
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
                          const std::function<void()>& step, const std::function<void()>& last) {
  leaveEachFolderOnce(captures);
  std::sort(captures.begin(), captures.end(),
            [](const Capture& a, const Capture& b) { return a.name < b.name; });
  return exportFrom(captures, wishes, true, step, last);
}

ExportCounts exportTables(CaptureList captures, const ExportWishes& wishes,
                          const std::function<void()>& step, const std::function<void()>& last) {
  captures.sortByName();
  return exportFrom(captures, wishes, false, step, last);
}

}  // namespace simrec
