// What verify says of replays by the library itself: a capture that it dumped is staged, read back
// over other inputs and dumped again, with one thing gone wrong, or a member set, in each.
#include <fmt/format.h>
#include <simulation/records.h>

#include <filesystem>
#include <functional>
#include <set>

#include "simrec/derivation.h"
#include "simrec/error.h"
#include "simrec/selection.h"
#include "simrec/staging.h"
#include "simrec/verification.h"
#include "tests/simrec/edited.h"
#include "tests/support/all_records.h"

namespace {

namespace fs = std::filesystem;
using namespace simrec;
using catalogue::Format;
using catalogue::Kind;
using catalogue::Member;
using catalogue::Members;
using catalogue::Shape;

constexpr char kImage[] = "IMG_000072", kReplayed[] = "REPLAYED", kEdited[] = "IMG_edited";
constexpr unsigned int kRecorded = 1, kLive = 2;  // seeds of inputs

/// The memory of an operation in each of its calls for one request: lens shading has two.
using Calls = std::vector<std::string>;

Calls callsOf(const RecordOperation& record, unsigned int seed) {
  Calls calls = {record.memory(seed)};
  if (record.name == std::string("LscMeta")) calls.push_back(record.memory(seed + 10));
  return calls;
}

void runAll(const RecordOperation& record, std::uint32_t mode, Calls& calls, const char* folder) {
  Simulation::m_LscIndex.clear();
  for (std::string& data : calls) {
    try {
      record.run(mode, data.data(), kRequest, kCamId, folder);
    } catch (const std::logic_error&) {
      EXPECT_EQ(mode, 1U);  // what a readback throws, the caller takes
    }
  }
}

/// Dumps what is live as a capture of its own, where the end of a request would have put it.
void dump(const RecordOperation& record, Calls calls, const std::string& capture) {
  runAll(record, 0, calls, capture.c_str());
  fs::create_directories(kCamera + capture);
  if (!fs::exists(kCamera + kTmpFolder)) return;
  for (const auto& file : fs::directory_iterator(kCamera + kTmpFolder)) {
    fs::rename(file, kCamera + capture + "/" + file.path().filename().string());
  }
}

const RecordOperation& operationOf(const Kind& kind) {
  const std::string name = kind.operation;
  return recordNamed(name.substr(name.find("For") + 3));
}

struct Replays : testing::Test {
  Replays() {
    clearCameraData();
    for (const RecordOperation& record : kAllRecords) {
      dump(record, callsOf(record, kRecorded), kImage);
    }
  }

  std::vector<File> files(const std::string& capture = kImage) const {
    return Selection().of(filesOf(store.find(capture)));
  }

  void stageAll(const std::string& capture) const {
    stage(store, store.find(capture), placementsOf(files(capture), 0), Doing::kReally);
  }

  /// Replays what is staged for one operation; `lost`: its readback never came.
  static void replay(const RecordOperation& record, bool lost = false,
                     std::optional<Calls> live = {}) {
    Calls calls = live.value_or(callsOf(record, kLive));
    fs::remove_all(kCamera + kReplayed);  // of some files the first dump wins
    if (!lost) runAll(record, 1, calls, "NONE");
    dump(record, calls, kReplayed);
  }

  /// The record of that name.
  VerifiedRecord verified(const std::string& name, const std::string& capture = kImage,
                          const std::string& dump = kReplayed) const {
    const Capture ours = store.find(capture), theirs = store.find(dump);
    const std::vector<File> recorded = files(capture), dumped = filesOf(theirs);
    const std::vector<const File*> partners = answering(recorded, dumped);
    std::size_t at = 0;
    while (recorded.at(at).name != name) ++at;
    return verify(ours, recorded[at], theirs, partners[at]);
  }

