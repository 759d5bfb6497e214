#include "simrec/table/table.h"

namespace simrec {
namespace {

using catalogue::Format;
using catalogue::Member;
using catalogue::Members;
using catalogue::Shape;
using catalogue::Type;

ColumnType columnTypeOf(Type type) {
  switch (type) {
    case Type::kUint64:
      return ColumnType::kUint64;
    case Type::kFloat:
      return ColumnType::kDouble;
    case Type::kUint8:
    case Type::kUint16:
    case Type::kInt32:
    case Type::kUint32:
      break;
  }
  return ColumnType::kInt64;
}

void addColumns(Table& table, const Members& members, const std::string& path) {
  for (const Member& member : members) {
    const std::string name = path + member.name;
    switch (member.shape) {
      case Shape::kList:
        if (!table.lists) continue;
        [[fallthrough]];
      case Shape::kNumber:
        table.columns.push_back(
            {name, columnTypeOf(member.type), member.unit, member.shape == Shape::kList, &member});
        continue;
      case Shape::kGroup:
        addColumns(table, member.members, name + "_");
        continue;
      case Shape::kArray:
        break;
    }
    for (std::size_t i = 0; i < member.count; ++i) {
      addColumns(table, member.members, name + "_" + std::to_string(i) + "_");
    }
  }
}

}  // namespace

Table::Table(const catalogue::Kind& itsKind, bool withLists)
    : kind(&itsKind),
      lists(withLists),
      columns({{"capture", ColumnType::kText, "", false, nullptr},
               {"request", ColumnType::kInt64, "", false, nullptr},
               {"camera", ColumnType::kInt64, "", false, nullptr},
               {"ev", ColumnType::kInt64, "", false, nullptr},
               {"text", ColumnType::kText, "", false, nullptr},
               {"index", ColumnType::kInt64, "", false, nullptr},
               {"file", ColumnType::kText, "", false, nullptr},
               {"modified", ColumnType::kTime, "", false, nullptr},
               {"problem", ColumnType::kText, "", false, nullptr}}) {
  if (kind->format == Format::kBinary) {
    columns.push_back({"size", ColumnType::kInt64, "bytes", false, nullptr});
  }
  addColumns(*this, kind->members, "");
}

std::vector<Table> makeTables(bool lists) {
  std::vector<Table> tables;
  for (const catalogue::Kind& kind : catalogue::kinds()) tables.emplace_back(kind, lists);
  return tables;
}

std::string nameOfType(const Column& column) {
  constexpr const char* kNames[] = {"int64", "uint64", "double", "text", "time"};
  return std::string(kNames[static_cast<std::size_t>(column.type)]) + (column.list ? "[]" : "");
}

}  // namespace simrec
