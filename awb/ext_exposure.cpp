// The extended exposure that white balance sees: six floats as XML.
#include <simulation/simulation.h>

#include <memory>
#include <utility>

#include "awb/codecs.h"
#include "core/data_paths.h"
#include "core/log.h"
#include "core/xml_document.h"
#include "core/xml_fields.h"

namespace simulation {
namespace {

/// Requests below this are neither dumped nor replayed.
constexpr unsigned int kFirstRequest = 10;

constexpr XmlField kFields[] = {
    {"safeSensitivity", 0, writeFloat, queryFloat},
    {"longSensitivity", 4, writeFloat, queryFloat},
    {"shortSensitivity", 8, writeFloat, queryFloat},
    {"frameLuma", 12, writeFloat, queryFloat},
    {"ADRCGain", 16, writeFloat, queryFloat},
    {"brightnessValue", 20, writeFloat, queryFloat},
};

void dump(const char* path, const void* data) {
  const auto printer = std::make_unique<XmlPrinter>(path);
  printer->OpenElement("ExtExposure");
  printFields(*printer, data, kFields);
  printer->CloseElement();
  if (printer->finish() == tinyxml2::XML_SUCCESS) {
    SimulationLog(kVerbose, "dump %s success", path);
  } else {
    SimulationLog(kError, "dump %s fail", path);
  }
}

void readBack(RecordDocument& document, const char* path, void* data) {
  if (document.load(path) != tinyxml2::XML_SUCCESS) {
    SimulationLog(kError, "dump %s fail error:%d", path, document.ErrorID());
    return;
  }
  const tinyxml2::XMLElement* root = document.FirstChildElement();
  if (root != nullptr) applyFields(*root, data, kFields);
}

/// Leaves the document allocated, on purpose: this record's is never freed (1 KB
/// for a dump, some 10 KB for a readback, more for a larger file).
void keepAllocated(std::unique_ptr<RecordDocument> document) {
  (void)document.release();  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
}

}  // namespace

void dumpExtExposure(const char* path, const void* data) {
  auto document = std::make_unique<RecordDocument>();
  dump(path, data);
  keepAllocated(std::move(document));
}

void readExtExposure(const char* path, void* data) {
  auto document = std::make_unique<RecordDocument>();
  readBack(*document, path, data);
  keepAllocated(std::move(document));
}

}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForAWBExtExposure(SimulationInfo* info, void* data,
                                             unsigned int requestId, unsigned int camId) {
  if (requestId < kFirstRequest) return;
  const Path path = recordPath(*info, FileType::AWB, "_ExtExposure", requestId, camId, ".xml");
  if (info->mode == kDump) dumpExtExposure(path.c_str(), data);
  if (info->mode == kReadback) readExtExposure(path.c_str(), data);
}
