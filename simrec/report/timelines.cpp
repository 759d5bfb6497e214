#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <string>

#include "simrec/provenance.h"
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

using Points = std::multimap<std::int64_t, Point>;

/// The moments that have a request, in their order; without those of `copies`.
Points pointsOf(const std::vector<Digest>& digests, const std::set<std::string>& copies) {
  Points points;
  for (const Digest& digest : digests) {
    if (copies.count(digest.capture.path) > 0) continue;
    for (const Moment& moment : digest.moments) {
      if (moment.request) points.emplace(*moment.request, Point{&moment, &digest.capture.name});
    }
  }
  return points;
}

/// The folders of changed copies of captures that are here, too: they are no moments of their own.
std::set<std::string> copiesAmong(const std::vector<Digest>& digests) {
  std::set<std::string> names, copies;
  for (const Digest& digest : digests) names.insert(digest.capture.name);
  for (const Digest& digest : digests) {
    const auto provenance = readProvenance(digest.capture);
    if (provenance && names.count(provenance->capture) > 0) copies.insert(digest.capture.path);
  }
  return copies;
}

/// What lines show: of each request and camera one moment.
class Shown {
 public:
  /// Of several that have a value the last one counts.
  explicit Shown(const Points& points) {
    for (const auto& [request, point] : points) {
      const auto key = std::pair(request, point.moment->camera);
      const auto [found, isNew] = moments_.try_emplace(key, *point.moment);
      if (isNew) continue;
      if (point.moment->camera) repeated_.insert(request);
      for (std::size_t i = 0; i < kQuantities; ++i) {
        if (point.moment->values[i]) found->second.values[i] = point.moment->values[i];
      }
    }
    for (const auto& [key, moment] : moments_) points_.emplace(key.first, Point{&moment, nullptr});
  }
  Shown(const Shown&) = delete;
  Shown& operator=(const Shown&) = delete;

  const Points& points() const { return points_; }

  /// How many requests several captures have of one camera.
  std::size_t repeated() const { return repeated_.size(); }

 private:
  std::map<std::pair<std::int64_t, std::optional<int>>, Moment> moments_;
  std::set<std::int64_t> repeated_;
  Points points_;
};

/// False: there is nothing to say.
Json repeatedSentence(std::size_t repeated, std::size_t copies) {
  std::string text;
  if (repeated > 0) {
    text = fmt::format(
        "{} {} in more than one capture of the same camera: the graphs show the one that stands "
        "last in the list of captures.",
        counted(repeated, "request"), repeated == 1 ? "occurs" : "occur");
  }
  if (copies > 0) {
    text += fmt::format("{}Changed copies of captures that are here, too, are left out: {}.",
                        text.empty() ? "" : " ", copies);
  }
  return text.empty() ? Json(false) : Json(text);
}

std::string nameOf(const std::optional<int>& camera) {
  return camera ? fmt::format("camera {}", *camera) : "all cameras";
}

/// The file's decimal, which is short, or what was computed, to as many digits as files have.
Json numberJson(double value) {
  constexpr std::size_t kLongestInFiles = 14;
  if (fmt::format("{}", value).size() <= kLongestInFiles) return toJson(value);
  return toJson(std::stod(fmt::format("{:.8g}", value)));
}

