// Any file as each of the byte-for-byte records. What a readback makes of a file
// is known exactly here: the record is compared with it.
#include <algorithm>
#include <array>

#include "fuzz/support/fuzz.h"

const char* const fuzz::kRecordFiles[] = {
    "simulation_AWB_FaceROI_camId[0].bin",
    "simulation_AWB_ISPAWBBGStatsConfig_0_camId[0].bin",
    "simulation_AWB_TuningMode_camId[0].bin",
    "simulation_AWB_ExtensionInfo_camId[0].bin",
    "simulation_AWB_AWBFrameControlData_camId[0].bin",
    "simulation_AWB_inputColorData_camId[0].bin",
    "simulation_AWB_CVPTransformData_camId[0].bin",
    "simulation_OfflineAWB_ISPAWBBGStatsConfig_camId[0].bin",
    "simulation_ZOAWB_FaceDectionInfo_camId[0].bin",
    "simulation_ZOAWB_FaceColorDectionInfo_camId[0].bin",
    "simulation_FACE_FDResult_camId[0].bin",
    "simulation_FACE_FaceROI_camId[0].bin",
    nullptr,
};

namespace {

using fuzz::Record;

/// Byte `index` from the input's end, 0 before its beginning: sizes come from
/// there.
std::size_t tailByte(std::string_view input, std::size_t index) {
  return index < input.size() ? static_cast<unsigned char>(input[input.size() - 1 - index]) : 0;
}

template <typename Operation>
void check(Record& record, Operation operation) {
  SimulationInfo info = fuzz::readback();
  fuzz::run(fuzz::Outcome::kReturned,
            [&](Simulation& simulation) { operation(simulation, &info); });
  fuzz::require(record.isLive(), "the record is what the file makes of it");
}

/// Whole or not at all; the first `head` bytes are never replayed.
template <typename Operation>
void checkStaged(std::string_view input, std::size_t size, std::size_t head, Operation operation) {
  Record record(size);
  if (input.size() >= size) input.substr(head).copy(&record.live()[head], size - head);
  check(record, [&](Simulation& simulation, SimulationInfo* info) {
    operation(simulation, info, record.data());
  });
}

using Fixed = void (Simulation::*)(SimulationInfo*, void*, unsigned int, unsigned int);

void checkFixed(std::string_view input, Fixed operation, std::size_t size, std::size_t head = 0) {
  checkStaged(input, size, head,
              [operation](Simulation& simulation, SimulationInfo* info, void* data) {
                (simulation.*operation)(info, data, 1, 0);
              });
}

void checkFixedRecords(std::string_view input) {
  checkFixed(input, &Simulation::SimulationForAWBFaceROI, 1784, 8);
  checkFixed(input, &Simulation::SimulationForAWBFrameControlData, 888);
  checkFixed(input, &Simulation::SimulationForZOAWBFaceDectionInfo, 964);
  checkFixed(input, &Simulation::SimulationForZOAWBFaceColorDectionInfo, 204);
  checkFixed(input, &Simulation::SimulationForFDROIData, kFdRoiSize, 8);
  checkStaged(input, 144, 0, [](Simulation& simulation, SimulationInfo* info, void* data) {
    simulation.SimulationForAWBISPStatsConfig(info, data, 1, 0, "0");
  });
  checkStaged(input, 144, 0, [](Simulation& simulation, SimulationInfo* info, void* config) {
    simulation.SimulationForOfflineAWBBGStats(info, nullptr, config, 1, 0);
  });
  const auto count = static_cast<int>(tailByte(input, 0));
  checkStaged(input, tailByte(input, 0) * sizeof(float), 0,
              [count](Simulation& simulation, SimulationInfo* info, void* data) {
                simulation.SimulationForAWBExtensionInfo(info, static_cast<float*>(data), count, 1,
                                                         0);
              });
}

void checkTuningMode(std::string_view input) {
  constexpr std::size_t kSize = 60;
  Record record(kSize);
  record.set(16, std::uint16_t{0x3031});
  record.set(24, std::uint32_t{0x33323130});
  std::string saved(input.substr(0, kSize));
  saved.resize(kSize);
  const bool fits = saved.compare(16, 2, record.live(), 16, 2) == 0 &&
                    saved.compare(24, 4, record.live(), 24, 4) == 0;
  if (fits) record.live() = saved;
  check(record, [&](Simulation& simulation, SimulationInfo* info) {
    simulation.SimulationForAWBTuningMode(info, record.data(), 1, 0);
  });
}

using Sized = void (Simulation::*)(SimulationInfo*, void*, unsigned long, unsigned int,
                                   unsigned int);

void checkSized(std::string_view input, Sized operation, std::size_t size) {
  Record record(size);
  input.copy(record.live().data(), size);
  check(record, [&](Simulation& simulation, SimulationInfo* info) {
    (simulation.*operation)(info, record.data(), size, 1, 0);
  });
}

void checkFdResult(std::string_view input) {
  std::vector<Record> blocks;
  std::size_t offset = 0;
  for (std::size_t i = 0; i < 6; ++i) {
    Record& block = blocks.emplace_back(tailByte(input, i) % 61);
    if (offset < input.size()) input.substr(offset).copy(block.live().data(), block.size());
    offset += block.size();
  }
  SimulationInfo info = fuzz::readback();
  fuzz::run(fuzz::Outcome::kReturned, [&](Simulation& simulation) {
    simulation.SimulationForFDResult(&info, blocks[0].data(), blocks[0].size(), blocks[1].data(),
                                     blocks[1].size(), blocks[2].data(), blocks[2].size(),
                                     blocks[3].data(), blocks[3].size(), blocks[4].data(),
                                     blocks[4].size(), blocks[5].data(), blocks[5].size(), 1, 0);
  });
  for (const Record& block : blocks) fuzz::require(block.isLive(), "a block gets its own bytes");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = fuzz::textOf(data, size);
  fuzz::setInput(input);
  checkFixedRecords(input);
  checkTuningMode(input);
  checkSized(input, &Simulation::SimulationForAWBinputColorData, 2 * tailByte(input, 0));
  checkSized(input, &Simulation::SimulationForCVPTransformData, tailByte(input, 1));
  checkFdResult(input);
  return 0;
}
