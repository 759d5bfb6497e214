// One whole request: a segmentation, three statistics, a lens shading table, ten
// small XML records and a dozen binary ones.
#include <simulation/records.h>

#include <iterator>
#include <utility>

#include "bench/plain/plain.h"
#include "bench/random.h"

namespace bench {
namespace {

/// The statistics and their configuration as one record of the caller.
Family offlineStatistics(std::size_t inputs) {
  Family family = std::move(plainStatistics(inputs).front());
  for (std::size_t i = 0; i < inputs; ++i) {
    const Bytes config = Random(i).bytes(plain::kConfigSize);
    family.inputs[i].insert(family.inputs[i].end(), config.begin(), config.end());
  }
  family.library = [](Call& call, void* data) {
    simulation().SimulationForOfflineAWBBGStats(&call.info, data,
                                                static_cast<char*>(data) + sizeof(BayerGridOutput),
                                                call.request, call.input);
  };
  family.plain = plain::offlineStatistics;
  return family;
}

/// Paired statistics of another stream, so that both have a file of their own.
Family snapshotStatistics(std::size_t inputs) {
  Family family = std::move(pairedStatistics(inputs).front());
  family.library = [](Call& call, void* data) {
    simulation().SimulationForAWBParsedStatsOutput(&call.info, data, call.request, call.input,
                                                   "snapshot");
  };
  family.plain = plain::snapshotStatistics;
  return family;
}

}  // namespace

Families wholeRequest(std::size_t inputs) {
  Families all = {snapshotStatistics(inputs), offlineStatistics(inputs)};
  for (const auto make : {qsegLabelMaps, plainStatistics, lensShading, smallXmlRecords,
                          stagedBinaries, directBinaries, faceDetection}) {
    Families some = make(inputs);
    std::move(some.begin(), some.end(), std::back_inserter(all));
  }
  return all;
}

}  // namespace bench
