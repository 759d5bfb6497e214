#include "simrec/export/database_export.h"

#include <simulation/records.h>

#include <array>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <limits>

#include "simrec/content.h"
#include "simrec/error.h"
#include "simrec/export/database_schema.h"
#include "simrec/export/row_text.h"
#include "simrec/json.h"
#include "simrec/regular_file.h"
#include "simrec/table/row_reader.h"
#include "simrec/text.h"

namespace simrec {
namespace {

namespace fs = std::filesystem;
using Parameter = DatabaseExport::Parameter;
using Result = DatabaseExport::Result;

/// What a database of this program says of itself, with lists and without.
constexpr int kApplication = 0x73696D72;
constexpr int versionOf(bool lists) { return lists ? 6 : 5; }

/// The number that stands there in a database's head.
int numberInHead(const std::string& head, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    number = number << 8 | static_cast<unsigned char>(head[at + i]);
  }
  return static_cast<int>(number);
}

/// The first bytes of the database at `place`, which is an export; empty where nothing stands.
/// Throws Error where there is anything that should not be replaced.
std::string headOfDatabase(const std::string& place) {
  std::error_code error;
  const fs::file_status status = fs::status(place, error);
  if (!fs::exists(status)) return "";
  const RegularFile file(place);
  if (!file.problem.empty()) throw Error(place + ": " + file.problem);
  if (file.bytes == 0) return "";
  std::string head(100, '\0');
  head.resize(readUpTo(file.descriptor, head.data(), head.size()));
  constexpr std::size_t kVersion = 60, kOwner = 68;
  if (head.size() < 100 || head.compare(0, 15, "SQLite format 3") != 0 ||
      numberInHead(head, kOwner) != kApplication || numberInHead(head, kVersion) == 0) {
    throw Error(place + " is no export: choose another file");
  }
  for (const char* beside : {"-journal", "-wal"}) {
    const std::uintmax_t bytes = fs::file_size(place + beside, error);
    if (!error && bytes > 0) throw Error(place + " is in use: " + beside + " exists");
  }
  return head.substr(kVersion, 4);
}

/// Parameters of rows as they are made.
class Encoder {
 public:
  explicit Encoder(Result& result) : result_(result) {}

  void begin(std::size_t statement) {
    result_.insertions.push_back({statement, result_.parameters.size(), 0});
  }

  void addBytes(std::string_view bytes) {
    Parameter& parameter = next();
    addText(parameter, bytes);
    parameter.is = Parameter::Is::kBytes;
  }

  void add(const Cell& cell) {
    Parameter& parameter = next();
    switch (cell.is) {
      case Cell::Is::kNull:
        return;
      case Cell::Is::kUnsigned:
        if (cell.integer > std::uint64_t{std::numeric_limits<std::int64_t>::max()}) {
          return addText(parameter, std::to_string(cell.integer));
        }
        [[fallthrough]];
      case Cell::Is::kSigned:
        parameter.is = Parameter::Is::kInteger;
        parameter.integer = static_cast<std::int64_t>(cell.integer);
        return;
      case Cell::Is::kDouble:
        if (std::isnan(cell.decimal)) return addText(parameter, "nan");
        parameter.is = Parameter::Is::kReal;
        parameter.real = cell.decimal;
        return;
      case Cell::Is::kText:
        return addText(parameter, asUtf8(cell.text));
      case Cell::Is::kTime:
        return addText(parameter, utcTime(static_cast<std::int64_t>(cell.integer)));
      case Cell::Is::kList: {
        std::string text;
        appendNumbers(text, *cell.list);
        return addText(parameter, text);
      }
    }
  }

 private:
  Parameter& next() {
    ++result_.insertions.back().count;
    return result_.parameters.emplace_back();
  }

  void addText(Parameter& parameter, std::string_view text) {
    parameter.is = Parameter::Is::kText;
    parameter.begin = result_.texts.size();
    parameter.size = static_cast<std::uint32_t>(text.size());
    result_.texts += text;
  }

