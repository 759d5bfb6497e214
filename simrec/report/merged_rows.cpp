#include "simrec/report/merged_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <tuple>

#include "simrec/expected_values.h"
#include "simrec/report/views.h"
#include "simrec/text.h"

namespace simrec::report {
namespace {

using NumberSet = std::set<int>;

/// Records of one kind that have every camera with every call and every exposure step here.
struct Records {
  std::array<NumberSet, 3> numbers;  ///< cameras, calls, exposure steps
  std::string text;

  bool operator<(const Records& other) const {
    return std::tie(numbers, text) < std::tie(other.numbers, other.text);
  }
};

/// "0, 2 and 5 to 7"
std::string wordsFor(const NumberSet& numbers) {
  std::vector<std::string> parts;
  for (auto at = numbers.begin(); at != numbers.end();) {
    const int first = *at;
    int last = first;
    for (++at; at != numbers.end() && *at - 1 == last; ++at) last = *at;
    parts.push_back(std::to_string(first));
    if (last == first) continue;
    if (last - 1 == first) {
      parts.push_back(std::to_string(last));
    } else {
      parts.back() += fmt::format(" to {}", last);
    }
  }
  std::string text = parts.front();
  for (std::size_t i = 1; i < parts.size(); ++i) {
    text += (i + 1 < parts.size() ? ", " : " and ") + parts[i];
  }
  return text;
}

Records recordsOf(const RecordPair& pair) {
  const catalogue::FileName& parts = *pair.any().parts;
  const std::string title = titleOf(parts);
  const std::string other = pair.a && pair.b ? titleOf(*pair.b->parts) : title;
  if (other != title) return {{}, title + " and " + other};
  Records records;
  if (parts.kind->hasCamera()) records.numbers[0] = {parts.camera.value_or(0)};
  if (parts.index) records.numbers[1] = {*parts.index};
  if (parts.ev) records.numbers[2] = {*parts.ev};
  if (parts.text) records.text = printable(*parts.text);
  return records;
}

/// Those that differ in one kind of number alone are one.
std::set<Records> united(const std::set<Records>& all, std::size_t which) {
  std::map<Records, NumberSet> found;
  for (Records records : all) {
    const NumberSet numbers = std::move(records.numbers[which]);
    records.numbers[which].clear();
    found[std::move(records)].insert(numbers.begin(), numbers.end());
  }
  std::set<Records> result;
  for (const auto& [rest, numbers] : found) {
    Records records = rest;
    records.numbers[which] = numbers;
    result.insert(std::move(records));
  }
  return result;
}

std::string wordsFor(const Records& records, const NumberSet& allCameras) {
  std::string words;
  const auto add = [&](const std::string& part) {
    if (!part.empty()) words += (words.empty() ? "" : ", ") + part;
  };
  const auto addNumbers = [&](const char* one, const char* several, const NumberSet& numbers) {
    if (numbers.empty()) return;
    add(fmt::format("{} {}", numbers.size() > 1 ? several : one, wordsFor(numbers)));
  };
  const auto& [cameras, calls, steps] = records.numbers;
  if (cameras.size() > 1 && cameras == allCameras) {
    add("All cameras");
  } else {
    addNumbers("Camera", "Cameras", cameras);
  }
  add(records.text);
  addNumbers("call", "calls", calls);
  addNumbers("ev", "ev", steps);
  return words.empty() ? "All cameras" : words;
}

}  // namespace

RecordWords::RecordWords(const std::vector<RecordPair>& pairs) {
  for (const RecordPair& pair : pairs) {
    const catalogue::FileName& parts = *pair.any().parts;
    cameras_[parts.kind].insert(parts.camera.value_or(0));
  }
}

std::string RecordWords::of(const std::vector<const RecordPair*>& records) const {
  const catalogue::Kind& kind = *records.front()->any().parts->kind;
  std::set<Records> all;
  for (const RecordPair* const pair : records) all.insert(recordsOf(*pair));
  for (const std::size_t which : {2, 0, 1}) all = united(all, which);
  std::string words;
  for (const Records& each : all) {
    words += (words.empty() ? "" : "; ") + wordsFor(each, cameras_.at(&kind));
  }
  const bool isOffline = isBayerGrid(kind) && kind.place == catalogue::Place::kNamed;
  return isOffline ? words + ", offline" : words;
}

void MergedRows::add(const RecordPair& record, Texts texts, double rank) {
  const auto [found, isNew] = places_.try_emplace(texts, rows_.size());
  if (isNew) {
    rows_.push_back({std::move(texts), {&record}, rank});
  } else {
    rows_[found->second].records.push_back(&record);
  }
}

std::vector<MergedRows::Row> MergedRows::most(std::size_t count) const {
  std::vector<Row> rows = rows_;
  std::stable_sort(rows.begin(), rows.end(),
                   [](const Row& a, const Row& b) { return a.rank > b.rank; });
  rows.resize(std::min(rows.size(), count));
  return rows;
}

Json rowsFor(const std::vector<MergedRows::Row>& merged, const RecordWords& words) {
  Json rows = Json::array();
  for (const MergedRows::Row& each : merged) {
    std::vector<Json> cells;
    const bool isProblem = each.texts[0] == kProblem;
    for (std::size_t i = 1; i < each.texts.size(); ++i) {
      cells.push_back(cell(each.texts[i], isProblem && !each.texts[i].empty()));
    }
    cells.push_back(cell(words.of(each.records)));
    rows.push_back(row(each.texts[0], std::move(cells)));
  }
  return rows;
}

}  // namespace simrec::report
