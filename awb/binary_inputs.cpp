// The white-balance inputs that are saved byte for byte: four of a fixed size
// and three whose size the caller gives.
#include <simulation/simulation.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>

#include "core/binary_record.h"
#include "core/bytes.h"
#include "core/data_paths.h"
#include "core/fatal.h"
#include "core/log.h"
#include "core/raw_file.h"

namespace simulation {
namespace {

constexpr BinaryRecord kFaceRoi = {FileType::AWB, "_FaceROI", 1784, 8};
constexpr BinaryRecord kIspStatsConfig = {FileType::AWB, "_ISPAWBBGStatsConfig_", 144};
constexpr BinaryRecord kFrameControlData = {FileType::AWB, "_AWBFrameControlData", 888};

constexpr std::size_t kTuningModeSize = 60;
using TuningMode = std::array<char, kTuningModeSize>;

/// Whether a saved tuning mode belongs to the sensor mode that is live now.
bool fitsLiveMode(const TuningMode& saved, const void* live) {
  const auto savedMode = load<std::uint16_t>(saved.data(), 16);
  const auto liveMode = load<std::uint16_t>(live, 16);
  if (savedMode != liveMode) {
    SimulationLog(kError, "different sensor mode for tuning mode readback:%d now:%d", savedMode,
                  liveMode);
    return false;
  }
  return load<std::uint32_t>(saved.data(), 24) == load<std::uint32_t>(live, 24);
}

/// Differs from the other records: whatever could be read, padded with zeros, is
/// replayed when it fits, and the count is logged after every read.
void replayTuningMode(const char* path, void* live) {
  TuningMode saved = {};
  if (const auto count = readStaged(path, saved.data(), saved.size())) {
    logStagedCount(path, *count, saved.size());
  }
  if (fitsLiveMode(saved, live)) std::memcpy(live, saved.data(), saved.size());
}

Path inputPath(const SimulationInfo& info, const char* tail, unsigned int requestId,
               unsigned int camId) {
  return recordPath(info, FileType::AWB, tail, requestId, camId, ".bin");
}

/// A record of the caller's size is read straight into the caller's memory.
void runSizedInput(const SimulationInfo& info, const char* tail, void* data, std::size_t size,
                   unsigned int requestId, unsigned int camId) {
  const Path path = inputPath(info, tail, requestId, camId);
  if (info.mode == kDump) writeFile(data, path.c_str(), size, kDumpFlags);
  if (info.mode == kReadback) readFile(data, path.c_str(), size, 0);
}

}  // namespace
}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForAWBFaceROI(SimulationInfo* info, void* data, unsigned int requestId,
                                         unsigned int camId) {
  runBinaryRecord(kFaceRoi, *info, data, requestId, camId);
}

void Simulation::SimulationForAWBISPStatsConfig(SimulationInfo* info, void* data,
                                                unsigned int requestId, unsigned int camId,
                                                const char* text) {
  const Path tail(kIspStatsConfig.tail, text);
  const Path path = inputPath(*info, tail.c_str(), requestId, camId);
  runBinaryRecord(kIspStatsConfig, *info, path, data);
}

void Simulation::SimulationForAWBTuningMode(SimulationInfo* info, void* data,
                                            unsigned int requestId, unsigned int camId) {
  const Path path = inputPath(*info, "_TuningMode", requestId, camId);
  if (info->mode == kDump) writeFile(data, path.c_str(), kTuningModeSize, kDumpFlags);
  if (info->mode == kReadback) replayTuningMode(path.c_str(), data);
}

void Simulation::SimulationForAWBExtensionInfo(SimulationInfo* info, float* data, int count,
                                               unsigned int requestId, unsigned int camId) {
  const Path path = inputPath(*info, "_ExtensionInfo", requestId, camId);
  if (info->mode != kDump && info->mode != kReadback) return;
  if (count < 0) fatal();
  const std::size_t size = static_cast<std::size_t>(count) * sizeof(float);
  if (info->mode == kDump) {
    writeFile(data, path.c_str(), size, kDumpFlags);
  } else {
    const std::unique_ptr<char[]> staging(new char[size]);
    replayStaged(path.c_str(), staging.get(), data, size);
  }
}

void Simulation::SimulationForAWBFrameControlData(SimulationInfo* info, void* data,
                                                  unsigned int requestId, unsigned int camId) {
  runBinaryRecord(kFrameControlData, *info, data, requestId, camId);
}

void Simulation::SimulationForAWBinputColorData(SimulationInfo* info, void* data,
                                                unsigned long size, unsigned int requestId,
                                                unsigned int camId) {
  runSizedInput(*info, "_inputColorData", data, size, requestId, camId);
}

void Simulation::SimulationForCVPTransformData(SimulationInfo* info, void* data, unsigned long size,
                                               unsigned int requestId, unsigned int camId) {
  runSizedInput(*info, "_CVPTransformData", data, size, requestId, camId);
}
