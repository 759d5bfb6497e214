// Any file as each of the small records of the extended white balance, where
// texts that are no numbers throw, and as the calibration of the sensor.
#include "fuzz/support/plain_replay.h"

const char* const fuzz::kRecordFiles[] = {
    "simulation_ZOAWB_WideAlwaysOnStatus_camId[0].xml",
    "simulation_ZOAWB_SyncInfo_camId[0].xml",
    "simulation_ZOAWB_PureColorRes_camId[0].xml",
    "simulation_ZOAWB_LightSrcClassify_camId[0].xml",
    "simulation_AWB_OTPData_camId[0].xml",
    nullptr,
};

namespace {

using fuzz::PlainField;
using fuzz::replayFloat;
using fuzz::replayInt;

constexpr PlainField kWideAlwaysOnStatus[] = {{"status", 0, replayInt}};
constexpr PlainField kSyncInfo[] = {{"syncinfo", 0, replayInt}};
constexpr PlainField kPureColorRes[] = {
    {"enabled", 0, replayInt},
    {"singlePureColorConfid", 4, replayFloat},
    {"pureColorBackgrdFaceConfid", 8, replayFloat},
};
constexpr PlainField kLightSrcClassify[] = {
    {"enabled", 0, replayInt},          {"firstCTConfid", 4, replayFloat},
    {"secondCTConfid", 8, replayFloat}, {"firstCTValue", 12, replayFloat},
    {"secondCTValue", 16, replayFloat}, {"lightClassConfid", 20, replayFloat},
    {"lightClass", 24, replayInt},
};
constexpr PlainField kCalibration[] = {
    {"rOverG", offsetof(WBOTPCalibrationEntry, rOverG), fuzz::replayQueried},
    {"bOverG", offsetof(WBOTPCalibrationEntry, bOverG), fuzz::replayQueried},
};

/// The input as the parser alone has it.
struct Parsed {
  tinyxml2::XMLDocument document;
  const bool loads = document.LoadFile(fuzz::kInputFile) == tinyxml2::XML_SUCCESS;
  const tinyxml2::XMLElement* const root = loads ? document.FirstChildElement() : nullptr;
};

using Operation = void (Simulation::*)(SimulationInfo*, void*, unsigned int, unsigned int);

template <std::size_t Count>
void readFlat(const Parsed& parsed, Operation operation, const PlainField (&fields)[Count]) {
  SimulationInfo info = fuzz::readback();
  fuzz::Record record(4 * Count);
  const fuzz::Outcome due = fuzz::outcomeOf([&] {
    if (parsed.root != nullptr) fuzz::replayFields(*parsed.root, fields, record.live(), 0);
  });
  const fuzz::Result result = fuzz::run(
      due, [&](Simulation& simulation) { (simulation.*operation)(&info, record.data(), 1, 0); });
  fuzz::require(result.logged("read ") != parsed.loads, "a file that can't be loaded is logged");
  fuzz::require(record.isLive(), "the record is what the file makes of it");
  fuzz::require(result.keptDocument == (due != fuzz::Outcome::kReturned),
                "the document is kept when a conversion throws");
}

void readCalibration(const Parsed& parsed, std::uint32_t entries) {
  constexpr std::size_t kHead = sizeof(WBOTPCalibrationHead);
  constexpr std::size_t kEntry = sizeof(WBOTPCalibrationEntry);
  SimulationInfo info = fuzz::readback();
  fuzz::Record table(kHead + entries * kEntry);
  table.set(0, entries);
  for (std::size_t i = 0; parsed.root != nullptr && i < entries; ++i) {
    fuzz::replayFields(*parsed.root, kCalibration, table.live(), kHead + i * kEntry);
  }
  const fuzz::Result result = fuzz::run(fuzz::Outcome::kReturned, [&](Simulation& simulation) {
    simulation.SimulationForOTPCalibrationFactor(&info, table.data(), 1, 0);
  });
  fuzz::require(result.log.size() == (parsed.loads ? 0 : entries), "each failed load is logged");
  fuzz::require(table.isLive(), "every entry gets the file's gains, and nothing else");
  fuzz::require(!result.keptDocument, "the documents are released");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::setInput(fuzz::textOf(data, size));
  const Parsed parsed;
  readFlat(parsed, &Simulation::SimulationForZOAWBWideAlwaysOnStatus, kWideAlwaysOnStatus);
  readFlat(parsed, &Simulation::SimulationForZOAWBSyncInfo, kSyncInfo);
  readFlat(parsed, &Simulation::SimulationForZOAWBPureColorRes, kPureColorRes);
  readFlat(parsed, &Simulation::SimulationForZOAWBLightSrcClassify, kLightSrcClassify);
  readCalibration(parsed, size % 4);
  return 0;
}
