#include "simrec/report/moments.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "catalogue/members.h"
#include "simrec/report/bayer_grid.h"

namespace simrec::report {
namespace {

constexpr char kGridKind[] = "AWB_ParsedAWBStatsOutput";
constexpr char kTime[] = "pipeline time";
constexpr std::size_t kRedness = 10, kBlueness = 11;

}  // namespace

const std::array<Quantity, kQuantities> kQuantityRows = {{
    {"Lux index", "", "AE_AECData", "LuxIndex", false, true},
    {"Short gain", "", "AE_AECData", "ExposureIndexShort.Gain", false, true},
    {"Long gain", "", "AE_AECData", "ExposureIndexLong.Gain", false, true},
    {"Safe gain", "", "AE_AECData", "ExposureIndexSafe.Gain", false, true},
    {"Short exposure time", kTime, "AE_AECData", "ExposureIndexShort.ExposureTime", false, true},
    {"Long exposure time", kTime, "AE_AECData", "ExposureIndexLong.ExposureTime", false, true},
    {"Safe exposure time", kTime, "AE_AECData", "ExposureIndexSafe.ExposureTime", false, true},
    {"Exposure settled", "1: settled", "AWB_AECData", "AECSettled", true, true},
    {"Spectral sensor's colour temperature", "K", "ZOAWB_SpectralSensorInfo", "cct", false, false},
    {"Light source's colour temperature", catalogue::kPipelineUnit, "ZOAWB_LightSrcClassify",
     "firstCTValue", false, true},
    {"R/G of all regions", "", kGridKind, "", false, true},
    {"B/G of all regions", "", kGridKind, "", false, true},
}};

namespace {

const Number* numberAt(const Values& values, std::string_view path) {
  const std::size_t dot = path.find('.');
  const Value* const value = find(values, path.substr(0, dot));
  if (value == nullptr) return nullptr;
  if (dot == std::string_view::npos) return value->number();
  return value->members() != nullptr ? numberAt(*value->members(), path.substr(dot + 1)) : nullptr;
}

void put(Quantities& values, std::size_t quantity, double value) {
  if (std::isfinite(value) && !values[quantity]) values[quantity] = value;
}

Moment& momentOf(const std::optional<int>& camera, std::vector<Moment>& moments) {
  const auto found = std::find_if(moments.begin(), moments.end(),
                                  [&](const Moment& each) { return each.camera == camera; });
  if (found != moments.end()) return *found;
  moments.push_back({camera, {}, {}});
  return moments.back();
}

}  // namespace

bool isFollowed(const catalogue::Kind& kind) {
  return std::any_of(kQuantityRows.begin(), kQuantityRows.end(),
                     [&](const Quantity& row) { return std::string_view(row.kind) == kind.name; });
}

void addRecord(const Record& record, std::vector<Moment>& moments) {
  const std::string_view kind = record.file.parts->kind->name;
  Quantities& values = momentOf(record.file.parts->camera, moments).values;
  for (std::size_t i = 0; i < kQuantities; ++i) {
    const Quantity& row = kQuantityRows[i];
    if (row.kind != kind || *row.member == '\0') continue;
    const Number* const number = numberAt(record.values, row.member);
    if (number == nullptr) continue;
    const double value = number->approximately();
    put(values, i, row.isFlag ? static_cast<double>(value != 0) : value);
  }
  if (kind == kGridKind) {
    const BayerGrid grid = bayerGridOf(record.values);
    put(values, kRedness, grid.meanRedness);
    put(values, kBlueness, grid.meanBlueness);
  }
}

std::optional<std::int64_t> requestOf(const Capture& capture) {
  if (capture.request) return capture.request->request;
  constexpr std::size_t kMostDigits = 15;  // exact in a double
  const std::string& name = capture.name;
  const std::size_t last = name.find_last_not_of("0123456789");
  const std::size_t begin = last == std::string::npos ? 0 : last + 1;
  if (begin == name.size() || name.size() - begin > kMostDigits) return std::nullopt;
  std::int64_t number = 0;
  std::from_chars(&name[begin], name.data() + name.size(), number);
  return number;
}

std::optional<double> spreadOf(const std::vector<const Moment*>& moments, std::size_t quantity) {
  double low = 0, high = 0, magnitude = 0;
  std::size_t count = 0;
  for (const Moment* const moment : moments) {
    if (!moment->values[quantity]) continue;
    const double value = *moment->values[quantity];
    low = count > 0 ? std::min(low, value) : value;
    high = count > 0 ? std::max(high, value) : value;
    magnitude = std::max(magnitude, std::fabs(value));
    ++count;
  }
  if (count < 2) return std::nullopt;
  return magnitude > 0 ? (high - low) / magnitude : 0;
}

}  // namespace simrec::report
