// The table of record kinds: names made and taken apart, kinds as people call them, and
// whether the library gives its files these names.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "catalogue/file_name.h"
#include "tests/support/all_records.h"

using catalogue::FileName;
using catalogue::Kind;

namespace {

bool isRecordName(const std::string& name) { return catalogue::parseFileName(name).has_value(); }

/// A name of the kind with all the parts that it has.
FileName partsOf(const Kind& kind, int number, const std::string& text) {
  FileName parts = {&kind};
  if (kind.hasCamera()) parts.camera = number;
  if (kind.has("{ev}")) parts.ev = number + 1;
  if (kind.has("{index}")) parts.index = number + 2;
  if (kind.has("{text}")) parts.text = text;
  return parts;
}

TEST(Catalogue, FileNamesAreMadeAndTakenApart) {
  EXPECT_EQ(catalogue::kinds().size(), 27U);
  std::set<std::string> names;
  for (const Kind& kind : catalogue::kinds()) {
    EXPECT_EQ(catalogue::kindNamed(kind.name), &kind);
    for (const char* text : {"preview", "", "a]_index[1]_ev[2", "_camId[7]", "\xff\n"}) {
      for (const int number : {0, -2147483647 - 1, 2147483645}) {
        const FileName made = partsOf(kind, number, text);
        const std::string name = catalogue::makeFileName(made);
        names.insert(name);
        const auto parts = catalogue::parseFileName(name);
        ASSERT_TRUE(parts) << name;
        EXPECT_EQ(parts->kind, &kind) << name;
        EXPECT_EQ(parts->camera, made.camera) << name;
        EXPECT_EQ(parts->ev, made.ev) << name;
        EXPECT_EQ(parts->index, made.index) << name;
        EXPECT_EQ(parts->text, made.text) << name;
      }
    }
  }
  // 22 kinds with a camera alone, auto exposure; 2 with a text, too; lens shading; the spectral
  // sensor.
  EXPECT_EQ(names.size(), 23U * 3 + 2 * 15 + 15 + 1);
}

TEST(Catalogue, NamesThatNoReadbackLooksForAreNone) {
  const std::pair<const char*, const char*> damages[] = {
      {"[1", "[01"}, {"[1", "[+1"},  {"[1", "[ 1"},       {"[1", "[-0"},    {"[1", "["},
      {"[1", "[1x"}, {"]", ")"},     {"[1", "[91474836"}, {".xml", ".bin"}, {".bin", ".xml"},
      {".", ".."},   {"_camId", ""}, {"simulation", ""},  {"imu", "IMU"},   {"_ev[", "ev["},
  };
  for (const Kind& kind : catalogue::kinds()) {
    const std::string name = catalogue::makeFileName(partsOf(kind, 100, "x"));
    EXPECT_FALSE(isRecordName(name + " ")) << name;
    EXPECT_FALSE(isRecordName(name.substr(0, name.size() - 1))) << name;
    EXPECT_FALSE(isRecordName(replaced(name, kind.name, ""))) << name;
    for (const auto& [whole, damaged] : damages) {
      const std::string other = replaced(name, whole, damaged);
      EXPECT_TRUE(other == name || !isRecordName(other)) << other;
    }
  }
  for (const char* name : {"simulation_AWB_ParsedAWBStatsOutput_camId[0].xml",
                           "simulation_LSC[x]_index[0].xml", "simulation_AE_AECData_camId[0].xml",
                           "simulation_ZOAWB_SpectralSensorInfo_camId[0].xml", "simulation_", ""}) {
    EXPECT_FALSE(isRecordName(name)) << name;
  }
}

TEST(Catalogue, RequestFoldersAreMadeAndTakenApart) {
  EXPECT_EQ(catalogue::makeRequestFolder({57, -1}), "RequestID[57]_camId[-1]");
  const auto parts = catalogue::parseRequestFolder("RequestID[57]_camId[-1]");
  ASSERT_TRUE(parts);
  EXPECT_EQ(parts->request, 57);
  EXPECT_EQ(parts->camera, -1);
  EXPECT_FALSE(catalogue::parseRequestFolder("RequestID[057]_camId[0]"));
  EXPECT_FALSE(catalogue::parseRequestFolder("RequestID[57]_camId[0]x"));
}

TEST(Catalogue, TheLibraryGivesItsFilesTheseNames) {
  for (const RecordOperation& record : kAllRecords) {
    const std::string name = std::string(catalogue::kRecordPrefix) + record.file;
    const auto parts = catalogue::parseFileName(name);
    ASSERT_TRUE(parts) << name;
    EXPECT_EQ(catalogue::makeFileName(*parts), name);
    const std::string prefix = record.name == std::string("LscMeta") ? "simulation" : "Simulation";
    EXPECT_EQ(parts->kind->operation, prefix + "For" + record.name);
    const bool named = record.dumped().find(kTmpFolder) == std::string::npos;
    EXPECT_EQ(parts->kind->place == catalogue::Place::kNamed, named) << name;
  }
}

std::string kindsLike(const char* form) {
  std::string names;
  for (const Kind* kind : catalogue::kindsLike(form)) {
    names += (names.empty() ? "" : " ") + std::string(kind->name);
  }
  return names;
}

TEST(Catalogue, KindsAreFoundAsPeopleCallThem) {
  const std::pair<const char*, const char*> forms[] = {
      {"AE_AECData", "AE_AECData"},
      {"AECData", "AE_AECData AWB_AECData"},
      {"QsegImageData", "AWB_QsegImageData"},
      {"qseg", "AWB_QsegImageData"},
      {"ACB_acb", "ACB_acb"},
      {"lsc", "LSC"},
      {"ParsedAWBStatsOutput", "AWB_ParsedAWBStatsOutput OfflineAWB_ParsedAWBStatsOutput"},
      {"FaceROI", "AWB_FaceROI FACE_FaceROI"},
      {"ZOAWB_*",
       "ZOAWB_FaceDectionInfo ZOAWB_FaceColorDectionInfo ZOAWB_WideAlwaysOnStatus ZOAWB_SyncInfo "
       "ZOAWB_PureColorRes ZOAWB_LightSrcClassify ZOAWB_SpectralSensorInfo"},
      {"AECDat?", "AE_AECData AWB_AECData"},
      {"Nothing", ""},
      {"Nothing*", ""},
  };
  for (const auto& [form, names] : forms) EXPECT_EQ(kindsLike(form), names) << form;
}

}  // namespace
