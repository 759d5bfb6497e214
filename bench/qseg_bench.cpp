// Scene segmentation.
#include <simulation/records.h>

#include <algorithm>
#include <memory>

#include "bench/plain/plain.h"
#include "bench/random.h"

namespace bench {
namespace {

constexpr int kColumns = 640;
constexpr int kRows = 480;
static_assert(kColumns * kRows == QSegImageInfo::kStatsSize);

QSegRect rectangle(Random& random) {
  return {random.integer(0U, 600U), random.integer(0U, 400U), random.integer(1U, 640U),
          random.integer(1U, 480U)};
}

QSegInstInfo instance(Random& random) {
  QSegInstInfo result = {};
  result.requestId = random.integer(0ULL, 100000ULL);
  result.ID = random.integer(-1, 20);
  result.roi = rectangle(random);
  result.nConf = random.integer(0U, 1000U);
  result.nSegIdx = random.integer<std::uint16_t>(0, 10);
  result.eTrackStatus = random.integer<std::uint16_t>(0, 3);
  for (QSegRect& part : result.partROIs) part = rectangle(random);
  result.eObjectType = random.integer<std::uint16_t>(0, 30);
  return result;
}

/// Regions around random centres, each with the label of its centre.
void drawSegments(Random& random, std::uint8_t* map) {
  struct Centre {
    int x, y;
    std::uint8_t label;
  } centres[16];
  for (Centre& centre : centres) {
    centre = {random.integer(0, kColumns), random.integer(0, kRows),
              random.integer<std::uint8_t>(0, 40)};
  }
  for (int i = 0; i < kColumns * kRows; ++i) {
    const int x = i % kColumns;
    const int y = i / kColumns;
    const auto distance = [x, y](const Centre& centre) {
      return (centre.x - x) * (centre.x - x) + (centre.y - y) * (centre.y - y);
    };
    map[i] = std::min_element(
                 std::begin(centres), std::end(centres),
                 [&](const Centre& a, const Centre& b) { return distance(a) < distance(b); })
                 ->label;
  }
}

void drawNoise(Random& random, std::uint8_t* map) {
  const Bytes noise = random.bytes(QSegImageInfo::kStatsSize);
  std::memcpy(map, noise.data(), noise.size());
}

template <void (*draw)(Random&, std::uint8_t*)>
Bytes image(Random& random) {
  const auto info = std::make_unique<QSegImageInfo>();
  info->requestId = random.integer(0ULL, 100000ULL);
  info->isQSegInfoValid = 1;
  info->horizontalRegionCount = kColumns;
  info->verticalRegionCount = kRows;
  draw(random, info->qsegStatsInfo);
  for (QSegInstInfo& inst : info->qsegInstInfos) inst = instance(random);
  info->qsegInstCount = random.integer<std::uint16_t>(0, 10);
  info->qsegSceneClass = random.integer<std::uint16_t>(0, 12);
  info->qsegSceneClassConf = random.real(0, 1);
  info->qsegCroppedWindowInfo = rectangle(random);
  return bytesOf(*info);
}

Families familyOf(std::vector<Bytes> inputs) {
  return {{std::move(inputs),
           [](Call& call, void* data) {
             simulation().SimulationForQsegImageData(&call.info, data, call.request, call.input);
           },
           plain::qseg}};
}

}  // namespace

Families qsegLabelMaps(std::size_t inputs) {
  return familyOf(inputsOf(inputs, image<drawSegments>));
}

Families qsegRandomBytes(std::size_t inputs) {
  return familyOf(inputsOf(inputs, image<drawNoise>));
}

}  // namespace bench
