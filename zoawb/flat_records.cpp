// The small records of the extended white balance: two structures saved byte
// for byte and four of a few numbers each, saved as XML.
#include <simulation/records.h>
#include <simulation/simulation.h>

#include <cstddef>

#include "core/binary_record.h"
#include "core/data_paths.h"
#include "core/log.h"
#include "core/xml_document.h"
#include "core/xml_fields.h"

namespace simulation {
namespace {

constexpr BinaryRecord kFaceDection = {FileType::ZOAWB, "_FaceDectionInfo", 964};
constexpr BinaryRecord kFaceColorDection = {FileType::ZOAWB, "_FaceColorDectionInfo", 204};

constexpr XmlField kWideAlwaysOnFields[] = {
    {"status", offsetof(ZOAWBWideAlwaysOnStatus, status), writeInt, readInt},
};
constexpr XmlField kSyncFields[] = {
    {"syncinfo", offsetof(ZOAWBSyncInfo, syncinfo), writeInt, readInt},
};
constexpr XmlField kPureColorFields[] = {
    {"enabled", offsetof(ZOAWBPureColorRes, enabled), writeInt, readInt},
    {"singlePureColorConfid", offsetof(ZOAWBPureColorRes, singlePureColorConfid), writeFloat,
     readFloat},
    {"pureColorBackgrdFaceConfid", offsetof(ZOAWBPureColorRes, pureColorBackgrdFaceConfid),
     writeFloat, readFloat},
};
constexpr XmlField kLightSrcFields[] = {
    {"enabled", offsetof(ZOAWBLightSrcClassify, enabled), writeInt, readInt},
    {"firstCTConfid", offsetof(ZOAWBLightSrcClassify, firstCTConfid), writeFloat, readFloat},
    {"secondCTConfid", offsetof(ZOAWBLightSrcClassify, secondCTConfid), writeFloat, readFloat},
    {"firstCTValue", offsetof(ZOAWBLightSrcClassify, firstCTValue), writeFloat, readFloat},
    {"secondCTValue", offsetof(ZOAWBLightSrcClassify, secondCTValue), writeFloat, readFloat},
    {"lightClassConfid", offsetof(ZOAWBLightSrcClassify, lightClassConfid), writeFloat, readFloat},
    {"lightClass", offsetof(ZOAWBLightSrcClassify, lightClass), writeInt, readInt},
};

/// A record whose root element carries one child for each field.
struct FlatRecord {
  const char* tail;  ///< of the file name, between the prefix and the camera
  const char* root;
  XmlFields fields;
};

constexpr FlatRecord kWideAlwaysOn = {"_WideAlwaysOnStatus", "WideAlwaysOnStatus",
                                      kWideAlwaysOnFields};
constexpr FlatRecord kSync = {"_SyncInfo", "AWBsyncInfo", kSyncFields};
constexpr FlatRecord kPureColor = {"_PureColorRes", "PureColorRes", kPureColorFields};
constexpr FlatRecord kLightSrc = {"_LightSrcClassify", "LightSrcClassify", kLightSrcFields};

void dump(const FlatRecord& record, const char* path, const void* data) {
  const auto printer = newXmlPrinter(path);
  if (printer == nullptr) return;
  printer->OpenElement(record.root);
  printFields(*printer, data, record.fields);
  printer->CloseElement();
  finishAndLog(*printer, path, kVerbose);
}

void readBack(const FlatRecord& record, const char* path, void* data) {
  XmlDocument document = newXmlDocument();
  if (document == nullptr) return;
  if (document->load(path) != tinyxml2::XML_SUCCESS) {
    SimulationLog(kError, "read %s fail error:%d", path, document->ErrorID());
    return;
  }
  const tinyxml2::XMLElement* root = document->FirstChildElement();
  if (root == nullptr) return;
  // Kept when a conversion throws: its document stays allocated, on purpose.
  RecordDocument* const kept = document.release();
  applyFields(*root, data, record.fields);
  document.reset(kept);
}

void runFlatRecord(const FlatRecord& record, const SimulationInfo& info, void* data,
                   unsigned int requestId, unsigned int camId) {
  const Path path = recordPath(info, FileType::ZOAWB, record.tail, requestId, camId, ".xml");
  if (info.mode == kDump) dump(record, path.c_str(), data);
  if (info.mode == kReadback) readBack(record, path.c_str(), data);
}

}  // namespace
}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForZOAWBFaceDectionInfo(SimulationInfo* info, void* data,
                                                   unsigned int requestId, unsigned int camId) {
  runBinaryRecord(kFaceDection, *info, data, requestId, camId);
}

void Simulation::SimulationForZOAWBFaceColorDectionInfo(SimulationInfo* info, void* data,
                                                        unsigned int requestId,
                                                        unsigned int camId) {
  runBinaryRecord(kFaceColorDection, *info, data, requestId, camId);
}

void Simulation::SimulationForZOAWBWideAlwaysOnStatus(SimulationInfo* info, void* data,
                                                      unsigned int requestId, unsigned int camId) {
  runFlatRecord(kWideAlwaysOn, *info, data, requestId, camId);
}

void Simulation::SimulationForZOAWBSyncInfo(SimulationInfo* info, void* data,
                                            unsigned int requestId, unsigned int camId) {
  runFlatRecord(kSync, *info, data, requestId, camId);
}

void Simulation::SimulationForZOAWBPureColorRes(SimulationInfo* info, void* data,
                                                unsigned int requestId, unsigned int camId) {
  runFlatRecord(kPureColor, *info, data, requestId, camId);
}

void Simulation::SimulationForZOAWBLightSrcClassify(SimulationInfo* info, void* data,
                                                    unsigned int requestId, unsigned int camId) {
  runFlatRecord(kLightSrc, *info, data, requestId, camId);
}
