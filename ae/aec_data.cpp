// The exposure decision of auto exposure, one XML document for each exposure
// step.
#include <simulation/records.h>
#include <simulation/simulation.h>

#include "ae/codecs.h"
#include "core/bytes.h"
#include "core/data_paths.h"
#include "core/log.h"
#include "core/xml_document.h"
#include "core/xml_fields.h"

namespace simulation {
namespace {

void writeExposure(XmlPrinter& printer, const void* member) {
  const char* const exposure = static_cast<const char*>(member);
  writeUnsigned64Attribute(printer, "ExposureTime", exposure + offsetof(AECExposure, exposureTime));
  writeFloatAttribute(printer, "Gain", exposure + offsetof(AECExposure, gain));
  writeFloatAttribute(printer, "Sensitivity", exposure + offsetof(AECExposure, sensitivity));
}

void readExposure(const tinyxml2::XMLElement& element, void* member) {
  char* const exposure = static_cast<char*>(member);
  queryUnsigned64Attribute(element, "ExposureTime", exposure + offsetof(AECExposure, exposureTime));
  queryFloatAttribute(element, "Gain", exposure + offsetof(AECExposure, gain));
  queryFloatAttribute(element, "Sensitivity", exposure + offsetof(AECExposure, sensitivity));
}

constexpr std::size_t exposureAt(std::size_t index) {
  return AECOutputLayout::exposures + index * sizeof(AECExposure);
}

constexpr XmlField kFields[] = {
    {"LuxIndex", AECOutputLayout::luxIndex, writeFloat, queryFloat},
    {"DigitalGain", AECOutputLayout::digitalGain, writeFloat, queryFloat},
    {"ExposureIndexShort", exposureAt(0), writeExposure, readExposure},
    {"ExposureIndexLong", exposureAt(1), writeExposure, readExposure},
    {"ExposureIndexSafe", exposureAt(2), writeExposure, readExposure},
    {"DrcGain", AECOutputLayout::drcGain, writeFloat, queryFloat},
    {"DrcGainDark", AECOutputLayout::drcGainDark, writeFloat, queryFloat},
};

void logNoMemory(const char* path) { SimulationLog(kError, "create XMLDocument %s failed", path); }

/// Null, and one logged line, when there is no memory.
XmlDocument newDocument(const char* path) {
  XmlDocument document = newXmlDocument();
  if (document == nullptr) logNoMemory(path);
  return document;
}

/// Unlike the other records, this one needs all of its elements: it stops at the
/// first that is missing, with those before it replayed.
bool replayFields(const tinyxml2::XMLNode& root, void* data) {
  for (const XmlField& field : kFields) {
    const tinyxml2::XMLElement* element = findElement(root, field.name);
    if (element == nullptr) return false;
    field.read(*element, static_cast<char*>(data) + field.offset);
  }
  return true;
}

void readBack(RecordDocument& document, const char* path, void* data) {
  // Only the root counts, not the load's result: what could be parsed of a
  // damaged file is replayed.
  document.load(path);
  const tinyxml2::XMLNode* root = document.FirstChild();
  if (root == nullptr) {
    SimulationLog(kError, "[%s] read xml root failed", path);
  } else if (replayFields(*root, data)) {
    SimulationLog(kError, "readback %s success", path);
  }
}

}  // namespace

void dumpAecData(const char* path, const void* aecOutput) {
  const auto printer = newXmlPrinter(path);
  if (printer == nullptr) return logNoMemory(path);
  printer->OpenElement("SimulationData");
  printFields(*printer, aecOutput, kFields);
  printer->CloseElement();
  finishAndLog(*printer, path, kError);
}

void readAecData(const char* path, void* aecOutput) {
  const XmlDocument document = newDocument(path);
  if (document != nullptr) readBack(*document, path, aecOutput);
}

}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForAECData(SimulationInfo* info, void* aecOutput, unsigned int requestId,
                                      unsigned int camId, void* evIndex) {
  const Path prefix = recordPrefix(static_cast<int>(info->mode), FileType::AE, requestId, camId);
  const Path path(prefix, "_AECData_camId[", camId, "]_ev[", load<std::uint32_t>(evIndex), "].xml");
  if (info->mode == kDump) return dumpAecData(path.c_str(), aecOutput);
  if (info->mode == kReadback) return readAecData(path.c_str(), aecOutput);
  // Any other mode, too, takes memory for a document, or says that there is none.
  newDocument(path.c_str());
}
