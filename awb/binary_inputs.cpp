// The white-balance inputs that are saved byte for byte: four of a fixed size
// and three whose size the caller gives.
#include <simulation/simulation.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>

#include "awb/codecs.h"
#include "core/binary_record.h"
#include "core/bytes.h"
#include "core/data_paths.h"
#include "core/fatal.h"
#include "core/log.h"
#include "core/raw_file.h"

namespace simulation {
namespace {

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

Path inputPath(const SimulationInfo& info, const char* tail, unsigned int requestId,
               unsigned int camId) {
  return recordPath(info, FileType::AWB, tail, requestId, camId, ".bin");
}

/// What a count of floats takes. Aborts when it is negative.
std::size_t sizeOfFloats(int count) {
  if (count < 0) fatal();
  return static_cast<std::size_t>(count) * sizeof(float);
}

void runSizedInput(const SimulationInfo& info, const char* tail, void* data, std::size_t size,
                   unsigned int requestId, unsigned int camId) {
  const Path path = inputPath(info, tail, requestId, camId);
  if (info.mode == kDump) dumpSizedInput(path.c_str(), data, size);
  if (info.mode == kReadback) readSizedInput(path.c_str(), data, size);
}

}  // namespace

void dumpTuningMode(const char* path, const void* data) {
  writeFile(data, path, kTuningModeSize, kDumpFlags);
}

/// Differs from the other records: whatever could be read, padded with zeros, is
/// replayed when it fits, and the count is logged after every read.
void readTuningMode(const char* path, void* data) {
  TuningMode saved = {};
  if (const auto count = readStaged(path, saved.data(), saved.size())) {
    logStagedCount(path, *count, saved.size());
  }
  if (fitsLiveMode(saved, data)) std::memcpy(data, saved.data(), saved.size());
}

void dumpExtensionInfo(const char* path, const void* data, int count) {
  writeFile(data, path, sizeOfFloats(count), kDumpFlags);
}

void readExtensionInfo(const char* path, void* data, int count) {
  const std::size_t size = sizeOfFloats(count);
  const std::unique_ptr<char[]> staging(new char[size]);
  replayStaged(path, staging.get(), data, size);
}

void dumpSizedInput(const char* path, const void* data, std::size_t size) {
  writeFile(data, path, size, kDumpFlags);
}

/// Straight into the caller's memory.
void readSizedInput(const char* path, void* data, std::size_t size) {
  readFile(data, path, size, 0);
}

}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForAWBFaceROI(SimulationInfo* info, void* data, unsigned int requestId,
                                         unsigned int camId) {
  runBinaryRecord(kAwbFaceRoi, *info, data, requestId, camId);
}

void Simulation::SimulationForAWBISPStatsConfig(SimulationInfo* info, void* data,
                                                unsigned int requestId, unsigned int camId,
                                                const char* text) {
  const Path tail(kAwbIspStatsConfig.tail, text);
  const Path path = inputPath(*info, tail.c_str(), requestId, camId);
  runBinaryRecord(kAwbIspStatsConfig, *info, path, data);
}

void Simulation::SimulationForAWBTuningMode(SimulationInfo* info, void* data,
                                            unsigned int requestId, unsigned int camId) {
  const Path path = inputPath(*info, "_TuningMode", requestId, camId);
  if (info->mode == kDump) dumpTuningMode(path.c_str(), data);
  if (info->mode == kReadback) readTuningMode(path.c_str(), data);
}

void Simulation::SimulationForAWBExtensionInfo(SimulationInfo* info, float* data, int count,
                                               unsigned int requestId, unsigned int camId) {
  const Path path = inputPath(*info, "_ExtensionInfo", requestId, camId);
  if (info->mode == kDump) dumpExtensionInfo(path.c_str(), data, count);
  if (info->mode == kReadback) readExtensionInfo(path.c_str(), data, count);
}

void Simulation::SimulationForAWBFrameControlData(SimulationInfo* info, void* data,
                                                  unsigned int requestId, unsigned int camId) {
  runBinaryRecord(kAwbFrameControlData, *info, data, requestId, camId);
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
