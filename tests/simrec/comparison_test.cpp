// What is told to differ between two files of one record, and which files are told to be that.
#include "simrec/comparison.h"

#include <fmt/format.h>

#include "simrec/json.h"
#include "simrec/verification.h"
#include "tests/simrec/temp_folder.h"

namespace {

using namespace simrec;

/// Everything that was found, in one line.
std::string textOf(const RecordDifference& difference) {
  std::string text = nameOf(difference.outcome);
  const auto number = [](const std::optional<Number>& value) {
    return value ? dump(toJson(*value)) : "-";
  };
  for (const auto& it : difference.members) {
    text +=
        fmt::format("; {} {} {} by {}", it.name, number(it.a), number(it.b), number(it.absolute));
    if (it.absolute) text += fmt::format(" {:.3g}", it.relative);
  }
  for (const auto& it : difference.lists) {
    text += fmt::format("; {} {}/{} [{},{}] max {} at {} rms {:.3g}", it.name, it.differing,
                        it.count(), it.first, it.last, number(it.maxAbsolute), it.maxAt, it.rms);
  }
  for (const auto& it : difference.labels) {
    text += fmt::format("; label {}>{} {}", it.from, it.to, it.count);
  }
  for (const auto& it : difference.bytes.ranges) text += fmt::format("; [{},{})", it.begin, it.end);
  for (const auto& it : difference.problemsOfA) text += "; a: " + it;
  for (const auto& it : difference.problemsOfB) text += "; b: " + it;
  return text;
}

struct Row {
  const char* file;
  std::string a, b;
  const char* due;
  Tolerance tolerance = {};
};

std::string exposure(const std::string& lux, const std::string& settled, const std::string& time,
                     const std::string& matrix = "1 2 3 4 ") {
  return "<SimulationData><AWBAlgoExposureInformation luxIndex=\"" + lux + "\" AECSettled=\"" +
         settled + "\" frameDuration=\"" + time + "\"><BETemplateMatrix>" + matrix +
         "</BETemplateMatrix></AWBAlgoExposureInformation></SimulationData>";
}

constexpr char kExposure[] = "simulation_AWB_AECData_camId[0].xml";
constexpr char kSync[] = "simulation_ZOAWB_SyncInfo_camId[0].xml";
constexpr char kQseg[] = "simulation_AWB_QsegImageData_camId[0].xml";
constexpr char kTuning[] = "simulation_AWB_TuningMode_camId[0].bin";
constexpr char kFloats[] = "simulation_AWB_ExtensionInfo_camId[0].bin";
constexpr char kBytes[] = "simulation_ACB_acb_camId[0].bin";

std::string floats(std::initializer_list<float> values) {
  return {reinterpret_cast<const char*>(values.begin()), values.size() * sizeof(float)};
}

std::string sync(const char* value) {
  return std::string("<AWBsyncInfo><syncinfo>") + value + "</syncinfo></AWBsyncInfo>";
}

const Row kRows[] = {
    // The same float in other words; other words around it.
    {kExposure, exposure("0.1", "1", "5"), exposure("0.10000000149", " 1", "5", "1 2  3 4"),
     "same"},
    {kExposure, exposure("8", "1", "5", "8 .5 1e2 -3 "),
     exposure("8.0", "+1", " 5 ", "8.0 0.50 100 -3.0 "), "same"},
    {kExposure, exposure("nan", "1", "5", "nan inf 0 1e-45 "),
     exposure("-NAN", "1", "5", "nan inf -0 1.4e-45 "), "same"},
    {kExposure,
     exposure("nan", "1", "5"),
     exposure("1", "1", "5"),
     "different; luxIndex \"nan\" 1 by \"nan\" nan",
     {1, 1e9}},
    {kExposure, exposure("8", "-2147483648", "18446744073709551615"),
     exposure("10", "2147483647", "0"),
     "different; luxIndex 8 10 by 2 0.2; "
     "AECSettled -2147483648 2147483647 by 4294967295 2; "
     "frameDuration 18446744073709551615 0 by 18446744073709551615 1"},
    // A flag is no quantity.
    {kExposure,
     exposure("0.3", "0", "100"),
     exposure("0.4", "1", "101"),
     "different; AECSettled 0 1 by 1 1",
     {0.02, 0.1}},
    {kExposure,
     exposure("0.3", "0", "100", "1 2 3 4 "),
     exposure("0.4", "0", "150", "1 2 3.5 4.25 "),
     "different; frameDuration 100 150 by 50 0.333; "
     "BETemplateMatrix 1/4 [2,2] max 0.5 at 2 rms 0.28",
     {0, 0.25}},
    {kExposure, exposure("1", "1", "5", "1 2 3 nan "), exposure("1", "1", "5", "1 2 4 4 "),
     "different; BETemplateMatrix 2/4 [2,3] max 1 at 2 rms nan"},
    {kExposure, exposure("1", "1", "5", "1 2 3 4 "), exposure("1", "1", "5", "1 3 "),
     "different; BETemplateMatrix 3/4 [1,3] max 1 at 1 rms 0.707; "
     "b: BETemplateMatrix: 2 numbers instead of 4"},
    {kExposure, exposure("1", "1", "5", "1 x 3 4 "), exposure("2", "1", "5"),
     "different; luxIndex 1 2 by 1 0.5; "
     "a: BETemplateMatrix: \"x\" is no number of this list (at number 1)"},
    // The same damage is the same; other damage is told.
    {kSync, "<AWBsync", "<AWBsync", "same"},
    {kSync, "", "", "same"},
    {kSync, sync("x"), sync("y"),
     "different; a: syncinfo: \"x\" is no number; b: syncinfo: \"y\" is no number"},
    {kSync, sync("1"), "<AWBsyncInfo><syncinfo>1</syncinfo>",
     "different; b: the XML is damaged (line 1)"},
    {kSync, sync("1"), "", "different; b: empty"},
    {kQseg, "<QSegImageInfo><qsegStatsInfo>1 1 1 1 2 </qsegStatsInfo></QSegImageInfo>",
     "<QSegImageInfo><qsegStatsInfo>1 2 2 5 2 </qsegStatsInfo></QSegImageInfo>", "*"},
    // Binary records: ranges, known members, floats.
    {kBytes, "abcdef", "abCDeF", "different; [2,4); [5,6)"},
    {kBytes, "abc", "abcd", "different; [3,4)"},
    {kBytes, "", "d", "different; [0,1); a: empty"},
    {kTuning,
     std::string(60, '\0'),
     std::string(16, '\0') + '\7' + std::string(43, '\0'),
     "different; sensorMode 0 7 by 7 1; [16,17)",
     {1, 100}},
    {kFloats, floats({1, 2, 3}), floats({1, 2, 4}),
     "different; values 1/3 [2,2] max 1 at 2 rms 0.577; [10,11)"},
    {kFloats, floats({1, 2, 3}), floats({1, 2, 4}), "same", {0.25, 0}},
    {kFloats, floats({0}), floats({-0.0F}), "same"},
    {kFloats,
     floats({1}) + "x",
     floats({1}) + "y",
     "different; [4,5); a: 1 byte behind the last number; b: 1 byte behind the last number",
     {1, 1}},
};

TEST(SimrecComparison, TellsWhatDiffers) {
  const TempFolder folder;
  for (const Row& row : kRows) {
    folder.write(std::string("a/") + row.file, row.a);
    folder.write(std::string("b/") + row.file, row.b);
    RecordPair pair;
    pair.a = File{row.file, catalogue::parseFileName(row.file)};
    pair.b = pair.a;
    const std::string found =
        textOf(compareRecords(folder.path() + "/a", folder.path() + "/b", pair, row.tolerance));
    if (row.due != std::string("*")) {
      EXPECT_EQ(found, row.due) << row.a << '\n' << row.b;
    } else {
      EXPECT_EQ(found.find("different; qsegStatsInfo 3/5 [1,3] max 4 at 3 rms 1.9; label 1>2 2; "
                           "label 1>5 1"),
                0)
          << found;
    }
  }
}

/// A member, a group and an item of an array that only one side has.
TEST(SimrecComparison, TellsWhatIsMissing) {
  const TempFolder folder;
  const std::string name = "simulation_AE_AECData_camId[0]_ev[-1].xml";
  folder.write("a/" + name,
               "<SimulationData><LuxIndex>1</LuxIndex><ExposureIndexLong "
               "ExposureTime=\"5\"/></SimulationData>");
  folder.write("b/" + name, "<SimulationData><DrcGain>2</DrcGain></SimulationData>");
  RecordPair pair;
  pair.a = pair.b = File{name, catalogue::parseFileName(name)};
  const auto difference = compareRecords(folder.path() + "/a", folder.path() + "/b", pair);
  EXPECT_EQ(textOf(difference).substr(0, 93),
            "different; LuxIndex 1 - by -; ExposureIndexLong.ExposureTime 5 - by -; DrcGain - "
            "2 by -; a: D");
}

/// For whoever waits for a large pair.
TEST(SimrecComparison, TellsHowFarItIs) {
  const TempFolder folder;
  for (const char* side : {"a/", "b/"})
    folder.write(side + std::string(kBytes), std::string(300'000, 'x'));
  RecordPair pair;
  pair.a = pair.b = File{kBytes, catalogue::parseFileName(kBytes)};
  std::uint64_t pieces = 0, told = 0;
  compareRecords(folder.path() + "/a", folder.path() + "/b", pair, {}, [&](std::uint64_t bytes) {
    ++pieces;
    told += bytes;
  });
  EXPECT_GT(pieces, 1U);
  EXPECT_EQ(told, 300'000U);
}

/// Lens shading is paired by text, step and order; everything else by its whole name.
TEST(SimrecComparison, PairsWhatStandsForTheSame) {
  const auto filesOf = [](std::initializer_list<const char*> names) {
    std::vector<File> files;
    for (const std::string name : names) {
      files.push_back({"simulation_" + name, catalogue::parseFileName("simulation_" + name)});
    }
    return files;
  };
  const auto a = filesOf({"LSC[x]_index[10]_ev[0].xml", "LSC[x]_index[9]_ev[0].xml",
                          "LSC[x]_index[1]_ev[1].xml", "AE_AECData_camId[0]_ev[0].xml"});
  const auto b = filesOf({"LSC[x]_index[11]_ev[0].xml", "LSC[x]_index[5]_ev[0].xml",
                          "LSC[x]_index[4]_ev[0].xml", "LSC[y]_index[1]_ev[1].xml",
                          "AE_AECData_camId[0]_ev[-1].xml", "AE_AECData_camId[0]_ev[0].xml",
                          "AE_AECData_camId[1]_ev[0].xml", "foreign.xml"});
  const auto shown = [](const File* file) {
    return file != nullptr ? file->name.substr(11, file->name.size() - 15) : "none";
  };
  std::string paired, answered;
  for (const RecordPair& pair : pairRecords(a, b)) {
    paired +=
        shown(pair.a ? &*pair.a : nullptr) + " = " + shown(pair.b ? &*pair.b : nullptr) + "\n";
  }
  EXPECT_EQ(paired,
            "none = AE_AECData_camId[0]_ev[-1]\n"
            "AE_AECData_camId[0]_ev[0] = AE_AECData_camId[0]_ev[0]\n"
            "none = AE_AECData_camId[1]_ev[0]\n"
            "LSC[x]_index[10]_ev[0] = LSC[x]_index[5]_ev[0]\n"
            "none = LSC[x]_index[11]_ev[0]\n"
            "LSC[x]_index[1]_ev[1] = none\n"
            "LSC[x]_index[9]_ev[0] = LSC[x]_index[4]_ev[0]\n"
            "none = LSC[y]_index[1]_ev[1]\n");
  const std::vector<const File*> answers = answering(a, b);
  for (std::size_t i = 0; i < a.size(); ++i)
    answered += shown(&a[i]) + " = " + shown(answers[i]) + "\n";
  EXPECT_EQ(answered,
            "LSC[x]_index[10]_ev[0] = LSC[x]_index[5]_ev[0]\n"
            "LSC[x]_index[9]_ev[0] = LSC[x]_index[4]_ev[0]\n"
            "LSC[x]_index[1]_ev[1] = none\n"
            "AE_AECData_camId[0]_ev[0] = AE_AECData_camId[0]_ev[0]\n");
}

}  // namespace
