// Any file as the scene segmentation. Texts that are no numbers throw; a file
// with more labels, instances or parts than the record has breaks a bound.
#include <tinyxml2.h>

#include "fuzz/support/fuzz.h"

const char* const fuzz::kRecordFiles[] = {"simulation_AWB_QsegImageData_camId[0].xml", nullptr};

namespace {

/// The labels that the parser and the standard conversion find.
std::string labelsIn(const tinyxml2::XMLDocument& document) {
  const auto* element = document.FirstChild()->FirstChildElement("qsegStatsInfo");
  const char* const text = element != nullptr ? element->GetText() : nullptr;
  std::string_view rest(text != nullptr ? text : "");
  std::string labels;
  for (std::size_t blank; (blank = rest.find(' ')) != rest.npos; rest.remove_prefix(blank + 1)) {
    labels += static_cast<char>(std::stoi(std::string(rest.substr(0, blank))));
  }
  return labels;
}

void checkLabels(const tinyxml2::XMLDocument& document, fuzz::Record& image) {
  constexpr std::size_t kMap = offsetof(QSegImageInfo, qsegStatsInfo);
  const std::string labels = labelsIn(document);
  fuzz::require(labels.size() <= QSegImageInfo::kStatsSize,
                "more labels than the record holds don't go unnoticed");
  image.live().replace(kMap, labels.size(), labels);
  fuzz::require(image.isLive(kMap, kMap + QSegImageInfo::kStatsSize), "the labels are the file's");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::setInput(fuzz::textOf(data, size));
  tinyxml2::XMLDocument document;
  const bool loads = document.LoadFile(fuzz::kInputFile) == tinyxml2::XML_SUCCESS &&
                     document.FirstChild() != nullptr;
  SimulationInfo info = fuzz::readback();
  fuzz::Record image(sizeof(QSegImageInfo));
  const fuzz::Result result =
      fuzz::run(fuzz::kConversions | fuzz::kBounds, [&](Simulation& simulation) {
        simulation.SimulationForQsegImageData(&info, image.data(), 1, 0);
      });
  fuzz::require(result.claimsSuccess() == (loads && result.returned), "success means replayed");
  fuzz::require(loads || image.isLive(), "what can't be loaded replays nothing");
  if (loads && result.returned) checkLabels(document, image);
  constexpr std::size_t kNotRecorded = offsetof(QSegImageInfo, notRecorded);
  fuzz::require(image.isLive(kNotRecorded, kNotRecorded + 4), "only recorded members are replayed");
  fuzz::require(result.keptDocument != result.returned,
                "the document is kept when a conversion throws");
  return 0;
}
