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
#include "zoawb/codecs.h"

namespace simulation {
namespace {

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

}  // namespace

struct FlatRecord {
  const char* tail;  ///< of the file name, between the prefix and the camera
  const char* root;
  XmlFields fields;
};

constexpr FlatRecord kWideAlwaysOnStatus = {"_WideAlwaysOnStatus", "WideAlwaysOnStatus",
                                            kWideAlwaysOnFields};
constexpr FlatRecord kSyncInfo = {"_SyncInfo", "AWBsyncInfo", kSyncFields};
constexpr FlatRecord kPureColorRes = {"_PureColorRes", "PureColorRes", kPureColorFields};
constexpr FlatRecord kLightSrcClassify = {"_LightSrcClassify", "LightSrcClassify", kLightSrcFields};

void dumpFlatRecord(const FlatRecord& record, const char* path, const void* data) {
  const auto printer = newXmlPrinter(path);
  if (printer == nullptr) return;
  printer->OpenElement(record.root);
  printFields(*printer, data, record.fields);
  printer->CloseElement();
  finishAndLog(*printer, path, kVerbose);
}

void readFlatRecord(const FlatRecord& record, const char* path, void* data) {
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

namespace {

void runFlatRecord(const FlatRecord& record, const SimulationInfo& info, void* data,
                   unsigned int requestId, unsigned int camId) {
  const Path path = recordPath(info, FileType::ZOAWB, record.tail, requestId, camId, ".xml");
  if (info.mode == kDump) dumpFlatRecord(record, path.c_str(), data);
  if (info.mode == kReadback) readFlatRecord(record, path.c_str(), data);
}

}  // namespace
}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForZOAWBFaceDectionInfo(SimulationInfo* info, void* data,
                                                   unsigned int requestId, unsigned int camId) {
  runBinaryRecord(kFaceDectionInfo, *info, data, requestId, camId);
}

void Simulation::SimulationForZOAWBFaceColorDectionInfo(SimulationInfo* info, void* data,
                                                        unsigned int requestId,
                                                        unsigned int camId) {
  runBinaryRecord(kFaceColorDectionInfo, *info, data, requestId, camId);
}

void Simulation::SimulationForZOAWBWideAlwaysOnStatus(SimulationInfo* info, void* data,
                                                      unsigned int requestId, unsigned int camId) {
  runFlatRecord(kWideAlwaysOnStatus, *info, data, requestId, camId);
}

void Simulation::SimulationForZOAWBSyncInfo(SimulationInfo* info, void* data,
                                            unsigned int requestId, unsigned int camId) {
  runFlatRecord(kSyncInfo, *info, data, requestId, camId);
}

void Simulation::SimulationForZOAWBPureColorRes(SimulationInfo* info, void* data,
                                                unsigned int requestId, unsigned int camId) {
  runFlatRecord(kPureColorRes, *info, data, requestId, camId);
}

void Simulation::SimulationForZOAWBLightSrcClassify(SimulationInfo* info, void* data,
                                                    unsigned int requestId, unsigned int camId) {
  runFlatRecord(kLightSrcClassify, *info, data, requestId, camId);
}
