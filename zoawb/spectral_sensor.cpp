// The reading of the spectral (ambient light) sensor. All cameras share one
// readback file: its name carries no camera.
#include <simulation/records.h>
#include <simulation/simulation.h>

#include <cstddef>
#include <cstdint>

#include "core/bytes.h"
#include "core/data_paths.h"
#include "core/fatal.h"
#include "core/log.h"
#include "core/number_text.h"
#include "core/xml_document.h"
#include "core/xml_fields.h"
#include "zoawb/codecs.h"

namespace simulation {
namespace {

using Record = SpectralSensorInfo;
constexpr std::size_t kChannels = Record::kChannels;

void writeChannels(XmlPrinter& printer, const void* member) {
  printer.pushNumbers(kChannels, [member](char* out, std::size_t i) {
    return writeBlank(writeStreamFloat(out, load<float>(member, i * sizeof(float))));
  });
}

/// Values are stored one by one until a text is no number. One more than there
/// are channels aborts.
void readChannels(const tinyxml2::XMLElement& element, void* member) {
  const std::string_view text = textOf(element);
  const char* cursor = text.data();
  float value = 0;
  for (std::size_t i = 0; extract(cursor, text.data() + text.size(), value); ++i) {
    requireBelow(i, kChannels);
    storeMember(member, value, i);
  }
}

/// Written as a float, but read as an integer: the fraction is lost, and a
/// negative text becomes a large value.
void readFlicker(const tinyxml2::XMLElement& element, void* member) {
  const auto whole = static_cast<std::uint32_t>(toLongLong(textOf(element)));
  storeMember(member, static_cast<float>(whole));
}

constexpr XmlField kFields[] = {
    {"enabled", offsetof(Record, enabled), writeInt, readInt},
    {"cct", offsetof(Record, cct), writeFloat, readFloat},
    {"lux", offsetof(Record, lux), writeFloat, readFloat},
    {"irRatio1", offsetof(Record, irRatio1), writeFloat, readFloat},
    {"irRatio2", offsetof(Record, irRatio2), writeFloat, readFloat},
    {"irRatio3", offsetof(Record, irRatio3), writeFloat, readFloat},
    {"channelDatas", offsetof(Record, channelDatas), writeChannels, readChannels},
    {"channelNum", offsetof(Record, channelNum), nullptr, readLowBits<std::uint32_t>},
    {"x", offsetof(Record, x), writeFloat, readFloat},
    {"y", offsetof(Record, y), writeFloat, readFloat},
    {"als_gain", offsetof(Record, als_gain), writeWord<std::uint32_t>, readLowBits<std::uint32_t>},
    {"flickerFrequency", offsetof(Record, flickerFrequency), writeFloat, readFlicker},
    {"atime", offsetof(Record, atime), writeInt, readLowBits<std::uint32_t>},
    {"again_idx", offsetof(Record, again_idx), writeInt, readLowBits<std::uint32_t>},
    {"sensorType", offsetof(Record, sensorType), writeInt, readInt},
};

}  // namespace

void dumpSpectralSensor(const char* path, const void* data) {
  const auto printer = newXmlPrinter(path);
  if (printer == nullptr) return;
  printer->OpenElement("SpectralSensorInfo");
  printFields(*printer, data, kFields);
  printer->CloseElement();
  if (printer->finish() == tinyxml2::XML_SUCCESS) {
    SimulationLog(kVerbose, "dump %s success", path);
  } else {
    SimulationLog(kError, "dump %s failed", path);
  }
}

void readSpectralSensor(const char* path, void* data) {
  const XmlDocument document = newXmlDocument();
  if (document == nullptr) return;
  if (document->load(path) != tinyxml2::XML_SUCCESS) {
    SimulationLog(kError, "read %s fail ", path);
    return;
  }
  const tinyxml2::XMLElement* root = document->FirstChildElement();
  if (root != nullptr) applyFields(*root, data, kFields);
}

}  // namespace simulation

using namespace simulation;

void Simulation::SimulationForZoAWBSpectralSensorInfo(SimulationInfo* info, void* data,
                                                      unsigned int requestId, unsigned int camId) {
  const Path prefix = recordPrefix(static_cast<int>(info->mode), FileType::ZOAWB, requestId, camId);
  const Path path(prefix, "_SpectralSensorInfo.xml");
  if (info->mode == kDump) dumpSpectralSensor(path.c_str(), data);
  if (info->mode == kReadback) readSpectralSensor(path.c_str(), data);
}