/// "-", or the number.
std::string valueText(const std::optional<double>& value) {
  return value ? dump(numberJson(*value)) : "-";
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
/// camera has no value.
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
      row.push_back(found != byCamera.end() ? numberJson(found->second) : Json());
    }
    rows.push_back(std::move(row));
  }
  const Quantity& meaning = kQuantityRows[quantity];
  const Json data = {{"labels", labels}, {"looks", looks}, {"rows", rows}};
  return {{"graphTitle", meaning.title},
          {"graphUnit", meaning.unit},
          {"graphFlag", meaning.isFlag ? "true" : "false"},
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

/// What exposure of one camera did over its requests.
struct Settling {
  std::optional<std::int64_t> first, since, lastUnsettled;  ///< requests that tell
  std::size_t changes = 0, untold = 0;
  std::size_t gap = 0;  ///< requests that don't tell, just before `since`
};

Settling settlingOf(const std::optional<int>& camera, const Points& points) {
  Settling found;
  std::size_t gap = 0;
  for (const auto& [request, point] : points) {
    if (point.moment->camera != camera) continue;
    const auto& value = point.moment->values[kSettled];
    if (!value) {
      ++found.untold;
      ++gap;
      continue;
    }
    const bool now = *value != 0;
    if (found.first && now != found.since.has_value()) ++found.changes;
    if (!found.first) found.first = request;
    if (!now) {
      found.since.reset();
      found.lastUnsettled = request;
    } else if (!found.since) {
      found.since = request;
      found.gap = gap;
    }
    gap = 0;
  }
  return found;
}

/// From which request on exposure had settled for good, or what can't be told.
std::string wordsFor(const Settling& settling) {
  if (!settling.since) return "not settled at the end";
  std::string text = settling.since == settling.first
                         ? fmt::format("from the first one on (request {})", *settling.since)
                         : fmt::format("request {}", *settling.since);
  if (settling.gap > 0) {
    text += fmt::format(", or earlier: {} before it {} not tell", counted(settling.gap, "request"),
                        settling.gap == 1 ? "does" : "do");
  }
  return text;
}

Json settledRow(const std::optional<int>& camera, const Points& points) {
  const Settling settling = settlingOf(camera, points);
  if (!settling.first) return nullptr;
  return row(
      nameOf(camera),
      {cell(wordsFor(settling), !settling.since),
       cell(settling.lastUnsettled ? fmt::format("request {}", *settling.lastUnsettled) : "none"),
       cell(std::to_string(settling.changes)),
       cell(std::to_string(settling.untold), settling.untold > 0)});
}

Json settledTable(const Points& points) {
  std::set<std::optional<int>> cameras;
  for (const auto& [request, point] : points) cameras.insert(point.moment->camera);
  Json rows = Json::array();
  for (const auto& camera : cameras) {
    if (Json row = settledRow(camera, points); !row.is_null()) rows.push_back(std::move(row));
  }
  if (rows.empty()) return false;
  return table(
      "When exposure settled",
      {"Camera", "Settled from", "Last one not settled", "Changes", "Requests without a value"},
      std::move(rows));
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

bool anyHas(const std::vector<const Moment*>& moments, std::size_t quantity) {
  return std::any_of(moments.begin(), moments.end(),
                     [&](const Moment* moment) { return moment->values[quantity].has_value(); });
}

/// How many quantities at least two of them have.
std::size_t commonOf(const std::vector<const Moment*>& moments) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < kQuantities; ++i) {
    count += kQuantityRows[i].isCompared && spreadOf(moments, i) ? 1 : 0;
  }
  return count;
}

/// What some of them have and others not: "camera 1 lacks lux index, short gain".
std::string lacks(const std::vector<const Moment*>& moments) {
  std::vector<std::string> found;
  for (const Moment* const moment : moments) {
    std::vector<std::string> missing;
    std::size_t own = 0;
    for (std::size_t i = 0; i < kQuantities; ++i) {
      if (!kQuantityRows[i].isCompared) continue;
      own += moment->values[i] ? 1 : 0;
      if (!moment->values[i] && anyHas(moments, i)) missing.push_back(inSentence(kQuantityRows[i]));
    }
    if (own == 0) {
      found.push_back(nameOf(moment->camera) + " has no values");
    } else if (!missing.empty()) {
      found.push_back(nameOf(moment->camera) + " lacks " + sentenceFor(missing));
    }
  }
  std::string text;
  for (const std::string& each : found) text += (text.empty() ? "" : "; ") + each;
  return text;
}

