// Lens shading: the gains that undo the vignetting of the lens.
#include <simulation/records.h>

#include "record.h"

namespace capture {
namespace {

constexpr std::size_t kFloats = kLscRows * kLscColumns * kLscChannels;

/// Less correction where it would lift noise; the filters in front of the sensor
/// let less of a reddish light through at the edges.
Bytes gainTable(const View& view) {
  const Rgb grey = view.grey();
  const double strength = 1 / (1 + 0.02 * view.gain());
  const double tints[kLscChannels] = {0.05 * grey.r, 0, 0.01 * grey.g, 0.02 * grey.b};
  Bytes table;
  for (std::size_t row = 0; row < kLscRows; ++row) {
    for (std::size_t column = 0; column < kLscColumns; ++column) {
      const double loss =
          view.transmission(0.5, 0.5) /
              view.transmission(double(column) / (kLscColumns - 1), double(row) / (kLscRows - 1)) -
          1;
      for (const double tint : tints) {
        const Bytes gain = bytesOf(asFloat(1 + strength * loss * (1 + tint)));
        table.insert(table.end(), gain.begin(), gain.end());
      }
    }
  }
  return table;
}

/// The name keeps the cameras apart: the file tells none.
void runGainTable(const Call& call) {
  const std::string name = "camera" + std::to_string(call.camera);
  call.simulation.simulationForLscMeta(call.info, call.data.data(),
                                       reinterpret_cast<float*>(call.data.data()), 0, name.c_str(),
                                       /*ev=*/0);
}

}  // namespace

std::vector<Record> lscRecords() {
  return {
      {"LscMeta",
       {{"LSC", 0, "camera#"}},
       gainTable,
       runGainTable,
       {floatsThroughText<kFixedFormat, 0, kFloats>, "gains at six decimals"},
       {kDumpSuccess, nullptr},
       Record::kEachOfBurst},
  };
}

}  // namespace capture
