// Makes the seeds of the fuzz targets: the library's own dumps of records with
// three kinds of content, and odd documents. `seeds FOLDER` fills FOLDER/[target]/, and
// FOLDER/big/[target]/ with files that are too big to be varied.
#include <private_data.h>
#include <simulation/records.h>
#include <simulation/simulation.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "catalogue/file_name.h"
#include "fuzz/support/list_seeds.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kBig = 100000;

/// Which target gets a file: the first row whose text is in the file's path.
struct Family {
  const char* text;
  const char* target;
};
constexpr Family kFamilies[] = {
    {"simulation_AE_", "ae"},
    {"ParsedAWBStatsOutput", "stats"},
    {"simulation_AWB_AECData", "awb_exposure"},
    {"ExtExposure", "awb_exposure"},
    {"QsegImageData", "qseg"},
    {"SpectralSensorInfo", "spectral"},
    {"OTPData", "zoawb"},
    {"simulation_LSC", "lsc"},
    {"simulation_ACB", "acb"},
    {".bin", "binary"},
    {"simulation_ZOAWB_", "zoawb"},
};

/// Texts, not dumped by themselves, for the target that reads numbers.
constexpr const char* kNumbers[] = {
    "1 22 333 65535 65536 18446744073709551615 18446744073709551616 -1",
    "1.5 -0.25 +3. .5 1e5 1e-40 3.4e38 1e39 -1e-50",
    "2147483647",
    "-2147483648",
    "9223372036854775807",
    "0x1f",
    "nan",
    "-inf",
    "1e",
    "1.2.3",
    " \t7x",
    "0.1000000014901161193847656",
    "8388608.5",
    "16777217",
    "1.17549435e-38 0.5000000298023224 0.5000000298023223",
};

/// Documents that no dump writes: what they hold throws or breaks a bound.
struct OddDocument {
  const char* target;
  const char* text;
};
constexpr OddDocument kOddDocuments[] = {
    {"lsc", "<a><LensShadingInfo><rGain>1 2 </rGain><b>3 x </b></LensShadingInfo></a>"},
    {"lsc", "<a><LensShadingInfo><rGain>1 1e39 </rGain></LensShadingInfo></a>"},
    {"spectral",
     "<a><channelDatas>1 2 3 4 5 6 7 8 9 10 1 2 3 4 5 6 7 8 9 20 21</channelDatas></a>"},
    {"spectral", "<a><lux>7</lux><als_gain>9223372036854775808</als_gain></a>"},
    {"spectral", "<a><lux>7</lux><cct/></a>"},
    {"zoawb", "<a><status>2147483648</status><syncinfo/><lightClass>x</lightClass></a>"},
    {"zoawb", "<a><enabled>7</enabled><singlePureColorConfid>1e-46</singlePureColorConfid></a>"},
    {"zoawb", "<a><rOverG>x</rOverG><bOverG>0x1p3</bOverG></a>"},
};

/// Bytes for the record that `variant` fills: zeros, ones as floats, noise.
std::vector<char> filled(std::size_t size, unsigned int variant) {
  std::vector<char> bytes(size);
  const char one[] = {0, 0, -128, 63};
  unsigned int noise = 1;
  for (std::size_t i = 0; i < size && variant > 0; ++i) {
    noise = noise * 1664525U + 1013904223U;
    bytes[i] = variant == 1 ? one[i % 4] : static_cast<char>(noise >> 24);
  }
  return bytes;
}

std::vector<char> statistics(unsigned int variant) {
  constexpr unsigned int kRegions[] = {0, 3, 40};
  std::vector<char> bytes = filled(sizeof(BayerGridOutput), variant);
  const unsigned int header[] = {variant, kRegions[variant], 8, 5};
  std::memcpy(bytes.data(), header, sizeof header);
  return bytes;
}

/// Every operation dumps once.
void dumpAll(unsigned int variant) {
  Simulation& to = *SimulationMgr::getInstance();
  const std::string folder = "IMG_" + std::to_string(variant);
  SimulationInfo info = {{}, folder.c_str(), 0};
  const unsigned int id = 10 + variant;
  std::vector<char> bytes = filled(sizeof(QSegImageInfo), variant);
  std::vector<char> stats = statistics(variant);
  void* const data = bytes.data();
  to.SimulationForAECData(&info, data, id, 0, &variant);
  to.SimulationForAWBParsedStatsOutput(&info, stats.data(), id, 0, "0");
  to.SimulationForAWBAECData(&info, data, id, 0);
  to.SimulationForAWBExtExposure(&info, data, id, 0);
  to.SimulationForQsegImageData(&info, data, id, 0);
  to.SimulationForZOAWBWideAlwaysOnStatus(&info, data, id, 0);
  to.SimulationForZOAWBSyncInfo(&info, data, id, 0);
  to.SimulationForZOAWBPureColorRes(&info, data, id, 0);
  to.SimulationForZOAWBLightSrcClassify(&info, data, id, 0);
  to.SimulationForOTPCalibrationFactor(&info, data, id, 0);
  to.SimulationForZoAWBSpectralSensorInfo(&info, data, id, 0);
  to.simulationForLscMeta(&info, data, nullptr, 0, "rear", 0);
  to.SimulationForACBdeviceOri(&info, data, id, 0);
  to.SimulationForAWBFaceROI(&info, data, id, 0);
  to.SimulationForAWBISPStatsConfig(&info, data, id, 0, "0");
  to.SimulationForAWBTuningMode(&info, data, id, 0);
  to.SimulationForAWBFrameControlData(&info, data, id, 0);
  to.SimulationForZOAWBFaceDectionInfo(&info, data, id, 0);
  to.SimulationForZOAWBFaceColorDectionInfo(&info, data, id, 0);
  to.SimulationForFDResult(&info, data, 1, data, 2, data, 3, data, 4, data, 5, data, 6, id, 0);
  AcbImage image = {{}, {data, {}, 40}, {data, {}, 20}};
  to.SimulationForACB(&info, &image, id, 0);
}

