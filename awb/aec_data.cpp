// The exposure facts that white balance gets from auto exposure, as XML.
#include <simulation/records.h>
#include <simulation/simulation.h>

#include <string_view>

#include "awb/codecs.h"
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

void dumpAwbAecData(const char* path, const void* data) {
  const auto printer = newXmlPrinter(path);
  if (printer == nullptr) return;
  const char* const record = static_cast<const char*>(data);
  printer->OpenElement("SimulationData");
  printer->OpenElement("AWBAlgoExposureInformation");
  writeFloatAttribute(*printer, "luxIndex", record);
  printer->PushAttribute("AECSettled",
                         load<std::int32_t>(record, offsetof(AWBExposureInfo, AECSettled)));
  writeUnsigned64Attribute(*printer, "frameDuration",
                           record + offsetof(AWBExposureInfo, frameDuration));
  printer->OpenElement("BETemplateMatrix");
  printer->pushNumbers(kMatrixSize, [record](char* out, std::size_t i) {
    return writeBlank(writeStreamFloat(out, load<float>(record, matrixAt(i))));
  });
  printer->CloseElement();
  printer->CloseElement();
  printer->CloseElement();
  finishAndLog(*printer, path, kVerbose);
}

void readAwbAecData(const char* path, void* data) {
  const XmlDocument document = newXmlDocument();
  if (document != nullptr) readBack(*document, path, data);
}

}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForAWBAECData(SimulationInfo* info, void* data, unsigned int requestId,
                                         unsigned int camId) {
  const Path path = recordPath(*info, FileType::AWB, "_AECData", requestId, camId, ".xml");
  if (info->mode == kDump) return dumpAwbAecData(path.c_str(), data);
  if (info->mode == kReadback) return readAwbAecData(path.c_str(), data);
  newXmlDocument();  // any other mode takes memory for one, too
}
