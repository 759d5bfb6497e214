#include "simrec/export/row_text.h"

#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "simrec/json.h"
#include "simrec/text.h"

namespace simrec {
namespace {

void appendSigned(std::string& out, std::uint64_t value) {
  char text[simulation::kSignedRoom];
  out.append(text, simulation::writeSigned(text, static_cast<std::int64_t>(value)));
}

void appendUnsigned(std::string& out, std::uint64_t value) {
  char text[simulation::kUnsignedRoom];
  out.append(text, simulation::writeUnsigned(text, value));
}

/// ASCII that stands for itself in a JSON string.
bool isPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; });
}

void appendString(std::string& out, std::string_view text) {
  if (isPlain(text)) {
    out += '"';
    out += text;
    out += '"';
  } else {
    out += dump(Json(asUtf8(text)));
  }
}

void appendTime(std::string& out, const Cell& cell) {
  out += utcTime(static_cast<std::int64_t>(cell.integer));
}

void appendJson(std::string& out, const Cell& cell) {
  switch (cell.is) {
    case Cell::Is::kNull:
      out += "null";
      return;
    case Cell::Is::kSigned:
      return appendSigned(out, cell.integer);
    case Cell::Is::kUnsigned:
      return appendUnsigned(out, cell.integer);
    case Cell::Is::kDouble:
      if (std::isfinite(cell.decimal)) return appendDouble(out, cell);
      [[fallthrough]];
    case Cell::Is::kTime:
      out += '"';
      cell.is == Cell::Is::kTime ? appendTime(out, cell) : appendDouble(out, cell);
      out += '"';
      return;
    case Cell::Is::kText:
      return appendString(out, cell.text);
    case Cell::Is::kList:
      return appendNumbers(out, *cell.list);
  }
}

/// In quotation marks where it would not be taken for itself, or for no value.
void appendQuoted(std::string& out, std::string_view text) {
  if (!text.empty() && text.find_first_of(",\"\n\r") == text.npos) {
    out += text;
    return;
  }
  out += '"';
  for (const char character : text) {
    if (character == '"') out += '"';
    out += character;
  }
  out += '"';
}

void appendCsv(std::string& out, const Cell& cell) {
  switch (cell.is) {
    case Cell::Is::kNull:
      return;
    case Cell::Is::kSigned:
      return appendSigned(out, cell.integer);
    case Cell::Is::kUnsigned:
      return appendUnsigned(out, cell.integer);
    case Cell::Is::kDouble:
      return appendDouble(out, cell);
    case Cell::Is::kTime:
      return appendTime(out, cell);
    case Cell::Is::kText:
      return appendQuoted(out, isPlain(cell.text) ? std::string(cell.text) : asUtf8(cell.text));
    case Cell::Is::kList: {
      std::string text;
      appendNumbers(text, *cell.list);
      return appendQuoted(out, text);
    }
  }
}

}  // namespace

JsonLines::JsonLines(const Table& table) {
  for (const Column& column : table.columns) {
    keys_.push_back((keys_.empty() ? "{\"" : ",\"") + column.name + "\":");
  }
}

void JsonLines::append(std::string& out, const Row& row) const {
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    const Cell& cell = row.cells[i];
    out += keys_[i];
    appendJson(out, cell);
    if (cell.is == Cell::Is::kText && !isPlain(cell.text) && !isUtf8(cell.text)) {
      out += ",\"" + row.table->columns[i].name + "Bytes\":\"" + hex(cell.text) + '"';
    }
  }
  out += "}\n";
}

CsvLines::CsvLines(const Table& table) {
  for (const Column& column : table.columns) {
    head_ += (head_.empty() ? "" : ",") + column.name;
  }
  head_ += '\n';
}

void CsvLines::append(std::string& out, const Row& row) const {
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    if (i > 0) out += ',';
    appendCsv(out, row.cells[i]);
  }
  out += '\n';
}

std::string schemaOf(const Table& table) {
  Json columns = Json::array();
  for (const Column& column : table.columns) {
    columns.push_back({{"name", column.name}, {"type", nameOfType(column)}, {"unit", column.unit}});
  }
  const Json schema = {{"schema", 1}, {"kind", table.kind->name}, {"columns", columns}};
  return dump(schema) + '\n';
}

void appendDouble(std::string& out, const Cell& cell) {
  if (!cell.text.empty()) {
    out += cell.text;
    return;
  }
  const Json json = toJson(cell.decimal);
  out += json.is_string() ? json.get<std::string>() : dump(json);
}

}  // namespace simrec