void write(const fs::path& path, const std::string& text) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

std::string contentOf(const fs::path& path) {
  return (std::ostringstream() << std::ifstream(path, std::ios::binary).rdbuf()).str();
}

/// `text` without what is between the first `begin` and the last `end`.
std::string without(std::string text, const char* begin, const char* end) {
  const std::size_t at = text.find(begin);
  return text.erase(at, text.rfind(end) - at);
}

/// `text` with `more` in front of the first `tag`.
std::string extended(std::string text, const char* tag, const char* more) {
  return text.insert(text.find(tag), more);
}

/// What stands among plain labels: most of it none, or joined to the one behind it.
constexpr const char* kOddLabels[] = {
    "",        "7",    "300 ",  " ",           "1000 ",
    "000128 ", "-1 ",  "+5 ",   "x",           "\t\n9\r\n ",
    "0x1F ",   "1.5 ", "12-3 ", "2147483648 ", "99999999999999999999 ",
};

/// The target that takes any record is told which one it is by the first byte.
void writeSimrecSeed(const fs::path& folder, const std::string& name, const char* file,
                     const std::string& text) {
  const auto parts = catalogue::parseFileName(file);
  const char kind = static_cast<char>(parts->kind - catalogue::kinds().begin());
  write(folder / "simrec" / name, kind + text);
}

/// Segmentations of nothing but labels, many enough to be taken a chunk at a time.
void writeLabels(const fs::path& folder) {
  const std::vector<char> noise = filled(3000, 2);
  for (std::size_t i = 0; i < std::size(kOddLabels); ++i) {
    const std::size_t count = 400 + i * 2600 / std::size(kOddLabels);
    std::string text = "<QSegImageInfo><qsegStatsInfo>";
    for (std::size_t label = 0; label < count; ++label) {
      if (label == count * 3 / 4) text += kOddLabels[i];
      text += std::to_string(static_cast<unsigned char>(noise[label])) + ' ';
    }
    write(folder / "qseg" / ("labels_" + std::to_string(i)),
          text + "</qsegStatsInfo></QSegImageInfo>");
  }
}

/// A dump of the segmentation, whole with more labels than fit, and with few labels
/// and one instance so that it is quickly varied, with more parts and instances.
void writeSegmentation(const fs::path& folder, const std::string& name, const std::string& text) {
  write(folder / "big/qseg" / name, text);
  write(folder / "big/qseg/label" / name, extended(text, "</qsegStatsInfo>", "7 "));
  const std::size_t labels = text.find("<qsegStatsInfo>") + std::strlen("<qsegStatsInfo>");
  const std::string few =
      text.substr(0, text.find(' ', labels + 100) + 1) + text.substr(text.find("</qsegStatsInfo>"));
  const std::string seed = without(few, "<qsegInstInfo>", "<qsegInstInfo>");
  write(folder / "qseg" / name, seed);
  writeSimrecSeed(folder, name, "simulation_AWB_QsegImageData_camId[0].xml", seed);
  write(folder / "document" / name, few);
  std::string instances;
  for (std::size_t i = 0; i < QSegImageInfo::kInstances; ++i) instances += "<a><ID>1</ID></a>";
  write(folder / "qseg" / ("instance_" + name),
        extended(seed, "</qsegInstInfos>", instances.c_str()));
  write(folder / "qseg" / ("part_" + name),
        extended(seed, "</partROIs>", "<partROI><top>1</top></partROI>"));
}

void writeSeed(const fs::path& folder, const fs::path& dump) {
  const std::string path = dump.string();
  const auto* family =
      std::find_if(std::begin(kFamilies), std::end(kFamilies),
                   [&](const Family& row) { return path.find(row.text) != std::string::npos; });
  const std::string name = dump.parent_path().filename().string() + "_" + dump.filename().string();
  const std::string text = contentOf(dump);
  if (text.size() > kBig) {
    writeSegmentation(folder, name, text);
    return;
  }
  write(folder / family->target / name, text);
  writeSimrecSeed(folder, name, dump.filename().c_str(), text);
  if (dump.extension() == ".xml") write(folder / "document" / name, text);
}

}  // namespace

/// One record's document stays allocated on purpose.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() { return "detect_leaks=0"; }

int main(int argc, char** argv) {
  setenv("persist.vendor.camera.simulation.loglevel", "7", 1);
  const std::string problem = simulation_host::useEmptyCameraData();
  if (argc != 2 || !problem.empty()) {
    std::fprintf(stderr, "usage: seeds FOLDER %s\n", problem.c_str());
    return 2;
  }
  const fs::path folder = argv[1];
  fs::remove_all(folder);
  for (unsigned int variant = 0; variant < 3; ++variant) dumpAll(variant);
  for (const auto& entry : fs::recursive_directory_iterator("/data/vendor/camera")) {
    if (entry.is_regular_file()) writeSeed(folder, entry.path());
  }
  writeLabels(folder);
  fuzz::writeListSeeds(folder);
  for (std::size_t i = 0; i < std::size(kOddDocuments); ++i) {
    write(folder / kOddDocuments[i].target / ("odd_" + std::to_string(i)), kOddDocuments[i].text);
  }
  for (std::size_t i = 0; i < std::size(kNumbers); ++i) {
    write(folder / "numbers" / std::to_string(i), kNumbers[i]);
  }
}