std::string verdictOf(const std::vector<const Moment*>& moments) {
  const std::vector<std::string> differing = inconsistencies(moments);
  std::string cameras;
  for (const Moment* const moment : moments) {
    cameras += (cameras.empty() ? "" : " and ") + std::to_string(*moment->camera);
  }
  const std::string lacking = lacks(moments);
  const std::size_t common = commonOf(moments);
  if (common == 0) return fmt::format("Cameras {} cannot be compared: {}.", cameras, lacking);
  std::string text;
  if (!differing.empty()) {
    text = fmt::format("Cameras {} are not consistent: they differ (by more than {:.0f} %) in {}",
                       cameras, 100 * kConsistent, sentenceFor(differing));
  } else if (lacking.empty()) {
    text = fmt::format("Cameras {} are consistent: no quantity differs by more than {:.0f} %",
                       cameras, 100 * kConsistent);
  } else {
    text = fmt::format(
        "Cameras {} are consistent in what they have in common, {}: "
        "nothing differs by more than {:.0f} %",
        cameras, counted(common, "value"), 100 * kConsistent);
  }
  return text + (lacking.empty() ? "." : "; " + lacking + ".");
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
    if (!quantity.isCompared || !anyHas(moments, i)) continue;
    std::vector<Json> cells;
    cells.reserve(moments.size() + 1);
    cells.push_back(spread ? cell(fmt::format("{:.3g} %", 100 * *spread), *spread > kConsistent)
                           : cell("-", true));
    for (const Moment* const moment : moments) {
      cells.push_back(cell(valueText(moment->values[i]), !moment->values[i]));
    }
    rows.push_back(row(quantity.title, std::move(cells)));
  }
  return rows;
}

}  // namespace

Json timelines(const std::vector<Digest>& digests) {
  const std::set<std::string> copies = copiesAmong(digests);
  const Points points = pointsOf(digests, copies);
  if (points.empty() || points.begin()->first == points.rbegin()->first) return false;
  const Shown shown(points);
  Json graphs = Json::array();
  std::vector<std::size_t> quantities;
  for (std::size_t i = 0; i < kQuantities; ++i) {
    Json graph = graphOf(shown.points(), i);
    if (graph.is_null()) continue;
    graphs.push_back(std::move(graph));
    quantities.push_back(i);
  }
  if (graphs.empty()) return false;
  return {{"graphs", std::move(graphs)},
          {"seriesKey", seriesKey(points)},
          {"repeatedSentence", repeatedSentence(shown.repeated(), copies.size())},
          {"settledTable", settledTable(shown.points())},
          {"valueTable", valueTable(points, quantities)}};
}

Json cameraComparison(const std::vector<Moment>& moments) {
  const std::vector<const Moment*> cameras = camerasOf(moments);
  if (cameras.size() < 2) return false;
  Json rows = comparisonRows(cameras);
  std::vector<std::string> head = {"Quantity", "Differ by"};
  for (const Moment* const moment : cameras) {
    head.push_back(fmt::format("Camera {}", *moment->camera));
  }
  Json verdicts = Json::array();
  if (cameras.size() > kMostPaired) verdicts.push_back(verdictOf(cameras));
  for (std::size_t i = 0; i < cameras.size() && cameras.size() <= kMostPaired; ++i) {
    for (std::size_t j = i + 1; j < cameras.size(); ++j) {
      verdicts.push_back(verdictOf({cameras[i], cameras[j]}));
    }
  }
  return {{"verdicts", verdicts},
          {"comparisonTable",
           rows.empty() ? Json(false) : table("Cameras beside each other", head, std::move(rows))}};
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
  std::size_t several = 0, consistent = 0, partly = 0;
  for (const auto& [request, moments] : requests) {
    if (moments.size() < 2) continue;
    ++several;
    const std::vector<std::string> differing = inconsistencies(moments);
    const std::string lacking = lacks(moments);
    if (differing.empty() && lacking.empty()) {
      ++consistent;
      continue;
    }
    const bool comparable = commonOf(moments) > 0;
    if (differing.empty() && comparable) ++partly;
    rows.push_back(
        row(std::to_string(request),
            {cell(comparable ? sentenceFor(differing) : "cannot be compared", !differing.empty()),
             cell(lacking)}));
  }
  if (several == 0) return false;
  std::string sentence =
      fmt::format("{} with several cameras: those of {} are consistent within {:.0f} %",
                  counted(several, "request"), consistent, 100 * kConsistent);
  if (partly > 0) sentence += fmt::format(", those of {} only in what they have in common", partly);
  return {{"consistencySentence", sentence + "."},
          {"consistencyTable", rows.empty()
                                   ? Json(false)
                                   : table(fmt::format("Requests whose cameras are not consistent "
                                                       "(more than {:.0f} %), or lack values",
                                                       100 * kConsistent),
                                           {"Request", "Differ in", "Lacking"}, std::move(rows))}};
}

}  // namespace simrec::report
