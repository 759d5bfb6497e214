// The device orientation that ACB sees, as XML.
#include <simulation/records.h>
#include <simulation/simulation.h>

#include <memory>

#include "core/bytes.h"
#include "core/data_paths.h"
#include "core/log.h"
#include "core/number_text.h"
#include "core/xml_printer.h"

namespace simulation {
namespace {

constexpr char kElement[] = "orientation";
constexpr std::size_t kOffset = offsetof(AcbDeviceOrientation, orientation);

void dump(const void* record, const char* path) {
  const auto printer = std::make_unique<XmlPrinter>(path);
  printer->OpenElement("ExtExposure");
  printer->OpenElement(kElement);
  printer->pushNumber(writeSigned, load<std::int32_t>(record, kOffset));
  printer->CloseElement();
  printer->CloseElement();
  if (printer->finish() == tinyxml2::XML_SUCCESS) {
    SimulationLog(kVerbose, "dump %s success", path);
  } else {
    SimulationLog(kError, "dump %s fail", path);
  }
}

/// What is missing from the file, or no integer, leaves the record.
void readBack(void* record, const char* path) {
  tinyxml2::XMLDocument document;
  if (document.LoadFile(path) != tinyxml2::XML_SUCCESS) {
    SimulationLog(kError, "dump %s fail error:%d", path, document.ErrorID());
    return;
  }
  const tinyxml2::XMLElement* root = document.FirstChildElement();
  const tinyxml2::XMLElement* element =
      root != nullptr ? root->FirstChildElement(kElement) : nullptr;
  int orientation = 0;
  if (element != nullptr && element->QueryIntText(&orientation) == tinyxml2::XML_SUCCESS) {
    store(record, kOffset, orientation);
  }
}

}  // namespace
}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForACBdeviceOri(SimulationInfo* info, void* orientationRecord,
                                           unsigned int, unsigned int camId) {
  const Path prefix =
      namedFolderPrefix(static_cast<int>(info->mode), FileType::ACB, info->folderName);
  const Path path(prefix, "_acb_orientation_camId[", camId, "].xml");
  if (info->mode == kDump) dump(orientationRecord, path.c_str());
  if (info->mode == kReadback) readBack(orientationRecord, path.c_str());
}
