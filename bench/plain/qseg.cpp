#include <simulation/records.h>

#include <sstream>

#include "bench/plain/files.h"
#include "bench/plain/plain.h"

namespace bench::plain {
namespace {

using tinyxml2::XMLElement;

void dumpRectangle(XMLElement& parent, const QSegRect& rectangle) {
  append(parent, "left", rectangle.left);
  append(parent, "top", rectangle.top);
  append(parent, "width", rectangle.width);
  append(parent, "height", rectangle.height);
}

void dumpInstance(XMLElement& element, const QSegInstInfo& instance) {
  append(element, "requestId", instance.requestId);
  append(element, "ID", instance.ID);
  append(element, "nConf", instance.nConf);
  append(element, "nSegIdx", int{instance.nSegIdx});
  append(element, "eTrackStatus", int{instance.eTrackStatus});
  append(element, "eObjectType", int{instance.eObjectType});
  dumpRectangle(append(element, "roi"), instance.roi);
  XMLElement& parts = append(element, "partROIs");
  for (const QSegRect& part : instance.partROIs) dumpRectangle(append(parts, "partROI"), part);
}

void dump(const std::string& path, const QSegImageInfo& info) {
  tinyxml2::XMLDocument document;
  XMLElement& root = append(document, "QSegImageInfo");
  append(root, "requestId", info.requestId);
  append(root, "isQSegInfoValid", info.isQSegInfoValid);
  append(root, "horizontalRegionCount", info.horizontalRegionCount);
  append(root, "verticalRegionCount", info.verticalRegionCount);
  append(root, "qsegInstCount", int{info.qsegInstCount});
  append(root, "qsegSceneClass", int{info.qsegSceneClass});
  append(root, "qsegSceneClassConf", info.qsegSceneClassConf);
  std::ostringstream labels;
  for (const std::uint8_t label : info.qsegStatsInfo) labels << int{label} << " ";
  append(root, "qsegStatsInfo", labels.str().c_str());
  XMLElement& instances = append(root, "qsegInstInfos");
  for (const QSegInstInfo& instance : info.qsegInstInfos) {
    dumpInstance(append(instances, "qsegInstInfo"), instance);
  }
  dumpRectangle(append(root, "qsegCroppedWindowInfo"), info.qsegCroppedWindowInfo);
  document.SaveFile(path.c_str());
}

template <typename Value>
void read(const XMLElement& parent, const char* name, Value& value) {
  const XMLElement* element = parent.FirstChildElement(name);
  if (element != nullptr) value = static_cast<Value>(std::stoll(element->GetText()));
}

void readRectangle(const XMLElement* element, QSegRect& rectangle) {
  if (element == nullptr) return;
  read(*element, "left", rectangle.left);
  read(*element, "top", rectangle.top);
  read(*element, "width", rectangle.width);
  read(*element, "height", rectangle.height);
}

void readInstance(const XMLElement& element, QSegInstInfo& instance) {
  read(element, "requestId", instance.requestId);
  read(element, "ID", instance.ID);
  read(element, "nConf", instance.nConf);
  read(element, "nSegIdx", instance.nSegIdx);
  read(element, "eTrackStatus", instance.eTrackStatus);
  read(element, "eObjectType", instance.eObjectType);
  readRectangle(element.FirstChildElement("roi"), instance.roi);
  const XMLElement* part = element.FirstChildElement("partROIs")->FirstChildElement();
  for (QSegRect& rectangle : instance.partROIs) {
    readRectangle(part, rectangle);
    part = part->NextSiblingElement();
  }
}

void readLabels(const std::string& text, QSegImageInfo& info) {
  std::vector<int> labels;
  std::string token;
  for (const char character : text) {
    if (character != ' ') {
      token += character;
      continue;
    }
    labels.push_back(std::stoi(token));
    token.clear();
  }
  for (std::size_t i = 0; i < labels.size(); ++i) {
    info.qsegStatsInfo[i] = static_cast<std::uint8_t>(labels[i]);
  }
}

void readBack(const std::string& path, QSegImageInfo& info) {
  tinyxml2::XMLDocument document;
  document.LoadFile(path.c_str());
  const XMLElement& root = *document.FirstChildElement();
  read(root, "requestId", info.requestId);
  read(root, "isQSegInfoValid", info.isQSegInfoValid);
  read(root, "horizontalRegionCount", info.horizontalRegionCount);
  read(root, "verticalRegionCount", info.verticalRegionCount);
  read(root, "qsegInstCount", info.qsegInstCount);
  read(root, "qsegSceneClass", info.qsegSceneClass);
  info.qsegSceneClassConf = std::stof(root.FirstChildElement("qsegSceneClassConf")->GetText());
  readLabels(root.FirstChildElement("qsegStatsInfo")->GetText(), info);
  const XMLElement* element = root.FirstChildElement("qsegInstInfos")->FirstChildElement();
  for (QSegInstInfo& instance : info.qsegInstInfos) {
    readInstance(*element, instance);
    element = element->NextSiblingElement();
  }
  readRectangle(root.FirstChildElement("qsegCroppedWindowInfo"), info.qsegCroppedWindowInfo);
}

}  // namespace

void qseg(Call& call, void* data) {
  auto& info = *static_cast<QSegImageInfo*>(data);
  const std::string path = requestFile(call, "AWB_QsegImageData", ".xml");
  isDump(call) ? dump(path, info) : readBack(path, info);
}

}  // namespace bench::plain
