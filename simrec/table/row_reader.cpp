#include "simrec/table/row_reader.h"

#include "simrec/regular_file.h"
#include "simrec/table/plain_xml.h"

namespace simrec {
namespace {

using catalogue::Format;
using catalogue::Member;
using catalogue::Members;
using catalogue::Shape;

/// Larger files are nothing that the library writes: readRecord() knows how to go about them.
constexpr std::uint64_t kLargestPlain = 4 << 20;

/// The folder's own name tells it, wherever the folder is.
std::optional<catalogue::RequestFolder> requestOf(const Capture& capture) {
  if (capture.request || capture.kind != CaptureKind::kFolder) return capture.request;
  std::string_view path = capture.path;
  while (!path.empty() && path.back() == '/') path.remove_suffix(1);
  return catalogue::parseRequestFolder(path.substr(path.rfind('/') + 1));
}

Cell cellOf(const std::optional<int>& number) { return number ? Cell::ofSigned(*number) : Cell{}; }

void fillLeads(const Capture& capture, const File& file, Row& row) {
  const catalogue::FileName& parts = *file.parts;
  const auto request = requestOf(capture);
  row.cells[kCapture] = Cell::ofText(capture.name);
  row.cells[kRequest] = request ? Cell::ofSigned(request->request) : Cell{};
  row.cells[kCamera] = cellOf(parts.camera);
  row.cells[kEv] = cellOf(parts.ev);
  row.cells[kText] = parts.text ? Cell::ofText(*parts.text) : Cell{};
  row.cells[kIndex] = cellOf(parts.index);
  row.cells[kFile] = Cell::ofText(file.name);
  row.cells[kModified] = file.hasTime() ? Cell::ofTime(file.modified) : Cell{};
  row.cells[kProblem] = {};
}

bool readPlain(const Capture& capture, const File& file, Row& row) {
  if (row.table->kind->format != Format::kXml || file.type != FileType::kRegular) return false;
  const RegularFile regular(capture.path + "/" + file.name);
  if (!regular.problem.empty() || regular.bytes > kLargestPlain) return false;
  const auto size = static_cast<std::size_t>(regular.bytes);
  if (row.bytes.size() < size) row.bytes.resize(size);
  return readUpTo(regular.descriptor, row.bytes.data(), size) == size &&
         readPlainXml({row.bytes.data(), size}, row);
}

/// Takes cell after cell, in the order of the table's columns.
class CellFiller {
 public:
  CellFiller(Cell* cell, bool lists) : cell_(cell), lists_(lists) {}

  void put(const Cell& cell) { *cell_++ = cell; }

  /// No values: the element around them is missing.
  void fill(const Members& members, const Values* values) {
    for (const Member& member : members) {
      fill(member, values != nullptr ? find(*values, member.name) : nullptr);
    }
  }

 private:
  void fill(const Member& member, const Value* value) {
    switch (member.shape) {
      case Shape::kNumber:
        return put(value != nullptr ? cellOf(*value->number()) : Cell{});
      case Shape::kList:
        if (lists_) put(value != nullptr ? Cell::ofList(value->list()) : Cell{});
        return;
      case Shape::kGroup:
        return fill(member.members, value != nullptr ? value->members() : nullptr);
      case Shape::kArray:
        break;
    }
    const std::size_t items = value != nullptr ? value->items()->size() : 0;
    for (std::size_t i = 0; i < member.count; ++i) {
      fill(member.members, i < items ? &(*value->items())[i] : nullptr);
    }
  }

  static Cell cellOf(const Number& number) {
    if (number.isFloat()) return Cell::ofDouble(number.decimal);
    if (number.type == catalogue::Type::kUint64) return Cell::ofUnsigned(number.integer);
    return Cell::ofSigned(static_cast<std::int64_t>(number.integer));
  }

  Cell* cell_;
  bool lists_;
};

void readAnything(const Capture& capture, const File& file, Row& row) {
  row.lists.clear();
  Reading reading;
  reading.binary = false;
  row.record = readRecord(capture.path, file, reading);
  const catalogue::Kind& kind = *row.table->kind;
  CellFiller filler(row.cells.data() + kLeads, row.table->lists);
  if (kind.format == Format::kBinary) {
    filler.put(row.record.opened ? Cell::ofSigned(static_cast<std::int64_t>(row.record.file.bytes))
                                 : Cell{});
  }
  filler.fill(kind.members, &row.record.values);
  if (row.record.problems.empty()) return;
  for (const std::string& problem : row.record.problems) {
    row.problem += (row.problem.empty() ? "" : "; ") + problem;
  }
  row.cells[kProblem] = Cell::ofText(row.problem);
}

}  // namespace

void readRow(const Capture& capture, const File& file, const Table& table, Row& row) {
  row.table = &table;
  row.cells.resize(table.columns.size());
  row.lists.clear();
  row.record = {};
  row.problem.clear();
  fillLeads(capture, file, row);
  if (!readPlain(capture, file, row)) readAnything(capture, file, row);
}

}  // namespace simrec
