#include "simrec/table/columns.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <mutex>
#include <optional>
#include <utility>

#include "simrec/error.h"
#include "simrec/table/in_order.h"
#include "simrec/table/row_reader.h"

namespace simrec {
namespace {

/// So many captures go to a thread at once.
constexpr std::size_t kPiece = 32;

/// Documents in memory are several times as large as their texts: one of these at a time.
constexpr std::uint64_t kLarge = 4 << 20;

struct Piece {
  const Capture* begin;
  const Capture* end;
};

std::uint64_t bitsOf(const Cell& cell) {
  if (cell.is != Cell::Is::kDouble) return cell.integer;
  std::uint64_t bits;
  std::memcpy(&bits, &cell.decimal, sizeof bits);
  return bits;
}

void addRow(const Row& row, Columns& columns) {
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const Cell& cell = row.cells[i];
    ColumnCells& cells = columns.cells[i];
    cells.missing.push_back(cell.is == Cell::Is::kNull ? 1 : 0);
    if (row.table->columns[i].type == ColumnType::kText) {
      cells.texts.emplace_back(cell.text);
    } else {
      cells.numbers.push_back(bitsOf(cell));
    }
  }
}

Columns readPiece(const Piece& piece, const Table& table, std::mutex& large) {
  Columns columns(table);
  Row row;
  for (const Capture* capture = piece.begin; capture != piece.end; ++capture) {
    try {
      for (const File& file : filesOf(*capture, *table.kind)) {
        std::unique_lock<std::mutex> alone(large, std::defer_lock);
        if (file.bytes >= kLarge) alone.lock();
        readRow(*capture, file, table, row);
        addRow(row, columns);
        if (file.bytes >= kLarge) row = {};
      }
    } catch (const Error& error) {
      columns.troubles.emplace_back(error.what());
    }
  }
  return columns;
}

template <typename Item>
void appendAll(std::vector<Item>& to, std::vector<Item>&& from) {
  to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

}  // namespace

void Columns::append(Columns&& others) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    appendAll(cells[i].numbers, std::move(others.cells[i].numbers));
    appendAll(cells[i].texts, std::move(others.cells[i].texts));
    appendAll(cells[i].missing, std::move(others.cells[i].missing));
  }
  appendAll(troubles, std::move(others.troubles));
}

Columns readColumns(const std::vector<Capture>& captures, const Table& table) {
  Columns all(table);
  std::mutex large;
  const Capture* at = captures.data();
  const Capture* const end = at + captures.size();
  inOrder(
      [&]() -> std::optional<Piece> {
        if (at == end) return std::nullopt;
        const Capture* const begin = at;
        at += std::min(kPiece, static_cast<std::size_t>(end - begin));
        return Piece{begin, at};
      },
      [](const Piece&) { return false; },
      [&](const Piece& piece) { return readPiece(piece, table, large); },
      [&](Columns& columns) { all.append(std::move(columns)); });
  return all;
}

}  // namespace simrec
