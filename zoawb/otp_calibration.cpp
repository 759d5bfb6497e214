// The white-balance calibration factors of the sensor's OTP memory: one pair in
// the file, replayed into every entry of the caller's table.
#include <simulation/records.h>
#include <simulation/simulation.h>

#include <cstddef>
#include <cstdint>

#include "core/bytes.h"
#include "core/data_paths.h"
#include "core/log.h"
#include "core/xml_document.h"
#include "core/xml_fields.h"
#include "zoawb/codecs.h"

namespace simulation {
namespace {

using Entry = WBOTPCalibrationEntry;

constexpr XmlField kFields[] = {
    {"rOverG", offsetof(Entry, rOverG), writeFloat, queryFloat},
    {"bOverG", offsetof(Entry, bOverG), writeFloat, queryFloat},
};

constexpr std::size_t entryAt(std::size_t index) {
  return sizeof(WBOTPCalibrationHead) + index * sizeof(Entry);
}

void readEntry(const char* path, void* entry) {
  const XmlDocument document = newXmlDocument();
  if (document == nullptr) return;
  if (document->load(path) != tinyxml2::XML_SUCCESS) {
    SimulationLog(kError, "dump %s fail error:%d", path, document->ErrorID());
    return;
  }
  const tinyxml2::XMLElement* root = document->FirstChildElement();
  if (root != nullptr) applyFields(*root, entry, kFields);
}

}  // namespace

void dumpOtpCalibration(const char* path, const void* table) {
  const auto printer = newXmlPrinter(path);
  if (printer == nullptr) return;
  printer->OpenElement("WBOTPData");
  printFields(*printer, static_cast<const char*>(table) + entryAt(0), kFields);
  printer->CloseElement();
  finishAndLog(*printer, path, kVerbose);
}

/// The file is loaded once for each entry. The counter has eight bits, as the
/// pipeline's has: a count above 255 keeps going round.
void readOtpCalibration(const char* path, void* table) {
  const auto count = load<std::uint32_t>(table);
  if (count == 0) return;
  for (std::uint8_t entry = 1;; ++entry) {
    readEntry(path, static_cast<char*>(table) + entryAt(static_cast<std::uint8_t>(entry - 1)));
    if (count <= entry) break;
  }
}

}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForOTPCalibrationFactor(SimulationInfo* info, void* data,
                                                   unsigned int requestId, unsigned int camId) {
  const Path path = recordPath(*info, FileType::AWB, "_OTPData", requestId, camId, ".xml");
  if (info->mode == kDump) dumpOtpCalibration(path.c_str(), data);
  if (info->mode == kReadback) readOtpCalibration(path.c_str(), data);
}
