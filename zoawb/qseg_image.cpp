// The scene segmentation that white balance receives: a header, a label map of
// 307200 bytes as one text, ten instances with their rectangles, and the
// cropped window, all in one document of about a megabyte.
#include <simulation/records.h>
#include <simulation/simulation.h>

#include <cstddef>
#include <cstdint>

#include "core/data_paths.h"
#include "core/log.h"
#include "core/xml_document.h"
#include "core/xml_fields.h"
#include "zoawb/label_map.h"

namespace simulation {
namespace {

constexpr XmlField kRectangle[] = {
    {"left", offsetof(QSegRect, left), writeWord<std::uint32_t>, readLowBits<std::uint32_t>},
    {"top", offsetof(QSegRect, top), writeWord<std::uint32_t>, readLowBits<std::uint32_t>},
    {"width", offsetof(QSegRect, width), writeWord<std::uint32_t>, readLowBits<std::uint32_t>},
    {"height", offsetof(QSegRect, height), writeWord<std::uint32_t>, readLowBits<std::uint32_t>},
};

void writeRectangle(XmlPrinter& printer, const void* rectangle) {
  printFields(printer, rectangle, kRectangle);
}

void readRectangle(const tinyxml2::XMLElement& element, void* rectangle) {
  applyFields(element, rectangle, kRectangle);
}

constexpr XmlArray kPartRois = {"partROI", 3, sizeof(QSegRect), kRectangle};

void writePartRois(XmlPrinter& printer, const void* parts) {
  printArray(printer, parts, kPartRois);
}

void readPartRois(const tinyxml2::XMLElement& element, void* parts) {
  applyArray(element, parts, kPartRois);
}

constexpr XmlField kInstance[] = {
    {"requestId", offsetof(QSegInstInfo, requestId), writeWord<std::uint64_t>,
     readLowBits<std::uint64_t>},
    {"ID", offsetof(QSegInstInfo, ID), writeInt, readLowBits<std::uint32_t>},
    {"nConf", offsetof(QSegInstInfo, nConf), writeWord<std::uint32_t>, readLowBits<std::uint32_t>},
    {"nSegIdx", offsetof(QSegInstInfo, nSegIdx), writeWord<std::uint16_t>,
     readLowBits<std::uint16_t>},
    {"eTrackStatus", offsetof(QSegInstInfo, eTrackStatus), writeWord<std::uint16_t>,
     readLowBits<std::uint16_t>},
    {"eObjectType", offsetof(QSegInstInfo, eObjectType), writeWord<std::uint16_t>,
     readLowBits<std::uint16_t>},
    {"roi", offsetof(QSegInstInfo, roi), writeRectangle, readRectangle},
    {"partROIs", offsetof(QSegInstInfo, partROIs), writePartRois, readPartRois},
};

constexpr XmlArray kInstances = {"qsegInstInfo", QSegImageInfo::kInstances, sizeof(QSegInstInfo),
                                 kInstance};

void writeInstances(XmlPrinter& printer, const void* instances) {
  printArray(printer, instances, kInstances);
}

void readInstances(const tinyxml2::XMLElement& element, void* instances) {
  applyArray(element, instances, kInstances);
}

constexpr XmlField kFields[] = {
    {"requestId", offsetof(QSegImageInfo, requestId), writeWord<std::uint64_t>,
     readLowBits<std::uint64_t>},
    {"isQSegInfoValid", offsetof(QSegImageInfo, isQSegInfoValid), writeInt, readInt},
    {"horizontalRegionCount", offsetof(QSegImageInfo, horizontalRegionCount),
     writeWord<std::uint32_t>, readLowBits<std::uint32_t>},
    {"verticalRegionCount", offsetof(QSegImageInfo, verticalRegionCount), writeWord<std::uint32_t>,
     readLowBits<std::uint32_t>},
    {"qsegInstCount", offsetof(QSegImageInfo, qsegInstCount), writeWord<std::uint16_t>,
     readLowBits<std::uint16_t>},
    {"qsegSceneClass", offsetof(QSegImageInfo, qsegSceneClass), writeWord<std::uint16_t>,
     readLowBits<std::uint16_t>},
    {"qsegSceneClassConf", offsetof(QSegImageInfo, qsegSceneClassConf), writeFloat, readFloat},
    {"qsegStatsInfo", offsetof(QSegImageInfo, qsegStatsInfo), writeLabelMap, readLabelMap},
    {"qsegInstInfos", offsetof(QSegImageInfo, qsegInstInfos), writeInstances, readInstances},
    {"qsegCroppedWindowInfo", offsetof(QSegImageInfo, qsegCroppedWindowInfo), writeRectangle,
     readRectangle},
};

}  // namespace
}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForQsegImageData(SimulationInfo* info, void* pQSegImageInfo,
                                            unsigned int requestId, unsigned int camId) {
  Path path = recordPath(*info, FileType::AWB, "_QsegImageData", requestId, camId, ".xml");
  if (info->mode == kDump) dumpQsegImageData(pQSegImageInfo, path.data());
  if (info->mode == kReadback) readQsegImageData(pQSegImageInfo, path.data());
}

void Simulation::dumpQsegImageData(void* pQSegImageInfo, char* fileName) {
  if (pQSegImageInfo == nullptr) {
    SimulationLog(kError, "failed, pQSegImageInfo is null");
    return;
  }
  const auto printer = newXmlPrinter(fileName);
  if (printer == nullptr) {
    SimulationLog(kError, "create XMLDocument %s failed", fileName);
    return;
  }
  printer->OpenElement("QSegImageInfo");
  printFields(*printer, pQSegImageInfo, kFields);
  printer->CloseElement();
  finishAndLog(*printer, fileName, kDebug);
}

void Simulation::readQsegImageData(void* pQSegImageInfo, char* fileName) {
  XmlDocument document = newXmlDocument();
  if (document == nullptr) {
    SimulationLog(kError, "create XMLDocument %s failed", fileName);
    return;
  }
  const tinyxml2::XMLNode* root = loadXmlRoot(*document, fileName);
  if (root == nullptr) return;
  // A conversion that throws leaves the document allocated, on purpose.
  RecordDocument* const kept = document.release();
  applyFields(*root, pQSegImageInfo, kFields);
  document.reset(kept);
  SimulationLog(kError, "readback %s success", fileName);
}
