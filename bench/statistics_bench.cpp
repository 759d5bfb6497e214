// Bayer-grid statistics of 3888 regions.
#include <simulation/records.h>

#include <memory>

#include "bench/plain/plain.h"
#include "bench/random.h"

namespace bench {
namespace {

BGRegionStats region(Random& random) {
  BGRegionStats stats = {};
  for (std::uint16_t* count :
       {&stats.RCount, &stats.BCount, &stats.GRorGCount, &stats.GBCount, &stats.YCount}) {
    *count = random.integer<std::uint16_t>(0, 3000);
  }
  // Sums of samples of 14 bits.
  const auto sum = [&random](std::uint16_t count) {
    return count * random.integer(std::uint64_t{64}, std::uint64_t{16383});
  };
  stats.RSum = sum(stats.RCount);
  stats.BSum = sum(stats.BCount);
  stats.GRorGSum = sum(stats.GRorGCount);
  stats.GBSum = sum(stats.GBCount);
  stats.YSum = sum(stats.YCount);
  return stats;
}

template <bool paired>
Bytes statistics(Random& random) {
  const auto grid = std::make_unique<BayerGridOutput>();
  grid->flags = BayerGridOutput::kUsesY | (paired ? BayerGridOutput::kHasSatInfo : 0);
  grid->numROIs = BayerGridOutput::kMaxRegions;
  grid->horizontal_num = 72;
  grid->vertical_num = 54;
  for (auto& threshold : grid->channelGainThreshold) threshold = random.integer(0U, 16383U);
  grid->BLStretchFactor = random.real(1, 1.2F);
  for (std::size_t i = 0; i < grid->numROIs; ++i) {
    (paired ? grid->pairs[i].first : grid->regions[i]) = region(random);
  }
  return bytesOf(*grid);
}

Families familyOf(std::vector<Bytes> inputs) {
  return {{std::move(inputs),
           [](Call& call, void* data) {
             simulation().SimulationForAWBParsedStatsOutput(&call.info, data, call.request,
                                                            call.input, "preview");
           },
           plain::parsedStatistics}};
}

}  // namespace

Families plainStatistics(std::size_t inputs) {
  return familyOf(inputsOf(inputs, statistics<false>));
}

Families pairedStatistics(std::size_t inputs) {
  return familyOf(inputsOf(inputs, statistics<true>));
}

}  // namespace bench
