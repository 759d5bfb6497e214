#include <fmt/format.h>

#include <cctype>
#include <cmath>
#include <map>
#include <set>

#include "simrec/report/overview_view.h"
#include "simrec/text.h"

namespace simrec::report {
namespace {

/// More cameras are no phone's: a graph has lines for these only.
constexpr std::size_t kMostLines = 16;

/// Of more cameras not each pair is compared, but all of them.
constexpr std::size_t kMostPaired = 6;

/// A moment, with the name of its capture.
struct Point {
  const Moment* moment;
  const std::string* capture;
};

/// The moments that have a request, in their order.
std::multimap<std::int64_t, Point> pointsOf(const std::vector<Digest>& digests) {
  std::multimap<std::int64_t, Point> points;
  for (const Digest& digest : digests) {
    for (const Moment& moment : digest.moments) {
      if (moment.request) points.emplace(*moment.request, Point{&moment, &digest.capture.name});
    }
  }
  return points;
}

using Points = std::multimap<std::int64_t, Point>;

std::string nameOf(const std::optional<int>& camera) {
  return camera ? fmt::format("camera {}", *camera) : "all cameras";
}

/// "-", or the number; of a fraction as many digits as a file has.
std::string valueText(const std::optional<double>& value) {
  if (!value) return "-";
  return *value == std::trunc(*value) ? dump(toJson(*value)) : fmt::format("{:.8g}", *value);
}

/// A quantity amid a sentence.
std::string inSentence(const Quantity& quantity) {
  std::string name = quantity.title;
  if (std::islower(static_cast<unsigned char>(name[1])) != 0) {
    name[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[0])));
  }
  return name;
}

/// Each camera has its line in all graphs: four looks, one after the other.
std::string lookOf(const std::optional<int>& camera) {
  constexpr unsigned kLooks = 4;
  return camera ? fmt::format("series-{}", static_cast<unsigned>(*camera) % kLooks) : "series-all";
}

/// A row for each request, a column for each camera that has the quantity at all: null where a
/// camera has no value; of two in one request the later one counts.
Json graphOf(const Points& points, std::size_t quantity) {
  std::set<std::optional<int>> cameras;
  std::map<std::int64_t, std::map<std::optional<int>, double>> values;
  for (const auto& [request, point] : points) {
    const auto& value = point.moment->values[quantity];
    if (!value) continue;
    if (cameras.size() == kMostLines && cameras.count(point.moment->camera) == 0) continue;
    cameras.insert(point.moment->camera);
    values[request][point.moment->camera] = *value;
  }
  if (values.empty()) return nullptr;
  Json labels = {"request"}, looks = Json::array(), rows = Json::array();
  for (const auto& camera : cameras) {
    labels.push_back(nameOf(camera));
    looks.push_back(lookOf(camera));
  }
  for (const auto& [request, byCamera] : values) {
    Json row = {request};
    for (const auto& camera : cameras) {
      const auto found = byCamera.find(camera);
      row.push_back(found != byCamera.end() ? toJson(found->second) : Json());
    }
    rows.push_back(std::move(row));
  }
  const Quantity& meaning = kQuantityRows[quantity];
  const Json data = {{"labels", labels}, {"looks", looks}, {"rows", rows}};
  return {{"graphTitle", meaning.title},
          {"graphUnit", meaning.unit},
          {"graphFlag", meaning.isFlag},
          {"graphSummary", counted(values.size(), "request")},
          {"graphData", dump(data)}};
}

Json seriesKey(const Points& points) {
  std::set<std::optional<int>> cameras;
  for (const auto& [request, point] : points) cameras.insert(point.moment->camera);
  Json key = Json::array();
  for (const auto& camera : cameras) {
    key.push_back({{"seriesName", nameOf(camera)}, {"seriesLook", lookOf(camera)}});
  }
  return key;
}

/// Of one camera: from which request on exposure had settled for good.
Json settledRow(const std::optional<int>& camera, const Points& points) {
  std::optional<std::int64_t> settled, last, lastUnsettled;
  std::size_t changes = 0;
  bool before = false;
  for (const auto& [request, point] : points) {
    const auto& value = point.moment->values[kSettled];
    if (point.moment->camera != camera || !value) continue;
    const bool now = *value != 0;
    if (last && now != before) ++changes;
    if (now && (!last || !before)) settled = request;
    if (!now) {
      settled.reset();
      lastUnsettled = request;
    }
    before = now;
    last = request;
  }
  if (!last) return nullptr;
  return row(nameOf(camera),
             {cell(settled ? fmt::format("request {}", *settled) : "not settled at the end",
                   !settled.has_value()),
              cell(lastUnsettled ? fmt::format("request {}", *lastUnsettled) : "none"),
              cell(std::to_string(changes))});
}

Json settledTable(const Points& points) {
  std::set<std::optional<int>> cameras;
  for (const auto& [request, point] : points) cameras.insert(point.moment->camera);
  Json rows = Json::array();
  for (const auto& camera : cameras) {
    if (Json row = settledRow(camera, points); !row.is_null()) rows.push_back(std::move(row));
  }
  if (rows.empty()) return false;
  return table("When exposure settled",
               {"Camera", "Settled from", "Last one not settled", "Changes"}, std::move(rows));
}