  Result& result_;
};

const NumberList* listNamed(const Row& row, std::string_view name) {
  const std::vector<Column>& columns = row.table->columns;
  for (std::size_t i = kLeads; i < columns.size(); ++i) {
    if (columns[i].name == name) return row.cells[i].list;
  }
  return nullptr;
}

/// The light that the corners get, as a share of what the middle gets.
Cell fallOff(const Row& row, const char* name) {
  const NumberList* const list = listNamed(row, name);
  const auto* const gains =
      list != nullptr ? std::get_if<std::vector<float>>(&list->values) : nullptr;
  if (gains == nullptr || gains->size() != kLscRows * kLscColumns) return {};
  const auto at = [&](std::size_t y, std::size_t x) {
    return static_cast<double>((*gains)[y * kLscColumns + x]);
  };
  constexpr std::size_t kBottom = kLscRows - 1, kRight = kLscColumns - 1;
  const double corners = (at(0, 0) + at(0, kRight) + at(kBottom, 0) + at(kBottom, kRight)) / 4;
  return Cell::ofDouble(at(kBottom / 2, kRight / 2) / corners);
}

Cell numberAt(const NumberList* list, std::size_t index) {
  if (list == nullptr || index >= list->size()) return {};
  return std::visit(
      [&](const auto& values) {
        using Item = typename std::decay_t<decltype(values)>::value_type;
        if constexpr (std::is_same_v<Item, float>) return Cell::ofDouble(values[index]);
        return Cell::ofUnsigned(static_cast<std::uint64_t>(values[index]));
      },
      list->values);
}

void addTaken(const Capture& capture, const File& file, std::size_t statement, Encoder& encoder) {
  encoder.begin(statement);
  encoder.add(Cell::ofText(file.parts->kind->name));
  encoder.addBytes(capture.name);
  encoder.addBytes(file.name);
  encoder.add(Cell::ofSigned(file.modified));
  encoder.add(Cell::ofSigned(static_cast<std::int64_t>(file.bytes)));
}

void addFallOff(const Row& row, std::size_t statement, Encoder& encoder) {
  encoder.begin(statement);
  for (const char* list : kFallOffLists) encoder.add(fallOff(row, list));
}

void addRegions(const Row& row, std::size_t statement, Encoder& encoder) {
  std::array<const NumberList*, std::size(kRegionLists)> lists = {};
  std::size_t regions = 0;
  for (std::size_t i = 0; i < lists.size(); ++i) {
    lists[i] = listNamed(row, kRegionLists[i]);
    if (lists[i] != nullptr) regions = std::max(regions, lists[i]->size());
  }
  const bool offline = row.table->kind->name == std::string_view(kOfflineGrid);
  for (std::size_t region = 0; region < regions; ++region) {
    encoder.begin(statement);
    encoder.add(Cell::ofSigned(offline ? 1 : 0));
    encoder.add(Cell::ofUnsigned(region));
    for (const NumberList* list : lists) encoder.add(numberAt(list, region));
  }
}

void bindParameter(Statement& statement, int at, const Parameter& parameter,
                   std::string_view texts) {
  switch (parameter.is) {
    case Parameter::Is::kNull:
      return statement.bind(at);
    case Parameter::Is::kInteger:
      return statement.bind(at, parameter.integer);
    case Parameter::Is::kReal:
      return statement.bind(at, parameter.real);
    case Parameter::Is::kText:
      return statement.bind(at, texts.substr(parameter.begin, parameter.size));
    case Parameter::Is::kBytes:
      return statement.bindBlob(at, texts.substr(parameter.begin, parameter.size));
  }
}

}  // namespace

