// The two planes of a 1080p image.
#include <simulation/records.h>

#include "bench/plain/plain.h"
#include "bench/random.h"

namespace bench {

Families acbPlanes(std::size_t inputs) {
  return {{inputsOf(inputs, [](Random& random) { return random.bytes(kAcbSize); }),
           [](Call& call, void* data) {
             AcbImage image = {};
             image.y = {data, {}, kAcbLumaSize};
             image.c = {static_cast<char*>(data) + kAcbLumaSize, {}, kAcbSize - kAcbLumaSize};
             simulation().SimulationForACB(&call.info, &image, call.request, call.input);
           },
           plain::acbPlanes}};
}

}  // namespace bench
