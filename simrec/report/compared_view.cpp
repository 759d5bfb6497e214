// Pictures of two records of one kind side by side, and the map of what differs.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "simrec/expected_values.h"
#include "simrec/report/bayer_grid.h"
#include "simrec/report/label_map.h"
#include "simrec/report/lens_shading.h"
#include "simrec/report/plane.h"
#include "simrec/report/views.h"
#include "simrec/wording.h"

namespace simrec::report {
namespace {

/// Two fields of one thing.
struct FieldPair {
  std::string title;
  const Field& a;
  const Field& b;
  bool isRatio = false;
};

Range commonRange(const Range& a, const Range& b) {
  return {std::min(a.low, b.low), std::max(a.high, b.high)};
}

/// "B - A: most by 0.031 at column 3, row 5 ..., RMS ...", what a person wants to know first.
std::string sentenceFor(const Field& difference) {
  double most = 0, squares = 0;
  std::size_t at = 0, count = 0, differing = 0;
  for (std::size_t i = 0; i < difference.values.size(); ++i) {
    const double value = difference.values[i];
    if (!std::isfinite(value)) continue;
    ++count;
    squares += value * value;
    differing += value != 0 ? 1 : 0;
    if (std::fabs(value) > std::fabs(most)) {
      most = value;
      at = i;
    }
  }
  if (differing == 0) return "No place differs.";
  return fmt::format("{} of {} places differ, most by {} at {}; RMS {}.", differing, count,
                     rounded(most), placeOf(at, difference.columns),
                     rounded(std::sqrt(squares / static_cast<double>(count))));
}

/// Side by side on one scale, then B - A on one around 0.
void addFigures(const FieldPair& pair, const Palette& palette, Ids& ids, Json& view) {
  const bool alike = pair.a.columns == pair.b.columns && pair.a.rows == pair.b.rows;
  if (!pair.a.isDrawable() || !pair.b.isDrawable() || !alike) return;
  Field difference = {pair.a.columns, pair.a.rows, differenceOf(pair.b.values, pair.a.values)};
  const Extremes extremes = extremesOf(difference.values);
  const double most = std::max(std::fabs(extremes.low), std::fabs(extremes.high));
  if (most == 0) return;
  Numbers numbers(ids);
  numbers.add("A", tokensOf(pair.a.values));
  numbers.add("B", tokensOf(pair.b.values));
  numbers.add("B-A", tokensOf(difference.values));
  Map map = {pair.title + ", A", "", "the first capture", "A B B-A", &palette};
  map.isRatio = pair.isRatio;
  map.range = commonRange(rangeOf(map, pair.a), rangeOf(map, pair.b));
  view["figures"].push_back(figure(map, pair.a, numbers));
  map.title = pair.title + ", B";
  map.what = "the second capture";
  view["figures"].push_back(figure(map, pair.b, numbers));
  map.title = pair.title + ", B - A";
  map.what = "the second capture less the first one";
  map.palette = &divergingPalette();
  map.isRatio = false;
  map.range = Range::around(most);
  Json shown = figure(map, difference, numbers);
  shown["summary"] = sentenceFor(difference);
  view["figures"].push_back(std::move(shown));
  view["dataSets"].push_back(numbers.json());
}

void addGrids(const Record& a, const Record& b, Ids& ids, Json& view) {
  const BayerGrid first = bayerGridOf(a.values), second = bayerGridOf(b.values);
  const FieldPair pairs[] = {{"Mean level", first.level, second.level},
                             {"R/G", first.redness, second.redness, true},
                             {"B/G", first.blueness, second.blueness, true}};
  for (const FieldPair& pair : pairs) addFigures(pair, sequentialPalette(), ids, view);
}

void addShading(const Record& a, const Record& b, Ids& ids, Json& view) {
  const auto first = shadingOf(a.values), second = shadingOf(b.values);
  for (const ShadingChannel& channel : first) {
    for (const ShadingChannel& other : second) {
      if (std::string_view(channel.member) != other.member) continue;
      addFigures({fmt::format("{} gain", channel.name), channel.gains, other.gains},
                 sequentialPalette(), ids, view);
    }
  }
}

void addPlanes(const Record& a, const Record& b, Ids& ids, Json& view) {
  const Plane first = planeOf(a.bytes, 0), second = planeOf(b.bytes, first.width);
  addFigures({"Y plane", first.means, second.means}, greyPalette(), ids, view);
}

/// The key of the maps, and how much each label won and lost.
Json labelTable(const LabelMap& a, const LabelMap& b, const std::vector<std::uint64_t>& won,
                const std::vector<std::uint64_t>& lost) {
  Json rows = Json::array();
  for (std::size_t label = 0; label < won.size(); ++label) {
    if (a.counts[label] == 0 && b.counts[label] == 0) continue;
    rows.push_back(row(fmt::format("Label {}", label),
                       {cell(fmt::format("{:.2f} %", 100 * a.shareOf(label))),
                        cell(fmt::format("{:.2f} %", 100 * b.shareOf(label))),
                        cell(std::to_string(won[label])), cell(std::to_string(lost[label]))},
                       hexOf(labelPalette()[label])));
  }
  return table(
      "Labels and their colours",
      {"Label", "Share of A", "Share of B", "Places that became so", "Places that were so"},
      std::move(rows));
}

/// The labels of B where they are others than those of A.
void addLabels(const Record& a, const Record& b, Ids& ids, Json& view) {
  const auto first = labelMapOf(a.values), second = labelMapOf(b.values);
  if (!first || !second || first->columns != second->columns || first->rows != second->rows) return;
  const std::size_t columns = first->columns, rows = first->rows;
  std::vector<Color> changes;
  std::vector<std::uint64_t> won(labelPalette().size()), lost(won.size());
  std::size_t changed = 0;
  for (std::size_t i = 0; i < first->labels.size(); ++i) {
    const bool differs = first->labels[i] != second->labels[i];
    changes.push_back(differs ? labelPalette()[second->labels[i]] : Color{255, 255, 255});
    if (!differs) continue;
    ++changed;
    ++won[second->labels[i]];
    ++lost[first->labels[i]];
  }
  if (changed == 0) return;
  Numbers numbers(ids);
  const auto addList = [&](const char* name, const Record& record) {
    std::string tokens;
    appendNumbers(tokens, *find(record.values, "qsegStatsInfo")->list());
    numbers.add(name, std::string_view(tokens).substr(1, tokens.size() - 2));
  };
  addList("A", a);
  addList("B", b);
  const auto add = [&](const char* title, const char* what, const std::string& png,
                       const std::string& summary) {
    view["figures"].push_back(
        plainFigure({title, "", what, "A B"}, columns, rows, png, summary, numbers));
  };
  if (!first->isFlat()) add("Label map, A", "the first capture", first->png(), first->sentence());
  if (!second->isFlat()) {
    add("Label map, B", "the second capture", second->png(), second->sentence());
  }
  add("Changed labels", "the labels of B where they are others than in A, on white",
      pngOf(columns, rows, changes),
      fmt::format(
          "{} of {} labels changed ({}); the others are white.", changed, first->labels.size(),
          percentage(static_cast<double>(changed) / static_cast<double>(first->labels.size()))));
  view["tables"].push_back(labelTable(*first, *second, won, lost));
  view["dataSets"].push_back(numbers.json());
}

}  // namespace

Json comparedView(const Record& a, const Record& b, Ids& ids) {
  Json view = newView(a.file, a.problems);
  for (const std::string& problem : b.problems) view["viewProblems"].push_back(problem);
  const std::string_view kind = a.file.parts->kind->name;
  if (isBayerGrid(*a.file.parts->kind)) {
    addGrids(a, b, ids, view);
  } else if (kind == "LSC") {
    addShading(a, b, ids, view);
  } else if (kind == "AWB_QsegImageData") {
    addLabels(a, b, ids, view);
  } else if (kind == "ACB_acb") {
    addPlanes(a, b, ids, view);
  }
  return view;
}

}  // namespace simrec::report