DatabaseExport::DatabaseExport(const ExportWishes& wishes)
    : draft_(wishes.out), tables_(makeTables(wishes.lists)), readTables_(tables_) {
  for (Table& table : readTables_) {
    if (table.kind->name == std::string_view(kShading)) table = Table(*table.kind, true);
  }
  const std::string standing = headOfDatabase(draft_.place());
  const bool append = !standing.empty() && wishes.append;
  if (append && numberInHead(standing, 0) != versionOf(wishes.lists)) {
    throw Error(draft_.place() +
                " has other columns (--lists, or another version): nothing can be appended");
  }
  if (append) {
    const fs::path place = draft_.place(), copy = draft_.path();
    copyFile(Directory(place.parent_path().string()), place.filename().string(),
             Directory(copy.parent_path().string()), copy.filename().string());
    older_.emplace(draft_.place(), Database::Use::kRead);
    knows_.emplace(older_->prepare(kFileIsTaken));
  }
  database_.emplace(draft_.path(), Database::Use::kWrite);
  begin(append);
}

void DatabaseExport::begin(bool append) {
  // The draft is nobody's until it is whole: no journal, no waiting for the disk.
  database_->run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA cache_size = -600;");
  if (!append) {
    database_->run("PRAGMA application_id = " + std::to_string(kApplication) +
                   "; PRAGMA user_version = " + std::to_string(versionOf(tables_.front().lists)));
  }
  database_->run("BEGIN");
  if (!append) database_->run(sqlForTables(tables_));
  appending_ = append;
  const auto prepare = [&](const std::string& table, std::size_t columns) {
    std::string marks = "?";
    for (std::size_t i = 1; i < columns; ++i) marks += ",?";
    inserts_.push_back(database_->prepare("INSERT INTO " + table + " VALUES (" + marks + ")"));
  };
  for (const Table& table : tables_) prepare(table.kind->name, table.columns.size());
  inserts_.push_back(database_->prepare(kTakeFile));
  prepare(kFallOffTable, 1 + std::size(kFallOffLists));
  if (tables_.front().lists) prepare(kRegionTable, 3 + std::size(kRegionLists));
}

bool DatabaseExport::isNew(const Capture& capture, const File& file) {
  if (!older_) return true;
  knows_->bindBlob(1, capture.name);
  knows_->bindBlob(2, file.name);
  knows_->bind(3, file.modified);
  knows_->bind(4, static_cast<std::int64_t>(file.bytes));
  return !knows_->run();
}

DatabaseExport::Result DatabaseExport::read(const Batch& batch) const {
  static thread_local Row row;
  Result result;
  Encoder encoder(result);
  for (const File& file : batch.files) {
    const auto index = static_cast<std::size_t>(file.parts->kind - catalogue::kinds().begin());
    readRow(*batch.capture, file, readTables_[index], row);
    result.problems += row.problem.empty() ? 0 : 1;
    encoder.begin(index);
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      if (!row.table->columns[i].list || tables_[index].lists) encoder.add(row.cells[i]);
    }
    addTaken(*batch.capture, file, tables_.size(), encoder);
    const std::string_view kind = row.table->kind->name;
    if (kind == kShading) addFallOff(row, tables_.size() + 1, encoder);
    const bool grid = kind == kGrid || kind == kOfflineGrid;
    if (grid && tables_[index].lists) addRegions(row, tables_.size() + 2, encoder);
  }
  return result;
}

void DatabaseExport::write(const Result& result) {
  std::int64_t record = 0;
  for (const Insertion& row : result.insertions) {
    Statement& statement = inserts_[row.statement];
    const bool isRecord = row.statement < tables_.size();
    int parameter = 1;
    if (!isRecord) statement.bind(parameter++, record);
    for (std::size_t i = row.first; i < row.first + row.count; ++i) {
      bindParameter(statement, parameter++, result.parameters[i], result.texts);
    }
    statement.run();
    if (isRecord) record = database_->lastRow();
  }
}

void DatabaseExport::end() {
  if (!appending_) database_->run(sqlForIndexes(tables_));
  database_->run("COMMIT");
  knows_.reset();
  inserts_.clear();
  older_.reset();
  database_->close();
}

}  // namespace simrec
