// The exposure facts that white balance gets from auto exposure, as XML.
#include <simulation/records.h>
#include <simulation/simulation.h>

#include <string_view>

#include "core/bytes.h"
#include "core/data_paths.h"
#include "core/log.h"
#include "core/number_text.h"
#include "core/xml_document.h"
#include "core/xml_fields.h"

namespace simulation {
namespace {

constexpr std::size_t kMatrixSize = 4;

std::size_t matrixAt(std::size_t index) {
  return offsetof(AWBExposureInfo, BETemplateMatrix) + index * sizeof(float);
}

void writeMatrix(tinyxml2::XMLElement& element, const void* data) {
  TextBuilder text(kMatrixSize * (kStreamFloatRoom + 1));
  for (std::size_t i = 0; i < kMatrixSize; ++i) {
    text.append(writeStreamFloat, load<float>(data, matrixAt(i)));
    text.append(' ');
  }
  element.SetText(text.c_str());
}

/// Numbers beyond the matrix are ignored; those that are missing stay live.
void readMatrix(const tinyxml2::XMLElement& element, void* data) {
  const std::string_view text = textOf(element);
  const char* cursor = text.data();
  const char* const end = cursor + text.size();
  float value;
  for (std::size_t i = 0; i < kMatrixSize && extract(cursor, end, value); ++i) {
    store(data, matrixAt(i), value);
  }
}

void dump(tinyxml2::XMLDocument& document, const char* path, const void* data) {
  tinyxml2::XMLElement& exposure =
      appendElement(appendElement(document, "SimulationData"), "AWBAlgoExposureInformation");
  const char* const record = static_cast<const char*>(data);
  writeFloatAttribute(exposure, "luxIndex", record);
  exposure.SetAttribute("AECSettled",
                        load<std::int32_t>(record, offsetof(AWBExposureInfo, AECSettled)));
  writeUnsigned64Attribute(exposure, "frameDuration",
                           record + offsetof(AWBExposureInfo, frameDuration));
  writeMatrix(appendElement(exposure, "BETemplateMatrix"), record);
  saveXmlAndLog(document, path, kVerbose);
}

void readAttributes(const tinyxml2::XMLElement& exposure, void* data) {
  char* const record = static_cast<char*>(data);
  queryFloatAttribute(exposure, "luxIndex", record);
  bool settled;
  if (exposure.QueryBoolAttribute("AECSettled", &settled) == tinyxml2::XML_SUCCESS) {
    // One byte of the four: the other three stay live.
    store(record, offsetof(AWBExposureInfo, AECSettled), static_cast<std::uint8_t>(settled));
  }
  queryUnsigned64Attribute(exposure, "frameDuration",
                           record + offsetof(AWBExposureInfo, frameDuration));
}

void readBack(RecordDocument& document, const char* path, void* data) {
  const tinyxml2::XMLNode* root = loadXmlRoot(document, path);
  if (root == nullptr) return;
  const tinyxml2::XMLElement* exposure = findElement(*root, "AWBAlgoExposureInformation");
  if (exposure == nullptr) return;
  readAttributes(*exposure, data);
  const tinyxml2::XMLElement* matrix = findElement(*exposure, "BETemplateMatrix");
  if (matrix != nullptr) readMatrix(*matrix, data);
}

}  // namespace
}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForAWBAECData(SimulationInfo* info, void* data, unsigned int requestId,
                                         unsigned int camId) {
  const Path path = recordPath(*info, FileType::AWB, "_AECData", requestId, camId, ".xml");
  const XmlDocument document = newXmlDocument();
  if (document == nullptr) return;
  if (info->mode == kDump) dump(*document, path.c_str(), data);
  if (info->mode == kReadback) readBack(*document, path.c_str(), data);
}
