// The device orientation that ACB sees, as XML.
#include <simulation/records.h>
#include <simulation/simulation.h>

#include <memory>

#include "acb/codecs.h"
#include "core/bytes.h"
#include "core/data_paths.h"
#include "core/log.h"
#include "core/number_text.h"
#include "core/xml_printer.h"

namespace simulation {
namespace {

constexpr char kElement[] = "orientation";
constexpr std::size_t kOffset = offsetof(AcbDeviceOrientation, orientation);

}  // namespace

void dumpAcbOrientation(const char* path, const void* record) {
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

void readAcbOrientation(const char* path, void* record) {
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

}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForACBdeviceOri(SimulationInfo* info, void* orientationRecord,
                                           unsigned int, unsigned int camId) {
  const Path prefix =
      namedFolderPrefix(static_cast<int>(info->mode), FileType::ACB, info->folderName);
  const Path path(prefix, "_acb_orientation_camId[", camId, "].xml");
  if (info->mode == kDump) dumpAcbOrientation(path.c_str(), orientationRecord);
  if (info->mode == kReadback) readAcbOrientation(path.c_str(), orientationRecord);
}