  const Store store{"/data/vendor/camera"};
};

/// What was not fed, in one line.
std::string textOf(const VerifiedRecord& record) {
  std::string text = nameOf(record.fed);
  if (!record.why.empty()) text += ": " + record.why;
  for (const Unfed& member : record.members) text += "; " + member.name;
  for (const auto& [name, count] : record.more) text += fmt::format("; {} more of {}", count, name);
  for (const auto& [begin, end] : record.ranges) text += fmt::format("; [{},{})", begin, end);
  return text;
}

TEST_F(Replays, OfEveryRecordAreWhatTheCaptureHolds) {
  stageAll(kImage);
  std::set<const Kind*> kinds;
  for (const File& file : files()) {
    replay(operationOf(*file.parts->kind));
    EXPECT_EQ(textOf(verified(file.name)), "fed") << file.name;
    kinds.insert(file.parts->kind);
  }
  EXPECT_EQ(kinds.size(), catalogue::kinds().size());
}

/// The members that a replay must feed, without what is in them.
std::set<std::string> membersFed(const Kind& kind) {
  std::set<std::string> names;
  for (const Member& member : kind.members) {
    const bool live = member.replay == catalogue::Replay::kLive ||
                      member.replay == catalogue::Replay::kOnlyReplaced;
    if (!live && kind.format == Format::kXml) names.insert(member.name);
  }
  return names;
}

std::set<std::string> membersTold(const VerifiedRecord& record) {
  std::set<std::string> names;
  for (const Unfed& it : record.members)
    names.insert(it.name.substr(0, it.name.find_first_of("[.")));
  return names;
}

/// One staged file is gone or ends half way, or one record is not read back or not dumped: verify
/// names all that was to be fed, and bytes from the first that was not.
TEST_F(Replays, ThatLackOneRecordAreToldByItsMembers) {
  stageAll(kImage);
  for (const File& file : files()) {
    SCOPED_TRACE(file.name);
    const Kind& kind = *file.parts->kind;
    const RecordOperation& record = operationOf(kind);
    const std::string path = kCamera + file.name, bytes = readFile(path);
    const std::size_t half = bytes.size() / 2;
    const bool tuning = record.name == std::string("AWBTuningMode");  // zeros fill it up
    const struct {
      const char* name;
      std::function<void()> harm;
      bool lost = false;
      bool partly = false;
    } kHarms[] = {
        {"removed", [&] { fs::remove(path); }},
        {"cut short", [&] { fs::resize_file(path, half); }, false, !kind.staged || tuning},
        {"not replayed", [] {}, true},
    };
    for (const auto& [name, harm, lost, partly] : kHarms) {
      SCOPED_TRACE(name);
      harm();
      replay(record, lost);
      const VerifiedRecord told = verified(file.name);
      EXPECT_EQ(told.fed, Fed::kNo);
      EXPECT_EQ(membersTold(told), membersFed(kind));
      EXPECT_EQ(told.ranges.empty(), kind.format == Format::kXml);
      if (!told.ranges.empty()) {
        EXPECT_GE(told.ranges.front().first, partly ? half : kind.liveHead);
        EXPECT_LT(told.ranges.front().first, (partly ? half : kind.liveHead) + 20);
        EXPECT_GT(told.ranges.back().second, bytes.size() - 20);
      }
      writeFile(path, bytes);
    }
    for (const char* due : {"not fed: the dump is damaged: ", "missing"}) {
      for (const File& dumped : filesOf(store.find(kReplayed))) {
        const std::string dump = kCamera + kReplayed + "/" + dumped.name;
        if (dumped.parts->kind == &kind)
          due[0] == 'm' ? fs::remove(dump) : (writeFile(dump, ""), 0);
      }
      EXPECT_EQ(textOf(verified(file.name)).rfind(due, 0), 0U);
    }
  }
}

/// Of a binary record, one byte.
TEST_F(Replays, OfOneOtherByteAreToldByIt) {
  stageAll(kImage);
  for (const File& file : files()) {
    const Kind& kind = *file.parts->kind;
    if (kind.format == Format::kXml) continue;
    const std::string path = kCamera + file.name, bytes = readFile(path);
    for (const std::size_t at :
         {std::size_t{0}, std::size_t{9}, bytes.size() / 2, bytes.size() - 1}) {
      std::string changed = bytes;
      changed[at] ^= 0x40;
      writeFile(path, changed);
      replay(operationOf(kind));
      EXPECT_EQ(textOf(verified(file.name)),
                at < kind.liveHead ? "fed" : fmt::format("not fed; [{},{})", at, at + 1))
          << file.name;
    }
    writeFile(path, bytes);
    if (kind.bytes > 0) continue;  // else the live record may have been another one
    replay(operationOf(kind));
    fs::resize_file(kCamera + kReplayed + ("/" + file.name), bytes.size() / 2);
    EXPECT_EQ(textOf(verified(file.name)),
              fmt::format("fed: the dump has {} of {} bytes, and the rest can't be told",
                          bytes.size() / 2, bytes.size()));
  }
}

/// Paths of the numbers in `members`: of lists and arrays of the first and the last item.
void addPaths(const Members& members, const std::string& prefix, std::vector<std::string>& paths) {
  for (const Member& member : members) {
    const std::string path = prefix + "." + member.name;
    const std::size_t count = member.shape == Shape::kNumber || member.shape == Shape::kGroup ? 0
                              : member.count > 1000                                           ? 2
                                                    : member.count;
    std::vector<std::string> items = {path};
    if (count > 0) items = {path + "[0]", fmt::format("{}[{}]", path, count - 1)};
    for (const std::string& item : items) {
      member.members.empty() ? paths.push_back(item) : addPaths(member.members, item, paths);
    }
  }
}

/// set, stage, replay, verify: what was set is fed, and seen when it is not what was to be fed.
TEST_F(Replays, OfAnyMemberThatWasSetAreSeen) {
  const struct {
    const char *path, *value, *due;
  } kOdd[] = {
      // These tell how many regions follow and how, so others stay live.
      {"hasSatInfo", "0", "not fed; "},
      {"numROIs", "7", "not fed; "},
      {"AWB_ExtensionInfo.values[0]", "7", "not fed; [0,4)"},
      {"AWB_ExtensionInfo.values[1]", "7", "not fed; [4,8)"},
      {"usesY", "1", "fed"},
      {"AECSettled", "0", "not fed; AECSettled"},
      {"channelNum", "7", "fed"},  // no dump shows it
  };
  for (const File& file : files()) {
    const Kind& kind = *file.parts->kind;
    if (file.parts->index.value_or(0) > 0 || kind.name == std::string("AWB_TuningMode")) continue;
    std::vector<std::string> paths;
    addPaths(kind.members, kind.name, paths);
    for (std::size_t i = 0; i < paths.size(); i += SIMULATION_SLOW_TESTS ? 3 : 1) {
      const std::string& path = paths[i];
      SCOPED_TRACE(path);
      const std::string member = path.substr(path.find('.') + 1);
      const bool live = membersFed(kind).count(member.substr(0, member.find_first_of("[."))) == 0;
      std::string value = "7", due = live ? "fed" : "not fed; " + member;
      for (const auto& odd : kOdd) {
        if (path.find(odd.path) != path.npos) value = odd.value, due = odd.due;
      }
      fs::remove_all(kCamera + kEdited);
      derive(store, {store.find(kImage), kEdited, {parseAssignment(path + "=" + value)}, {}});
      stage(store, store.find(kEdited), placementsOf({file}, 0), Doing::kReally);
      replay(operationOf(kind));
      EXPECT_EQ(textOf(verified(file.name, kEdited)), "fed");
      const std::string told = textOf(verified(file.name));
      EXPECT_TRUE(due.back() == ' ' ? told.rfind(due, 0) == 0 : told == due) << told;
    }
  }
  // The record has 600 regions; gains have six decimals.
  const std::string regions = "AWB_ParsedAWBStatsOutput.";
  for (const std::string& beyond :
       {fmt::format("{}numROIs={}", regions, BayerGridOutput::kMaxRegions + 1),
        regions + "RSum[600]=1", std::string("LSC.rGain=4e-7"), std::string("LSC.rGain*=1e-9")}) {
    const Assignment change = parseAssignment(beyond);
    EXPECT_THROW(derive(store, {store.find(kImage), "more", {change}, {}}), Error) << beyond;
  }
}

/// Regions one by one and in pairs, of which the second lies where the next one does, and counts
/// of them, in the capture and in the live record.
TEST_F(Replays, OfRegionsAreSeenInEveryForm) {
  const auto formed = [](const RecordOperation& record, unsigned int seed, std::uint32_t flags,
                         std::uint32_t regions) {
    Calls calls = callsOf(record, seed);
    std::memcpy(calls[0].data(), &flags, sizeof flags);
    std::memcpy(&calls[0][offsetof(BayerGridOutput, numROIs)], &regions, sizeof regions);
    return calls;
  };
  const RecordOperation& record = recordNamed("AWBParsedStatsOutput");
  const std::string file = std::string("simulation_") + record.file;
  for (std::uint32_t flags = 0; flags < 16; ++flags) {
    for (const auto& [recorded, live] : {std::pair{600U, 600U}, {3U, 600U}, {600U, 3U}, {2U, 3U}}) {
      SCOPED_TRACE(testing::Message() << flags << ": " << recorded << " over " << live);
      dump(record, formed(record, kRecorded, flags & 3, recorded), kImage);
      stageAll(kImage);
      const Calls inputs = formed(record, kLive, flags >> 2, live);
      replay(record, false, inputs);
      EXPECT_EQ(textOf(verified(file)), "fed");
      replay(record, true, inputs);
      EXPECT_EQ(membersTold(verified(file)).count("RSum"), 1U);
    }
  }
}

/// Extended exposure in requests 0 to 9.
TEST_F(Replays, AreNotMissedWhereTheirRuleLeavesThemOut) {
  stageAll(kImage);
  const struct {
    unsigned int request;
    const char* due;
  } kRows[] = {{9, "not replayed: requests 0 to 9 are left out"}, {10, "fed"}};
  for (const auto& [request, due] : kRows) {
    for (const char* name : {"ZOAWBSyncInfo", "AWBExtExposure"}) {
      const RecordOperation& record = recordNamed(name);
      std::string live = record.memory(kLive);
      for (const std::uint32_t mode : {1U, 0U}) record.run(mode, live.data(), request);
      const std::string file = std::string("simulation_") + record.file,
                        dumped = fmt::format("{}/{}", request, kCamId);
      EXPECT_EQ(textOf(verified(file, kImage, dumped)), name[0] == 'A' ? due : "fed");
      if (request == 9) continue;
      fs::remove(store.find(dumped).path + "/" + file);
      EXPECT_EQ(textOf(verified(file, kImage, dumped)), "missing");
    }
  }
}

TEST_F(Replays, OfShadingAreInTheOrderOfTheCalls) {
  stageAll(kImage);
  const auto shading = [](int index) {
    return fmt::format("{}simulation_LSC[cam]_index[{}]_ev[-2].xml", kCamera, index);
  };
  fs::rename(shading(0), kCamera + "other");
  fs::rename(shading(1), shading(0));
  fs::rename(kCamera + "other", shading(1));
  replay(recordNamed("LscMeta"));
  for (const File& file : files()) {
    if (file.name.find("LSC") == file.name.npos) continue;
    EXPECT_EQ(verified(file.name).fed, Fed::kNo) << file.name;
  }
}

/// A capture that somebody has edited, or that is damaged: what a readback makes of it is due.
TEST_F(Replays, OfEditedFilesAreWhatAReadbackMakesOfThem) {
  const struct {
    const char *kind, *from, *to, *by;
    const char* due = "fed";
  } kRows[] = {
      // The same float in other words; digits that no file holds.
      {"AE_AECData", "<LuxIndex>", "<", "<LuxIndex> +8.0<"},
      {"AE_AECData", "<LuxIndex>", "<", "<LuxIndex>1023.00006<"},
      {"AWB_AECData", "<BETemplateMatrix>", "<", "<BETemplateMatrix>1.0 2e0 .3 0.12345678 <"},
      {"LSC", "<rGain>", " ", "<rGain>1.00000049 "},
      {"ZOAWB_LightSrcClassify", "<firstCTValue>", "<", "<firstCTValue>nan<"},
      // Members that are missing, or no numbers.
      {"AE_AECData", "<DrcGain>", "</DrcGain>", ""},
      {"AWB_AECData", " luxIndex=\"", "\"", ""},
      {"AWB_AECData", " luxIndex=\"", "\"", " luxIndex=\"bright\""},
      {"AWB_AECData", " AECSettled=\"", "\"", " AECSettled=\"256\""},
      {"AWB_ExtExposure", "<frameLuma>", "<", "<frameLuma>dark<"},
      {"AWB_ParsedAWBStatsOutput", "<GBCount>", "</GBCount>", "",
       "not fed: GBCount is missing: nothing of it is replayed"},
      {"AWB_ParsedAWBStatsOutput", "<RSum>", "<", "<RSum>1 2<"},
      {"AWB_QsegImageData", "<qsegInstInfo>", "</qsegInstInfos>", "</qsegInstInfos>"},
      {"AWB_QsegImageData", "<qsegStatsInfo>", "<", "<qsegStatsInfo>1 2 <"},
      {"ZOAWB_SpectralSensorInfo", "<channelDatas>", "<", "<channelDatas>1 2 nan 3 <"},
      {"ZOAWB_SpectralSensorInfo", "<flickerFrequency>", "<", "<flickerFrequency>-2.5<"},
      {"ZOAWB_SpectralSensorInfo", "<flickerFrequency>", "<", "<flickerFrequency>1e9<"},
      {"ZOAWB_SpectralSensorInfo", "<flickerFrequency>", "<", "<flickerFrequency>5000000000<"},
      {"ZOAWB_SpectralSensorInfo", "<flickerFrequency>", "<", "<flickerFrequency> +60.9 <"},
      {"ZOAWB_SpectralSensorInfo", "<flickerFrequency>", "<", "<flickerFrequency>nan<",
       "fed: flickerFrequency is no whole number: a readback throws, and the rest stays live"},
      {"ZOAWB_SpectralSensorInfo", "<x>", "</x>", "<channelNum>9</channelNum>"},
      {"AWB_OTPData", "<bOverG>", "</bOverG>", ""},
      {"AE_AECData", "", "", "<SimulationData",
       "not fed: nothing of it can be read: the XML is damaged (line 1)"},
      // Sizes that are not the record's.
      {"AWB_FaceROI", "", "", "short",
       "not fed: it is shorter than the live record, which stays as it is"},
      {"AWB_ExtensionInfo", "", "", "of eight",
       "not fed: it is shorter than the live record, which stays as it is"},
      {"AWB_TuningMode", "", "", "short", "not replayed: the live sensorMode was another one"},
      {"AWB_TuningMode", "", "20 bytes", "",
       "not replayed: the live secondModeWord was another one"},
      {"AWB_TuningMode", "", "40 bytes", ""},
      {"AWB_CVPTransformData", "", "", "short", "fed: the file has 5 of "},
      {"FACE_FDResult", "", "", "short", "fed: the file has 5 of "},
      {"ACB_acb", "", "", "short", "fed: the file has 5 of "},
      {"AWB_inputColorData", "", "", "", "not fed: nothing of it can be read: empty"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(std::string(row.kind) + ": " + row.from + " becomes " + row.by);
    const Kind& kind = *catalogue::kindNamed(row.kind);
    for (const File& file : files()) {
      if (file.parts->kind != &kind || file.parts->index.value_or(0) > 0) continue;
      const std::string path = kCamera + kImage + "/" + file.name, bytes = readFile(path);
      writeFile(path, edited(bytes, row.from, row.to, row.by));
      stageAll(kImage);
      replay(operationOf(kind));
      const std::string told = textOf(verified(file.name)), due = row.due;
      EXPECT_EQ(due.back() == ' ' ? told.substr(0, due.size()) : told, due) << told;
      writeFile(path, bytes);
    }
  }
}

/// The number that a text begins with is what a readback takes.
TEST_F(Replays, OfTextsThatGoOnBehindTheirNumberAreSeen) {
  const struct {
    const char *kind, *from, *to, *by;
  } kRows[] = {
      {"AE_AECData", "<LuxIndex>", "<", "<LuxIndex>300x<"},
      {"AE_AECData", "<LuxIndex>", "<", "<LuxIndex>3e2.5<"},
      {"AWB_AECData", " luxIndex=\"", "\"", " luxIndex=\"7 or so\""},
      {"AWB_AECData", " frameDuration=\"", "\"", " frameDuration=\"12.5\""},
      {"ZOAWB_SpectralSensorInfo", "<cct>", "<", "<cct>2800K<"},
      {"ZOAWB_SyncInfo", "<syncinfo>", "<", "<syncinfo>5;<"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.by);
    const RecordOperation& record = operationOf(*catalogue::kindNamed(row.kind));
    const std::string file = std::string("simulation_") + record.file,
                      path = kCamera + kImage + "/" + file;
    writeFile(path, edited(readFile(path), row.from, row.to, row.by));
    stageAll(kImage);
    replay(record);
    EXPECT_EQ(textOf(verified(file)), "fed");
    replay(record, true);
    const std::string by = row.by, told = textOf(verified(file));
    EXPECT_NE(told.find(by.substr(1, by.find_first_of(">=") - 1)), told.npos) << told;
  }
}

}  // namespace
