// Any file as the scene segmentation. Texts that are no numbers throw; a file
// with more labels, instances or parts than the record has breaks a bound.
#include "fuzz/support/plain_replay.h"

const char* const fuzz::kRecordFiles[] = {"simulation_AWB_QsegImageData_camId[0].xml", nullptr};

namespace {

using fuzz::PlainField;
using fuzz::replayLowBits;
using tinyxml2::XMLElement;

constexpr PlainField kRectangle[] = {
    {"left", 0, replayLowBits<std::uint32_t>},
    {"top", 4, replayLowBits<std::uint32_t>},
    {"width", 8, replayLowBits<std::uint32_t>},
    {"height", 12, replayLowBits<std::uint32_t>},
};

void replayRectangle(const XMLElement& element, std::string& record, std::size_t offset) {
  fuzz::replayFields(element, kRectangle, record, offset);
}

void replayParts(const XMLElement& element, std::string& record, std::size_t offset) {
  fuzz::replayItems(element, kRectangle, 3, sizeof(QSegRect), record, offset);
}

constexpr PlainField kInstance[] = {
    {"requestId", offsetof(QSegInstInfo, requestId), replayLowBits<std::uint64_t>},
    {"ID", offsetof(QSegInstInfo, ID), replayLowBits<std::uint32_t>},
    {"nConf", offsetof(QSegInstInfo, nConf), replayLowBits<std::uint32_t>},
    {"nSegIdx", offsetof(QSegInstInfo, nSegIdx), replayLowBits<std::uint16_t>},
    {"eTrackStatus", offsetof(QSegInstInfo, eTrackStatus), replayLowBits<std::uint16_t>},
    {"eObjectType", offsetof(QSegInstInfo, eObjectType), replayLowBits<std::uint16_t>},
    {"roi", offsetof(QSegInstInfo, roi), replayRectangle},
    {"partROIs", offsetof(QSegInstInfo, partROIs), replayParts},
};

void replayInstances(const XMLElement& element, std::string& record, std::size_t offset) {
  fuzz::replayItems(element, kInstance, QSegImageInfo::kInstances, sizeof(QSegInstInfo), record,
                    offset);
}

void replayLabels(const XMLElement& element, std::string& record, std::size_t offset) {
  const std::vector<int> labels = fuzz::convertParts(
      fuzz::plainText(element), [](const std::string& label) { return std::stoi(label); });
  if (labels.size() > QSegImageInfo::kStatsSize) throw fuzz::Fatal();
  for (const int label : labels) record[offset++] = static_cast<char>(label);
}

constexpr PlainField kImage[] = {
    {"requestId", offsetof(QSegImageInfo, requestId), replayLowBits<std::uint64_t>},
    {"isQSegInfoValid", offsetof(QSegImageInfo, isQSegInfoValid), fuzz::replayInt},
    {"horizontalRegionCount", offsetof(QSegImageInfo, horizontalRegionCount),
     replayLowBits<std::uint32_t>},
    {"verticalRegionCount", offsetof(QSegImageInfo, verticalRegionCount),
     replayLowBits<std::uint32_t>},
    {"qsegInstCount", offsetof(QSegImageInfo, qsegInstCount), replayLowBits<std::uint16_t>},
    {"qsegSceneClass", offsetof(QSegImageInfo, qsegSceneClass), replayLowBits<std::uint16_t>},
    {"qsegSceneClassConf", offsetof(QSegImageInfo, qsegSceneClassConf), fuzz::replayFloat},
    {"qsegStatsInfo", offsetof(QSegImageInfo, qsegStatsInfo), replayLabels},
    {"qsegInstInfos", offsetof(QSegImageInfo, qsegInstInfos), replayInstances},
    {"qsegCroppedWindowInfo", offsetof(QSegImageInfo, qsegCroppedWindowInfo), replayRectangle},
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::setInput(fuzz::textOf(data, size));
  tinyxml2::XMLDocument document;
  const bool loads = document.LoadFile(fuzz::kInputFile) == tinyxml2::XML_SUCCESS &&
                     document.FirstChild() != nullptr;
  static fuzz::Record image(sizeof(QSegImageInfo));
  image.refill();
  const fuzz::Outcome due = fuzz::outcomeOf([&] {
    if (loads) fuzz::replayFields(*document.FirstChild(), kImage, image.live(), 0);
  });
  SimulationInfo info = fuzz::readback();
  const fuzz::Result result = fuzz::run(due, [&](Simulation& simulation) {
    simulation.SimulationForQsegImageData(&info, image.data(), 1, 0);
  });
  const bool returns = due == fuzz::Outcome::kReturned;
  fuzz::require(result.claimsSuccess() == (loads && returns), "success means replayed");
  fuzz::require(image.isLive(), "the record is what the file makes of it");
  fuzz::require(result.keptDocument != returns, "the document is kept when a conversion throws");
  return 0;
}
