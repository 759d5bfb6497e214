#include <simulation/records.h>

#include <cstring>
#include <sstream>

#include "bench/plain/files.h"
#include "bench/plain/plain.h"

namespace bench::plain {
namespace {

using tinyxml2::XMLDocument;
using tinyxml2::XMLElement;

/// Saves what `fill` makes of the root, or hands the loaded root to `take`.
template <typename Fill, typename Take>
void run(const Call& call, const std::string& path, const char* rootName, Fill fill, Take take) {
  XMLDocument document;
  if (isDump(call)) {
    fill(append(document, rootName));
    document.SaveFile(path.c_str());
  } else if (document.LoadFile(path.c_str()) == tinyxml2::XML_SUCCESS) {
    take(*document.FirstChildElement());
  }
}

const char* textOf(const XMLElement& root, const char* name) {
  return root.FirstChildElement(name)->GetText();
}

void read(const XMLElement& root, const char* name, std::int32_t& value) {
  value = std::stoi(textOf(root, name));
}

void read(const XMLElement& root, const char* name, std::uint32_t& value) {
  value = static_cast<std::uint32_t>(std::stoll(textOf(root, name)));
}

void read(const XMLElement& root, const char* name, float& value) {
  value = std::stof(textOf(root, name));
}

/// Records whose members all have an element: `each(record, visit)` names them.
template <typename Record, typename Each>
void flat(const Call& call, const std::string& path, const char* rootName, void* data, Each each) {
  auto& record = *static_cast<Record*>(data);
  run(
      call, path, rootName,
      [&](XMLElement& root) {
        each(record, [&](const char* name, auto& member) { append(root, name, member); });
      },
      [&](const XMLElement& root) {
        each(record, [&](const char* name, auto& member) { read(root, name, member); });
      });
}

template <typename Record, typename Each>
void zoawb(const Call& call, const char* tail, const char* rootName, void* data, Each each) {
  flat<Record>(call, requestFile(call, std::string("ZOAWB_") + tail, ".xml"), rootName, data, each);
}

template <typename Value>
Value& at(void* record, std::size_t offset) {
  return *reinterpret_cast<Value*>(static_cast<char*>(record) + offset);
}

void dumpExposure(XMLElement& root, const char* name, const AECExposure& exposure) {
  XMLElement& element = append(root, name);
  element.SetAttribute("ExposureTime", exposure.exposureTime);
  element.SetAttribute("Gain", exposure.gain);
  element.SetAttribute("Sensitivity", exposure.sensitivity);
}

void readExposure(const XMLElement& root, const char* name, AECExposure& exposure) {
  const XMLElement& element = *root.FirstChildElement(name);
  element.QueryUnsigned64Attribute("ExposureTime", &exposure.exposureTime);
  element.QueryFloatAttribute("Gain", &exposure.gain);
  element.QueryFloatAttribute("Sensitivity", &exposure.sensitivity);
}

}  // namespace

void exposureDecision(Call& call, void* data) {
  using Layout = AECOutputLayout;
  auto& lux = at<float>(data, Layout::luxIndex);
  auto& digital = at<float>(data, Layout::digitalGain);
  auto& drc = at<float>(data, Layout::drcGain);
  auto& dark = at<float>(data, Layout::drcGainDark);
  auto* const exposures = &at<AECExposure>(data, Layout::exposures);
  const std::string ev = "_ev[" + std::to_string(call.input) + "].xml";
  run(
      call, requestFile(call, "AE_AECData", ev.c_str()), "SimulationData",
      [&](XMLElement& root) {
        append(root, "LuxIndex", lux);
        append(root, "DigitalGain", digital);
        dumpExposure(root, "ExposureIndexShort", exposures[0]);
        dumpExposure(root, "ExposureIndexLong", exposures[1]);
        dumpExposure(root, "ExposureIndexSafe", exposures[2]);
        append(root, "DrcGain", drc);
        append(root, "DrcGainDark", dark);
      },
      [&](const XMLElement& root) {
        root.FirstChildElement("LuxIndex")->QueryFloatText(&lux);
        root.FirstChildElement("DigitalGain")->QueryFloatText(&digital);
        readExposure(root, "ExposureIndexShort", exposures[0]);
        readExposure(root, "ExposureIndexLong", exposures[1]);
        readExposure(root, "ExposureIndexSafe", exposures[2]);
        root.FirstChildElement("DrcGain")->QueryFloatText(&drc);
        root.FirstChildElement("DrcGainDark")->QueryFloatText(&dark);
      });
}

void exposureInfo(Call& call, void* data) {
  auto& info = *static_cast<AWBExposureInfo*>(data);
  run(
      call, requestFile(call, "AWB_AECData", ".xml"), "SimulationData",
      [&](XMLElement& root) {
        XMLElement& element = append(root, "AWBAlgoExposureInformation");
        element.SetAttribute("luxIndex", info.luxIndex);
        element.SetAttribute("AECSettled", info.AECSettled);
        element.SetAttribute("frameDuration", info.frameDuration);
        std::ostringstream matrix;
        for (const float value : info.BETemplateMatrix) matrix << value << " ";
        append(element, "BETemplateMatrix", matrix.str().c_str());
      },
      [&](const XMLElement& root) {
        const XMLElement& element = *root.FirstChildElement("AWBAlgoExposureInformation");
        element.QueryFloatAttribute("luxIndex", &info.luxIndex);
        const bool settled = element.BoolAttribute("AECSettled");
        std::memcpy(&info.AECSettled, &settled, 1);
        element.QueryUnsigned64Attribute("frameDuration", &info.frameDuration);
        std::istringstream matrix(textOf(element, "BETemplateMatrix"));
        for (float& value : info.BETemplateMatrix) matrix >> value;
      });
}

void extendedExposure(Call& call, void* data) {
  struct Values {
    float value[6];
  };
  flat<Values>(call, requestFile(call, "AWB_ExtExposure", ".xml"), "ExtExposure", data,
               [](Values& values, auto visit) {
                 visit("safeSensitivity", values.value[0]);
                 visit("longSensitivity", values.value[1]);
                 visit("shortSensitivity", values.value[2]);
                 visit("frameLuma", values.value[3]);
                 visit("ADRCGain", values.value[4]);
                 visit("brightnessValue", values.value[5]);
               });
}

void wideAlwaysOn(Call& call, void* data) {
  zoawb<ZOAWBWideAlwaysOnStatus>(call, "WideAlwaysOnStatus", "WideAlwaysOnStatus", data,
                                 [](auto& record, auto visit) { visit("status", record.status); });
}

void syncInfo(Call& call, void* data) {
  zoawb<ZOAWBSyncInfo>(call, "SyncInfo", "AWBsyncInfo", data,
                       [](auto& record, auto visit) { visit("syncinfo", record.syncinfo); });
}

void pureColor(Call& call, void* data) {
  zoawb<ZOAWBPureColorRes>(call, "PureColorRes", "PureColorRes", data,
                           [](auto& record, auto visit) {
                             visit("enabled", record.enabled);
                             visit("singlePureColorConfid", record.singlePureColorConfid);
                             visit("pureColorBackgrdFaceConfid", record.pureColorBackgrdFaceConfid);
                           });
}

void lightSource(Call& call, void* data) {
  zoawb<ZOAWBLightSrcClassify>(call, "LightSrcClassify", "LightSrcClassify", data,
                               [](auto& record, auto visit) {
                                 visit("enabled", record.enabled);
                                 visit("firstCTConfid", record.firstCTConfid);
                                 visit("secondCTConfid", record.secondCTConfid);
                                 visit("firstCTValue", record.firstCTValue);
                                 visit("secondCTValue", record.secondCTValue);
                                 visit("lightClassConfid", record.lightClassConfid);
                                 visit("lightClass", record.lightClass);
                               });
}

/// Read back once for each entry.
void calibration(Call& call, void* data) {
  const std::size_t count = isDump(call) ? 1 : static_cast<WBOTPCalibrationHead*>(data)->entries;
  const std::string path = requestFile(call, "AWB_OTPData", ".xml");
  auto* entry = &at<WBOTPCalibrationEntry>(data, sizeof(WBOTPCalibrationHead));
  for (std::size_t i = 0; i < count; ++i, ++entry) {
    flat<WBOTPCalibrationEntry>(call, path, "WBOTPData", entry, [](auto& record, auto visit) {
      visit("rOverG", record.rOverG);
      visit("bOverG", record.bOverG);
    });
  }
}

void spectralSensor(Call& call, void* data) {
  auto& info = *static_cast<SpectralSensorInfo*>(data);
  const auto head = [&info](auto visit) {
    visit("enabled", info.enabled);
    visit("cct", info.cct);
    visit("lux", info.lux);
    visit("irRatio1", info.irRatio1);
    visit("irRatio2", info.irRatio2);
    visit("irRatio3", info.irRatio3);
  };
  const auto tail = [&info](auto visit) {
    visit("x", info.x);
    visit("y", info.y);
    visit("als_gain", info.als_gain);
    visit("flickerFrequency", info.flickerFrequency);
    visit("atime", info.atime);
    visit("again_idx", info.again_idx);
    visit("sensorType", info.sensorType);
  };
  std::string path = requestFile(call, "ZOAWB_SpectralSensorInfo", ".xml");
  path = path.substr(0, path.rfind("_camId")) + ".xml";
  run(
      call, path, "SpectralSensorInfo",
      [&](XMLElement& root) {
        const auto dump = [&](const char* name, auto& member) { append(root, name, member); };
        head(dump);
        std::ostringstream channels;
        for (const float channel : info.channelDatas) channels << channel << " ";
        append(root, "channelDatas", channels.str().c_str());
        tail(dump);
      },
      [&](const XMLElement& root) {
        const auto take = [&](const char* name, auto& member) {
          if (static_cast<void*>(&member) != &info.flickerFrequency) {
            read(root, name, member);
            return;
          }
          std::uint32_t whole;
          read(root, name, whole);
          info.flickerFrequency = static_cast<float>(whole);
        };
        head(take);
        std::istringstream channels(textOf(root, "channelDatas"));
        for (float& channel : info.channelDatas) channels >> channel;
        tail(take);
      });
}

void orientation(Call& call, void* data) {
  flat<AcbDeviceOrientation>(
      call, namedFile(call, "ACB_acb_orientation", ".xml"), "ExtExposure", data,
      [](auto& record, auto visit) { visit("orientation", record.orientation); });
}

}  // namespace bench::plain
