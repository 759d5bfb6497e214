// Lens shading.
#include <simulation/records.h>

#include "bench/plain/plain.h"
#include "bench/random.h"

namespace bench {
namespace {

/// Gains that grow from the middle to the corners.
Bytes gainTable(Random& random) {
  LscTable table;
  for (std::size_t row = 0; row < kLscRows; ++row) {
    for (std::size_t column = 0; column < kLscColumns; ++column) {
      const float x = static_cast<float>(column) / 8 - 1;
      const float y = static_cast<float>(row) / 6 - 1;
      for (float& gain : table[row][column]) gain = 1 + (x * x + y * y) * random.real(0.7F, 1);
    }
  }
  return bytesOf(table);
}

}  // namespace

Families lensShading(std::size_t inputs) {
  return {{inputsOf(inputs, gainTable),
           [](Call& call, void* data) {
             simulation().simulationForLscMeta(&call.info, data, static_cast<float*>(data), 0,
                                               "preview", static_cast<int>(call.input));
           },
           plain::lensShading}};
}

}  // namespace bench
