#include "catalogue/kind.h"

#include "catalogue/members.h"

namespace catalogue {
namespace {

constexpr char kWhole[] = "whole record";
constexpr char kByValue[] = "value by value";
constexpr char kAsMuch[] = "as much of it as the file holds";

/// One XML row; binary ones below.
Kind xml(const char* name, const char* operation, const char* pattern, const char* root,
         const char* wrapper, const Members& members, const char* content, const char* readback) {
  return {name,    operation, pattern, Place::kRequest, false,   Format::kXml, root,
          wrapper, 0,         0,       members,         content, readback};
}

/// No bytes: the caller's size.
Kind binary(const char* name, const char* operation, const char* pattern, std::size_t bytes,
            const char* content, const char* readback) {
  return {
      name, operation, pattern, Place::kRequest, false, Format::kBinary, nullptr, nullptr, bytes,
      0,    {},        content, readback,        0,     bytes != 0};
}

Kind with(const Members& members, Kind kind) {
  kind.members = members;
  return kind;
}

Kind staged(Kind kind) {
  kind.staged = true;
  return kind;
}

Kind atMissing(Missing missing, Kind kind) {
  kind.missing = missing;
  return kind;
}

Kind liveHead(std::size_t bytes, Kind kind) {
  kind.liveHead = bytes;
  return kind;
}

Kind fromRequest(int first, Kind kind) {
  kind.firstRequest = first;
  return kind;
}

Kind named(Kind kind) {
  kind.place = Place::kNamed;
  return kind;
}

Kind firstStays(Kind kind) {
  kind.firstDumpWins = true;
  return kind;
}

}  // namespace

const Rows<Kind>& kinds() {
  static const Kind rows[] = {
      atMissing(Missing::kEnds,
                xml("AE_AECData", "SimulationForAECData", "AE_AECData_camId[{camera}]_ev[{ev}].xml",
                    "SimulationData", nullptr, kAecMembers, "exposure decision",
                    "up to the first missing element")),
      xml("AWB_AECData", "SimulationForAWBAECData", "AWB_AECData_camId[{camera}].xml",
          "SimulationData", "AWBAlgoExposureInformation", kAwbAecMembers, "exposure facts",
          kByValue),
      atMissing(
          Missing::kForbids,
          xml("AWB_ParsedAWBStatsOutput", "SimulationForAWBParsedStatsOutput",
              "AWB_ParsedAWBStatsOutput_{text}_camId[{camera}].xml", "SimulationData", "AWBBGStats",
              kBayerGridMembers, "Bayer-grid statistics", "all lists or nothing; regions only")),
      liveHead(
          8, binary("AWB_FaceROI", "SimulationForAWBFaceROI", "AWB_FaceROI_camId[{camera}].bin",
                    1784, "face regions of interest", "whole record; the first 8 bytes stay live")),
      binary("AWB_ISPAWBBGStatsConfig", "SimulationForAWBISPStatsConfig",
             "AWB_ISPAWBBGStatsConfig_{text}_camId[{camera}].bin", 144,
             "configuration of the Bayer-grid statistics", kWhole),
      with(
          kTuningModeMembers,
          binary("AWB_TuningMode", "SimulationForAWBTuningMode",
                 "AWB_TuningMode_camId[{camera}].bin", 60, "tuning mode",
                 "only onto the same sensor mode (16 bits at byte 16, 32 bits at byte 24); missing "
                 "bytes count as zeros")),
      with(kExtensionMembers,
           staged(binary("AWB_ExtensionInfo", "SimulationForAWBExtensionInfo",
                         "AWB_ExtensionInfo_camId[{camera}].bin", 0, "extension floats", kWhole))),
      binary("AWB_AWBFrameControlData", "SimulationForAWBFrameControlData",
             "AWB_AWBFrameControlData_camId[{camera}].bin", 888, "frame control", kWhole),
      binary("AWB_inputColorData", "SimulationForAWBinputColorData",
             "AWB_inputColorData_camId[{camera}].bin", 0, "input colour data", kAsMuch),
      binary("AWB_CVPTransformData", "SimulationForCVPTransformData",
             "AWB_CVPTransformData_camId[{camera}].bin", 0, "CVP transform", kAsMuch),
      fromRequest(10, xml("AWB_ExtExposure", "SimulationForAWBExtExposure",
                          "AWB_ExtExposure_camId[{camera}].xml", "ExtExposure", nullptr,
                          kExtExposureMembers, "extended exposure",
                          "value by value; requests 0 to 9 are left out")),
      firstStays(named(
          atMissing(Missing::kForbids,
                    xml("OfflineAWB_ParsedAWBStatsOutput", "SimulationForOfflineAWBBGStats",
                        "OfflineAWB_ParsedAWBStatsOutput_camId[{camera}].xml", "SimulationData",
                        "AWBBGStats", kBayerGridMembers, "Bayer-grid statistics, offline",
                        "all lists or nothing; regions only")))),
      firstStays(named(binary("OfflineAWB_ISPAWBBGStatsConfig", "SimulationForOfflineAWBBGStats",
                              "OfflineAWB_ISPAWBBGStatsConfig_camId[{camera}].bin", 144,
                              "configuration of the Bayer-grid statistics, offline", kWhole))),
      xml("AWB_QsegImageData", "SimulationForQsegImageData",
          "AWB_QsegImageData_camId[{camera}].xml", "QSegImageInfo", nullptr, kSegmentationMembers,
          "scene segmentation", kByValue),
      binary("ZOAWB_FaceDectionInfo", "SimulationForZOAWBFaceDectionInfo",
             "ZOAWB_FaceDectionInfo_camId[{camera}].bin", 964, "face detection", kWhole),
      binary("ZOAWB_FaceColorDectionInfo", "SimulationForZOAWBFaceColorDectionInfo",
             "ZOAWB_FaceColorDectionInfo_camId[{camera}].bin", 204, "face colour detection",
             kWhole),
      xml("ZOAWB_WideAlwaysOnStatus", "SimulationForZOAWBWideAlwaysOnStatus",
          "ZOAWB_WideAlwaysOnStatus_camId[{camera}].xml", "WideAlwaysOnStatus", nullptr,
          kWideAlwaysOnMembers, "status", kByValue),
      xml("ZOAWB_SyncInfo", "SimulationForZOAWBSyncInfo", "ZOAWB_SyncInfo_camId[{camera}].xml",
          "AWBsyncInfo", nullptr, kSyncMembers, "sync state", kByValue),
      xml("ZOAWB_PureColorRes", "SimulationForZOAWBPureColorRes",
          "ZOAWB_PureColorRes_camId[{camera}].xml", "PureColorRes", nullptr, kPureColorMembers,
          "pure-colour scene", kByValue),
      xml("ZOAWB_LightSrcClassify", "SimulationForZOAWBLightSrcClassify",
          "ZOAWB_LightSrcClassify_camId[{camera}].xml", "LightSrcClassify", nullptr,
          kLightSourceMembers, "light source", kByValue),
      xml("AWB_OTPData", "SimulationForOTPCalibrationFactor", "AWB_OTPData_camId[{camera}].xml",
          "WBOTPData", nullptr, kOtpMembers, "OTP gains of entry 0", "into every entry"),
      xml("ZOAWB_SpectralSensorInfo", "SimulationForZoAWBSpectralSensorInfo",
          "ZOAWB_SpectralSensorInfo.xml", "SpectralSensorInfo", nullptr, kSpectralMembers,
          "ambient light sensor", kByValue),
      firstStays(binary("FACE_FDResult", "SimulationForFDResult",
                        "FACE_FDResult_camId[{camera}].bin", 0, "face detection, six blocks",
                        "block by block")),
      firstStays(liveHead(
          8,
          binary("FACE_FaceROI", "SimulationForFDROIData", "FACE_FaceROI_camId[{camera}].bin", 1784,
                 "face regions of interest", "whole record; the first 8 bytes stay live"))),
      named(xml("LSC", "simulationForLscMeta", "LSC[{text}]_index[{index}]_ev[{ev}].xml",
                "SimulationData", "LensShadingInfo", kShadingMembers, "lens-shading gains",
                "channel by channel")),
      named(binary("ACB_acb", "SimulationForACB", "ACB_acb_camId[{camera}].bin", 0, "Y and C plane",
                   "as much as the file holds")),
      named(xml("ACB_acb_orientation", "SimulationForACBdeviceOri",
                "ACB_acb_orientation_camId[{camera}].xml", "ExtExposure", nullptr,
                kOrientationMembers, "device orientation", "the value")),
  };
  static const Rows<Kind> table = rows;
  return table;
}

const Kind* kindNamed(std::string_view name) {
  for (const Kind& kind : kinds()) {
    if (kind.name == name) return &kind;
  }
  return nullptr;
}

}  // namespace catalogue
