#include "simrec/report/bayer_grid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace simrec::report {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

std::vector<double> listOf(const Values& values, const char* name) {
  const Value* const value = find(values, name);
  return value != nullptr && value->list() != nullptr ? valuesOf(*value->list())
                                                      : std::vector<double>();
}

double at(const std::vector<double>& list, std::size_t region) {
  return region < list.size() ? list[region] : kNone;
}

/// None of a list that ends before the last region.
double totalOf(const std::vector<double>& list, std::size_t regions) {
  if (list.size() < regions) return kNone;
  double total = 0;
  for (const double each : list) total += each;
  return total;
}

/// Sums and counts of a channel.
struct Channel {
  std::vector<double> sums, counts;

  double sum(std::size_t region) const { return at(sums, region); }
  double count(std::size_t region) const { return at(counts, region); }
  double total(std::size_t regions) const { return totalOf(sums, regions); }
  double totalCount(std::size_t regions) const { return totalOf(counts, regions); }
};

Channel channelOf(const Values& values, const char* sums, const char* counts) {
  return {listOf(values, sums), listOf(values, counts)};
}

double ratio(double of, double to) { return to > 0 ? of / to : kNone; }

/// Both greens are one channel.
struct Channels {
  Channel red, blue, green, otherGreen;

  explicit Channels(const Values& values)
      : red(channelOf(values, "RSum", "RCount")),
        blue(channelOf(values, "BSum", "BCount")),
        green(channelOf(values, "GRorGSum", "GRorGCount")),
        otherGreen(channelOf(values, "GBSum", "GBCount")) {
    // A file may have one green alone.
    if (!find(values, "GBSum") && !find(values, "GBCount")) {
      otherGreen.sums = otherGreen.counts = std::vector<double>(regions(), 0);
    }
  }

  std::size_t regions() const {
    return std::max({red.sums.size(), blue.sums.size(), green.sums.size()});
  }
  double redAt(std::size_t i) const { return ratio(red.sum(i), red.count(i)); }
  double blueAt(std::size_t i) const { return ratio(blue.sum(i), blue.count(i)); }
  double greenAt(std::size_t i) const {
    return ratio(green.sum(i) + otherGreen.sum(i), green.count(i) + otherGreen.count(i));
  }
  double samplesAt(std::size_t i) const {
    return red.count(i) + blue.count(i) + green.count(i) + otherGreen.count(i);
  }
  double levelAt(std::size_t i) const {
    return ratio(red.sum(i) + blue.sum(i) + green.sum(i) + otherGreen.sum(i), samplesAt(i));
  }
  double meanGreen() const {
    const std::size_t all = regions();
    return ratio(green.total(all) + otherGreen.total(all),
                 green.totalCount(all) + otherGreen.totalCount(all));
  }
  double meanOf(const Channel& channel) const {
    return ratio(channel.total(regions()), channel.totalCount(regions()));
  }
};

template <typename At>
Field fieldOf(const BayerGrid& grid, At at) {
  Field field = {grid.columns, grid.rows, {}};
  field.values.reserve(grid.regions);
  for (std::size_t i = 0; i < grid.regions; ++i) field.values.push_back(at(i));
  return field;
}

/// The shape that the header tells, where it fits the regions.
void setShape(const Values& values, BayerGrid& grid) {
  const std::uint64_t columns = integerOf(values, "horizontal_num");
  const std::uint64_t rows = integerOf(values, "vertical_num");
  if (columns == 0 || columns > grid.regions || rows > grid.regions) return;
  if (columns * rows != grid.regions) return;
  grid.columns = static_cast<std::size_t>(columns);
  grid.rows = static_cast<std::size_t>(rows);
}

}  // namespace

BayerGrid bayerGridOf(const Values& values) {
  const Channels channels(values);
  BayerGrid grid;
  grid.regions = channels.regions();
  setShape(values, grid);
  grid.level = fieldOf(grid, [&](std::size_t i) { return channels.levelAt(i); });
  grid.red = fieldOf(grid, [&](std::size_t i) { return channels.redAt(i); });
  grid.green = fieldOf(grid, [&](std::size_t i) { return channels.greenAt(i); });
  grid.blue = fieldOf(grid, [&](std::size_t i) { return channels.blueAt(i); });
  grid.redness =
      fieldOf(grid, [&](std::size_t i) { return ratio(channels.redAt(i), channels.greenAt(i)); });
  grid.blueness =
      fieldOf(grid, [&](std::size_t i) { return ratio(channels.blueAt(i), channels.greenAt(i)); });
  if (integerOf(values, "hasSatInfo") != 0) {
    double most = 0;
    for (std::size_t i = 0; i < grid.regions; ++i) most = std::max(most, channels.samplesAt(i));
    grid.left =
        fieldOf(grid, [&](std::size_t i) { return 1 - ratio(channels.samplesAt(i), most); });
  }
  const double green = channels.meanGreen();
  grid.meanRedness = ratio(channels.meanOf(channels.red), green);
  grid.meanBlueness = ratio(channels.meanOf(channels.blue), green);
  return grid;
}

}  // namespace simrec::report
