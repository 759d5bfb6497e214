#include "simrec/table/quick_record.h"

#include <utility>

#include "simrec/table/row_reader.h"

namespace simrec {
namespace {

using catalogue::Member;
using catalogue::Members;
using catalogue::Shape;

/// The cells of a row with lists, one after the other, as the values they were.
class ValueMaker {
 public:
  explicit ValueMaker(Row& row) : row_(row), cell_(row.cells.data() + kLeads) {}

  Values values(const Members& members) {
    Values values;
    values.reserve(members.size());
    for (const Member& member : members) {
      switch (member.shape) {
        case Shape::kNumber:
          if (cell_->is != Cell::Is::kNull) values.push_back({&member, number(member)});
          ++cell_;
          break;
        case Shape::kList:
          values.push_back({&member, std::move(row_.lists[lists_++])});
          ++cell_;
          break;
        case Shape::kGroup:
          values.push_back({&member, this->values(member.members)});
          break;
        case Shape::kArray: {
          std::vector<Values> items;
          for (std::size_t i = 0; i < member.count; ++i) {
            items.push_back(this->values(member.members));
          }
          values.push_back({&member, std::move(items)});
        }
      }
    }
    return values;
  }

 private:
  Number number(const Member& member) const {
    return {member.type, cell_->integer, cell_->decimal, static_cast<float>(cell_->decimal)};
  }

  Row& row_;
  const Cell* cell_;
  std::size_t lists_ = 0;
};

const Table& tableOf(const catalogue::Kind& kind) {
  static const std::vector<Table> tables = makeTables(true);
  return tables[static_cast<std::size_t>(&kind - catalogue::kinds().begin())];
}

}  // namespace

QuickRecord readQuickly(const Capture& capture, const File& file) {
  QuickRecord quick;
  if (file.parts->kind->format == catalogue::Format::kBinary) {
    quick.record = readRecord(capture.path, file);
    return quick;
  }
  readRow(capture, file, tableOf(*file.parts->kind), quick.row);
  if (quick.row.record.file.parts) {  // a document was needed
    quick.record = std::move(quick.row.record);
    return quick;
  }
  quick.record.file = file;
  quick.record.opened = true;
  quick.record.values = ValueMaker(quick.row).values(file.parts->kind->members);
  return quick;
}

}  // namespace simrec
