// Any file as the reading of the spectral sensor. Texts that are no numbers
// throw; a 21st channel breaks a bound.
#include <sstream>

#include "fuzz/support/plain_replay.h"

const char* const fuzz::kRecordFiles[] = {"simulation_ZOAWB_SpectralSensorInfo.xml", nullptr};

namespace {

using Record = SpectralSensorInfo;
using fuzz::replayFloat;
using fuzz::replayInt;
using fuzz::replayLowBits;
using tinyxml2::XMLElement;

void replayChannels(const XMLElement& element, std::string& record, std::size_t offset) {
  std::istringstream stream(fuzz::plainText(element));
  std::size_t count = 0;
  for (float value = 0; stream >> value; ++count) {
    fuzz::put(record, count < Record::kChannels ? offset + 4 * count : fuzz::kNowhere, value);
  }
}

void replayFlicker(const XMLElement& element, std::string& record, std::size_t offset) {
  const auto whole = static_cast<std::uint32_t>(std::stoll(fuzz::plainText(element)));
  fuzz::put(record, offset, static_cast<float>(whole));
}

constexpr fuzz::PlainField kFields[] = {
    {"enabled", offsetof(Record, enabled), replayInt},
    {"cct", offsetof(Record, cct), replayFloat},
    {"lux", offsetof(Record, lux), replayFloat},
    {"irRatio1", offsetof(Record, irRatio1), replayFloat},
    {"irRatio2", offsetof(Record, irRatio2), replayFloat},
    {"irRatio3", offsetof(Record, irRatio3), replayFloat},
    {"channelDatas", offsetof(Record, channelDatas), replayChannels},
    {"channelNum", offsetof(Record, channelNum), replayLowBits<std::uint32_t>},
    {"x", offsetof(Record, x), replayFloat},
    {"y", offsetof(Record, y), replayFloat},
    {"als_gain", offsetof(Record, als_gain), replayLowBits<std::uint32_t>},
    {"flickerFrequency", offsetof(Record, flickerFrequency), replayFlicker},
    {"atime", offsetof(Record, atime), replayLowBits<std::uint32_t>},
    {"again_idx", offsetof(Record, again_idx), replayLowBits<std::uint32_t>},
    {"sensorType", offsetof(Record, sensorType), replayInt},
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::setInput(fuzz::textOf(data, size));
  tinyxml2::XMLDocument document;
  const bool loads = document.LoadFile(fuzz::kInputFile) == tinyxml2::XML_SUCCESS;
  const XMLElement* const root = loads ? document.FirstChildElement() : nullptr;
  fuzz::Record record(sizeof(Record));
  const fuzz::Outcome due = fuzz::outcomeOf([&] {
    if (root != nullptr) fuzz::replayFields(*root, kFields, record.live(), 0);
  });
  SimulationInfo info = fuzz::readback();
  const fuzz::Result result = fuzz::run(due, [&](Simulation& simulation) {
    simulation.SimulationForZoAWBSpectralSensorInfo(&info, record.data(), 1, 0);
  });
  fuzz::require(result.logged("read ") != loads, "a file that can't be loaded is logged");
  fuzz::require(record.isLive(), "the record is what the file makes of it");
  fuzz::require(!result.keptDocument, "the document is released");
  return 0;
}
