// The parts that a page is made of, as plain data for its templates: tables, maps with what the
// pointer reads from them, the numbers behind them. Texts are printable; templates escape them.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "simrec/json.h"
#include "simrec/report/field.h"

namespace simrec::report {

/// Names for parts of one page, each another.
class Ids {
 public:
  std::string next() { return "p" + std::to_string(++last_); }

 private:
  int last_ = 0;
};

/// A cell of a table; a marked one is out of the ordinary.
Json cell(std::string text, bool marked = false);

/// A row; a swatch is the colour that it stands for: "#rrggbb".
Json row(std::string name, std::vector<Json> cells, const std::string& swatch = "");

/// The first of `head` is that of the rows' names.
Json table(std::string caption, const std::vector<std::string>& head, Json rows);

/// Lists of numbers that the page reads out, each number by its text.
class Numbers {
 public:
  explicit Numbers(Ids& ids) : id_(ids.next()) {}

  const std::string& id() const { return id_; }

  /// `tokens` have commas between. Names are words without blanks.
  void add(const std::string& name, std::string_view tokens);

  /// The list as `show --json` has it.
  void add(const Value& value);

  Json json() const;

 private:
  std::string id_, text_;
};

/// How a field is shown.
struct Map {
  std::string title;
  std::string unit;
  std::string what;   ///< for those who don't see it
  std::string lists;  ///< names of the lists in its numbers that are read out, blanks between
  const Palette* palette = &sequentialPalette();
  std::optional<Range> range = {};  ///< else `rangeOf` the field
  /// Of a quantity and another: a logarithmic scale, whose ends stand for the utmost 2 % as well.
  bool isRatio = false;
};

/// What the ends of the field's own scale stand for.
Range rangeOf(const Map& map, const Field& field);

/// A field as a figure with its scale. One that has no shape, or the same number everywhere, is
/// told in words alone.
Json figure(const Map& map, const Field& field, const Numbers& numbers);

/// A figure whose pixels are no quantities: without a scale.
Json plainFigure(const Map& map, std::size_t columns, std::size_t rows, const std::string& png,
                 const std::string& summary, const Numbers& numbers);

/// "column 3, row 5 (number 183)"
std::string placeOf(std::size_t index, std::size_t columns);

/// A map of a field in a few pixels, for the overview; empty: it has no shape.
std::string thumbnailOf(const Field& red, const Field& green, const Field& blue);

}  // namespace simrec::report