/// The same numbers to read.
Json valueTable(const Points& points, const std::vector<std::size_t>& quantities) {
  std::vector<std::string> head = {"Request", "Capture", "Camera"};
  for (const std::size_t quantity : quantities) head.emplace_back(kQuantityRows[quantity].title);
  Json rows = Json::array();
  for (const auto& [request, point] : points) {
    std::vector<Json> cells = {cell(printable(*point.capture)), cell(nameOf(point.moment->camera))};
    for (const std::size_t quantity : quantities) {
      cells.push_back(cell(valueText(point.moment->values[quantity])));
    }
    rows.push_back(row(std::to_string(request), std::move(cells)));
  }
  return table("All values of the timelines", head, std::move(rows));
}

/// "" where there is nothing to say.
std::string sentenceFor(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
  return text;
}

/// What is inconsistent of some moments: "R/G of all regions by 12 %".
std::vector<std::string> inconsistencies(const std::vector<const Moment*>& moments) {
  std::vector<std::string> found;
  for (std::size_t i = 0; i < kQuantities; ++i) {
    const auto spread = spreadOf(moments, i);
    if (!kQuantityRows[i].isCompared || !spread || *spread <= kConsistent) continue;
    found.push_back(
        kQuantityRows[i].isFlag
            ? inSentence(kQuantityRows[i])
            : fmt::format("{} by {:.3g} %", inSentence(kQuantityRows[i]), 100 * *spread));
  }
  return found;
}

std::string verdictOf(const std::vector<const Moment*>& moments) {
  const std::vector<std::string> differing = inconsistencies(moments);
  std::string cameras;
  for (const Moment* const moment : moments) {
    cameras += (cameras.empty() ? "" : " and ") + std::to_string(*moment->camera);
  }
  if (differing.empty()) {
    return fmt::format("Cameras {} are consistent: no quantity differs by more than {:.0f} %.",
                       cameras, 100 * kConsistent);
  }
  return fmt::format("Cameras {} are not consistent: they differ in {}.", cameras,
                     sentenceFor(differing));
}

/// Those of cameras.
std::vector<const Moment*> camerasOf(const std::vector<Moment>& moments) {
  std::vector<const Moment*> found;
  for (const Moment& moment : moments) {
    if (moment.camera) found.push_back(&moment);
  }
  return found;
}

Json comparisonRows(const std::vector<const Moment*>& moments) {
  Json rows = Json::array();
  for (std::size_t i = 0; i < kQuantities; ++i) {
    const Quantity& quantity = kQuantityRows[i];
    const auto spread = spreadOf(moments, i);
    if (!quantity.isCompared || !spread) continue;
    std::vector<Json> cells;
    cells.reserve(moments.size() + 1);
    for (const Moment* const moment : moments) cells.push_back(cell(valueText(moment->values[i])));
    cells.push_back(cell(fmt::format("{:.3g} %", 100 * *spread), *spread > kConsistent));
    rows.push_back(row(quantity.title, std::move(cells)));
  }
  return rows;
}

}  // namespace

Json timelines(const std::vector<Digest>& digests) {
  const Points points = pointsOf(digests);
  if (points.empty() || points.begin()->first == points.rbegin()->first) return false;
  Json graphs = Json::array();
  std::vector<std::size_t> quantities;
  for (std::size_t i = 0; i < kQuantities; ++i) {
    Json graph = graphOf(points, i);
    if (graph.is_null()) continue;
    graphs.push_back(std::move(graph));
    quantities.push_back(i);
  }
  if (graphs.empty()) return false;
  return {{"graphs", std::move(graphs)},
          {"seriesKey", seriesKey(points)},
          {"settledTable", settledTable(points)},
          {"valueTable", valueTable(points, quantities)}};
}

Json cameraComparison(const std::vector<Moment>& moments) {
  const std::vector<const Moment*> cameras = camerasOf(moments);
  if (cameras.size() < 2) return false;
  Json rows = comparisonRows(cameras);
  if (rows.empty()) return false;
  std::vector<std::string> head = {"Quantity"};
  for (const Moment* const moment : cameras) {
    head.push_back(fmt::format("Camera {}", *moment->camera));
  }
  head.emplace_back("Differ by");
  Json verdicts = Json::array();
  if (cameras.size() > kMostPaired) verdicts.push_back(verdictOf(cameras));
  for (std::size_t i = 0; i < cameras.size() && cameras.size() <= kMostPaired; ++i) {
    for (std::size_t j = i + 1; j < cameras.size(); ++j) {
      verdicts.push_back(verdictOf({cameras[i], cameras[j]}));
    }
  }
  return {{"verdicts", verdicts},
          {"comparisonTable", table("Cameras beside each other", head, std::move(rows))}};
}

Json requestConsistency(const std::vector<Digest>& digests) {
  std::map<std::int64_t, std::vector<const Moment*>> requests;
  for (const Digest& digest : digests) {
    if (!digest.capture.request) continue;
    for (const Moment& moment : digest.moments) {
      if (moment.camera) requests[*moment.request].push_back(&moment);
    }
  }
  Json rows = Json::array();
  std::size_t several = 0;
  for (const auto& [request, moments] : requests) {
    if (moments.size() < 2) continue;
    ++several;
    const std::vector<std::string> differing = inconsistencies(moments);
    if (!differing.empty()) {
      rows.push_back(row(std::to_string(request), {cell(sentenceFor(differing), true)}));
    }
  }
  if (several == 0) return false;
  const std::size_t count = rows.size();
  return {{"consistencySentence",
           fmt::format("{} with several cameras: those of {} are consistent within {:.0f} %.",
                       counted(several, "request"), several - count, 100 * kConsistent)},
          {"consistencyTable", count == 0 ? Json(false)
                                          : table("Requests whose cameras are not consistent",
                                                  {"Request", "Differ in"}, std::move(rows))}};
}

}  // namespace simrec::report
