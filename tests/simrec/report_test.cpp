// What a page of pictures says: its numbers, its structure, and that nothing in a capture is
// markup.
#include <fcntl.h>
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <png.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <regex>
#include <set>

#include "simrec/error.h"
#include "simrec/new_file.h"
#include "simrec/report/axes.h"
#include "simrec/report/bayer_grid.h"
#include "simrec/report/encoding.h"
#include "simrec/report/label_map.h"
#include "simrec/report/lens_shading.h"
#include "simrec/report/overview_view.h"
#include "simrec/report/plane.h"
#include "simrec/report/report.h"
#include "tests/simrec/temp_folder.h"

namespace {

namespace fs = std::filesystem;
using namespace simrec;
using namespace simrec::report;

std::string numbers(std::size_t count, const std::function<double(std::size_t)>& at) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += fmt::format("{} ", at(i));
  return text;
}

std::string element(const std::string& name, const std::string& text) {
  return "<" + name + ">" + text + "</" + name + ">";
}

/// Four regions in a row of three and one row, or as the header says; the last one counted nothing.
std::string gridXml(const std::string& shape, bool saturation = false) {
  std::string lists;
  const auto add = [&](const char* channel, const char* sums, const char* counts) {
    lists += element(channel + std::string("Sum"), sums) +
             element(channel + std::string("Count"), counts);
  };
  add("R", "100 200 300 0 ", "10 10 10 0 ");
  add("B", "50 50 50 0 ", "10 10 5 0 ");
  add("GRorG", "100 100 100 0 ", "10 10 10 0 ");
  add("GB", "300 100 100 0 ", "10 10 10 0 ");
  add("Y", "18446744073709551615 1 1 1 ", "1 1 1 1 ");
  return fmt::format(
      R"(<SimulationData><AWBBGStats usesY="1" hasSatInfo="{}" numROIs="4" {} BLStretchFactor="1" )"
      R"(channelGainThreshold="1 2 3 4 ">{}</AWBBGStats></SimulationData>)",
      saturation ? 1 : 0, shape, lists);
}

constexpr char kSquare[] = R"(horizontal_num="2" vertical_num="2")";

std::string shadingXml() {
  const auto bowl = [](std::size_t i) {
    const double x = (static_cast<double>(i % 17) - 8) / 8,
                 y = (static_cast<double>(i / 17) - 6) / 6;
    return 1 + (x * x + y * y) * 0.75;
  };
  std::string gains;
  for (const char* const name : {"rGain", "grGain", "gbGain", "bGain"}) {
    gains += element(name, numbers(13 * 17, bowl));
  }
  return R"(<SimulationData><LensShadingInfo width="17" height="13">)" + gains +
         "</LensShadingInfo></SimulationData>";
}

Record recordIn(const TempFolder& folder, const std::string& name, const std::string& content) {
  folder.write(name, content);
  File file;
  file.name = name;
  file.parts = catalogue::parseFileName(name);
  return readRecord(folder.path(), file);
}

constexpr char kGridFile[] = "simulation_AWB_ParsedAWBStatsOutput_p_camId[0].xml";
constexpr char kShadingFile[] = "simulation_LSC[p]_index[0]_ev[0].xml";

TEST(ReportGrid, RatiosAreThoseOfMeansAndNoneWhereNothingWasCounted) {
  const TempFolder folder;
  const BayerGrid grid = bayerGridOf(recordIn(folder, kGridFile, gridXml(kSquare, true)).values);
  EXPECT_EQ(grid.columns, 2U);
  ASSERT_EQ(grid.redness.values.size(), 4U);
  EXPECT_DOUBLE_EQ(grid.redness.values[0], 0.5);  // 10 over the mean of both greens, 20
  EXPECT_DOUBLE_EQ(grid.redness.values[2], 3);
  EXPECT_DOUBLE_EQ(grid.blueness.values[2], 1);
  EXPECT_TRUE(std::isnan(grid.redness.values[3]));
  EXPECT_DOUBLE_EQ(grid.level.values[0], 550.0 / 40);
  EXPECT_DOUBLE_EQ(grid.meanRedness, 20 / (800.0 / 60));
  EXPECT_DOUBLE_EQ(grid.left.values[2], 1 - 35.0 / 40);
}

TEST(ReportGrid, ADamagedListHasNoValuesRatherThanZeros) {
  const TempFolder folder;
  std::string damaged = gridXml(kSquare);
  damaged.replace(damaged.find("100 200 300 0"), 13, "nan");
  const BayerGrid grid = bayerGridOf(recordIn(folder, kGridFile, damaged).values);
  EXPECT_EQ(extremesOf(grid.redness.values).count, 0U);
  EXPECT_EQ(extremesOf(grid.level.values).count, 0U);
  EXPECT_EQ(extremesOf(grid.blueness.values).count, 3U);
  EXPECT_TRUE(std::isnan(grid.meanRedness));
  EXPECT_DOUBLE_EQ(grid.meanBlueness, (150 / 25.0) / (800.0 / 60));
}

TEST(ReportGrid, AShapeThatDoesNotFitGivesNoMap) {
  const TempFolder folder;
  for (const char* const shape :
       {R"(horizontal_num="3" vertical_num="1")", R"(horizontal_num="0" vertical_num="4")",
        R"(horizontal_num="4294967295" vertical_num="2")", ""}) {
    Ids ids;
    const Record record = recordIn(folder, kGridFile, gridXml(shape));
    const Json view = viewOf(record, {}, ids);
    for (const Json& figure : view["figures"]) EXPECT_EQ(figure["png"], false) << shape;
    EXPECT_NE(view["viewFacts"].get<std::string>().find("no maps"), std::string::npos);
  }
}

TEST(ReportShading, FallOffIsWhatTheCornersLose) {
  const TempFolder folder;
  const auto channels = shadingOf(recordIn(folder, kShadingFile, shadingXml()).values);
  ASSERT_EQ(channels.size(), 4U);
  EXPECT_DOUBLE_EQ(channels[0].center, 1);
  EXPECT_DOUBLE_EQ(channels[3].meanCorner(), 2.5);
  EXPECT_DOUBLE_EQ(channels[3].lost(), 0.6);
  ASSERT_EQ(channels[0].diagonal.size(), 17U);
  EXPECT_DOUBLE_EQ(channels[0].diagonal[0], 2.5);
  EXPECT_DOUBLE_EQ(channels[0].diagonal[8], 1);
}

TEST(ReportShading, AWildGainSpoilsNoOtherChannel) {
  const TempFolder folder;
  for (const char* const wild : {"1e38", "nan"}) {
    Ids ids;
    std::string xml = shadingXml();
    xml.replace(xml.find("<rGain>2.5 "), 11, fmt::format("<rGain>{} ", wild));
    const Json view = viewOf(recordIn(folder, kShadingFile, xml), {}, ids);
    EXPECT_EQ(view["figures"][1]["scale"]["high"], "2.5") << wild;
    EXPECT_EQ(view["chart"]["chartHigh"], "2.5") << wild;
    EXPECT_EQ(view.dump().find("nan %"), std::string::npos);
  }
}

/// "0 50 100"
std::string textsOf(const std::vector<Tick>& ticks) {
  std::string texts;
  for (const Tick& tick : ticks) texts += (texts.empty() ? "" : " ") + tick.text;
  return texts;
}

TEST(ReportAxes, TicksAreRoundAndWithinTheRange) {
  const std::pair<report::Range, const char*> cases[] = {
      {{0, 100}, "0 20 40 60 80 100"},
      {{0.0058, 6.386}, "2 4 6"},
      {{1, 1.335}, "1 1.1 1.2 1.3"},
      {{-0.3, 0.25}, "-0.2 0 0.2"},
      {{0, 22010}, "0 5 k 10 k 15 k 20 k"},
      {{1000000, 1000007}, "1 M 1.000002 M 1.000004 M 1.000006 M"},
      {{1e-40, 3e-40}, "1e-40 1.5e-40 2e-40 2.5e-40 3e-40"},
      {{-1e38, 1e38}, "-1e+38 -5e+37 0 5e+37 1e+38"},
  };
  for (const auto& [range, texts] : cases) {
    const std::vector<Tick> ticks = roundTicks(range);
    EXPECT_EQ(textsOf(ticks), texts);
    for (const Tick& tick : ticks) EXPECT_TRUE(tick.value >= range.low && tick.value <= range.high);
  }
}

/// The bytes behind base64.
std::string bytesOf(const std::string& text) {
  std::string bytes;
  std::uint32_t bits = 0;
  int count = 0;
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  for (const char digit : text.substr(0, text.find('='))) {
    bits = bits << 6 | static_cast<std::uint32_t>(kDigits.find(digit));
    count += 6;
    if (count >= 8) bytes += static_cast<char>(bits >> (count -= 8));
  }
  return bytes;
}

/// What a page has packed, unpacked.
std::string unpacked(const std::string& text) {
  const std::string bytes = bytesOf(text);
  std::string out(1 << 20, '\0');
  uLongf size = out.size();
  EXPECT_EQ(uncompress(reinterpret_cast<Bytef*>(out.data()), &size,
                       reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()),
            Z_OK);
  return out.substr(0, size);
}

TEST(ReportShading, LinesThatCoincideHaveNamesAndSignsOfTheirOwn) {
  const TempFolder folder;
  Ids ids;
  const Json view = viewOf(recordIn(folder, kShadingFile, shadingXml()), {}, ids);
  const Json& chart = view["chart"];
  ASSERT_EQ(chart["lines"].size(), 4U);
  std::set<double> places;
  std::set<std::string> signs;
  for (const Json& line : chart["lines"]) {
    places.insert(line["nameDown"].get<double>());
    signs.insert(line["signs"].get<std::string>().substr(0, 6));
  }
  EXPECT_EQ(chart["chartLists"], "distance R Gr Gb B");
  const std::string lists = unpacked(view["dataSets"][0]["data"].get<std::string>());
  EXPECT_NE(lists.find("distance\t1,0.875,0.75,"), std::string::npos);
  EXPECT_EQ(places, (std::set<double>{0, 13, 26, 39}));
  EXPECT_EQ(signs.size(), 4U);
}

/// The picture as red, green and blue of each pixel.
std::vector<Color> pixelsOf(const std::string& png, std::size_t width, std::size_t height) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  EXPECT_NE(png_image_begin_read_from_memory(&image, png.data(), png.size()), 0) << image.message;
  EXPECT_EQ(image.width, width);
  EXPECT_EQ(image.height, height);
  image.format = PNG_FORMAT_RGB;
  std::vector<Color> pixels(width * height);
  EXPECT_NE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr), 0) << image.message;
  return pixels;
}

TEST(ReportPictures, RatiosAreOnALogarithmicScale) {
  const Field field = {5, 1, {0.25, 1, 4, -1, std::nan("")}};
  Ids ids;
  Map map = {"R/G", "", "", ""};
  map.isRatio = true;
  map.range = report::Range{0.25, 4};
  const Json shown = figure(map, field, Numbers(ids));
  EXPECT_EQ(shown["scale"]["middle"], "1 (log)");
  const Palette& palette = sequentialPalette();
  const Color wanted[] = {palette[0], palette[128], palette[255], palette[0], kNoValue};
  const auto pixels = pixelsOf(bytesOf(shown["png"].get<std::string>()), 5, 1);
  EXPECT_TRUE(std::equal(pixels.begin(), pixels.end(), std::begin(wanted)));
  EXPECT_EQ(shown["scale"]["low"], "\xE2\x89\xA4 0.25");
  map.range = report::Range{-0.99999, 3.99999};
  const Json ends = figure(map, field, Numbers(ids))["scale"];
  EXPECT_EQ(ends["low"], "-1");  // which is the lowest as it reads
  EXPECT_EQ(ends["high"], "4");
  map.range = report::Range{0, 4};  // has no logarithm
  EXPECT_EQ(figure(map, field, Numbers(ids))["scale"]["middle"], "2");
}

TEST(ReportPictures, ColoursRunFromOneEndToTheOther) {
  const Field field = {3, 2, {0, 5, 10, -7, 99, std::nan("")}};
  const auto pixels = pixelsOf(pngOf(field, {0, 10}, sequentialPalette()), 3, 2);
  const Palette& palette = sequentialPalette();
  const Color wanted[] = {palette[0], palette[128], palette[255],
                          palette[0], palette[255], kNoValue};
  EXPECT_TRUE(std::equal(pixels.begin(), pixels.end(), std::begin(wanted)));
  EXPECT_TRUE((palette[0] == Color{0x44, 0x01, 0x54}) && (palette[255] == Color{0xfd, 0xe7, 0x25}));
}

TEST(ReportPictures, EachLabelHasAColourOfItsOwn) {
  std::set<std::string> colors;
  for (const Color color : labelPalette()) colors.insert(hexOf(color));
  EXPECT_EQ(colors.size(), 256U);
}

TEST(ReportPictures, ThePlanesWidthIsFound) {
  for (const auto& [width, height] : {std::pair<std::size_t, std::size_t>{48, 36}, {64, 20}}) {
    std::string bytes;
    for (std::size_t i = 0; i < width * height; ++i) {
      bytes += static_cast<char>((i % width) * 5 + (i / width) % 3);
    }
    bytes.append(width * height / 2, '\x55');
    const Plane plane = planeOf(bytes, 0);
    EXPECT_EQ(plane.width, width);
    EXPECT_EQ(plane.height, height);
    EXPECT_EQ(planeOf(bytes, 24).height, width * height / 24);
  }
  EXPECT_EQ(planeOf("x", 0).width, 0U);
  EXPECT_EQ(planeOf("abc", 100).width, 0U);
}

TEST(ReportNumbers, ListsArePackedAsShowHasThem) {
  const TempFolder folder;
  Ids ids;
  const Json view = viewOf(recordIn(folder, kGridFile, gridXml(kSquare)), {}, ids);
  const std::string text = unpacked(view["dataSets"][0]["data"].get<std::string>());
  EXPECT_NE(text.find("YSum\t18446744073709551615,1,1,1\n"), std::string::npos);
  EXPECT_NE(text.find("R/G\t0.5,2,3,none\n"), std::string::npos) << text;
  EXPECT_NE(view["figures"][1]["summary"].get<std::string>().find(
                "Highest 3 at column 0, row 1 (number 2)"),
            std::string::npos);
}

std::string rectangle(int left, int width) {
  return element("left", std::to_string(left)) + element("top", "1") +
         element("width", std::to_string(width)) + element("height", "2");
}

/// Eight labels in a map that should be `columns` wide; three instances of which two are valid.
std::string labelXml(int columns) {
  std::string instances;
  for (int i = 0; i < 3; ++i) {
    const std::string parts =
        element("partROI", rectangle(i, 0)) + element("partROI", rectangle(i, 1));
    instances +=
        element("qsegInstInfo", element("ID", std::to_string(40 + i)) +
                                    element("roi", rectangle(i, 3)) + element("partROIs", parts));
  }
  return element(
      "QSegImageInfo",
      element("isQSegInfoValid", "0") + element("horizontalRegionCount", std::to_string(columns)) +
          element("verticalRegionCount", "2") + element("qsegInstCount", "2") +
          element("qsegStatsInfo", "3 3 0 0 0 0 255 0 ") + element("qsegInstInfos", instances));
}

TEST(ReportSegmentation, SharesAreOfAllLabelsAndFramesOfValidInstances) {
  const TempFolder folder;
  Ids ids;
  const std::string name = "simulation_AWB_QsegImageData_camId[0].xml";
  const Json view = viewOf(recordIn(folder, name, labelXml(4)), {}, ids);
  EXPECT_EQ(view["viewFacts"], "4 x 2 labels; the segmentation is not valid.");
  const Json& shares = view["tables"][0]["tableRows"];
  ASSERT_EQ(shares.size(), 3U);
  EXPECT_EQ(shares[1]["rowName"], "Label 3");
  EXPECT_EQ(shares[1]["cells"][0]["cellText"], "25.00 %");
  EXPECT_EQ(shares[1]["swatch"], hexOf(labelPalette()[3]));
  const Json& overlay = view["figures"][0]["overlay"];
  EXPECT_EQ(overlay["rectangles"].size(), 2U);
  EXPECT_EQ(overlay["rectangles"][1]["left"], 1);
  EXPECT_EQ(overlay["parts"].size(), 2U);  // the others have no area
  EXPECT_EQ(view["tables"][1]["tableRows"][1]["cells"][0]["cellText"], "41");
  const Json other = viewOf(recordIn(folder, name, labelXml(3)), {}, ids);
  EXPECT_EQ(other["figures"][0]["overlay"], false);  // nobody knows where frames would lie
  EXPECT_NE(other["viewFacts"].get<std::string>().find("8 x 1 labels (as many as"),
            std::string::npos);
  EXPECT_EQ(other["tables"][0]["caption"], "Share of each label");
}

TEST(ReportSegmentation, SharesOfAShortListAreOfTheFrame) {
  const TempFolder folder;
  Ids ids;
  const Json view =
      viewOf(recordIn(folder, "simulation_AWB_QsegImageData_camId[0].xml", labelXml(8)), {}, ids);
  EXPECT_EQ(view["tables"][0]["tableRows"][1]["cells"][0]["cellText"], "12.50 %");
  EXPECT_EQ(view["figures"][0]["summary"],
            "3 labels; the most frequent one is 0 with 31.2 % of the frame; 8 of 16 places have no "
            "label.");
}

TEST(ReportSegmentation, NamesOfInstancesDoNotTouch) {
  const TempFolder folder;
  Ids ids;
  std::string xml = labelXml(4);
  xml.replace(xml.find("<left>1</left>"), 14, "<left>0</left>");
  const Json names = viewOf(recordIn(folder, "simulation_AWB_QsegImageData_camId[0].xml", xml), {},
                            ids)["figures"][0]["overlay"]["names"];
  const auto acrossOf = [&](int i) { return std::stod(names[i]["nameAcross"].get<std::string>()); };
  const double wide = 0.034 * 4;
  EXPECT_GE(acrossOf(1) - acrossOf(0), 1.2 * wide - 0.05);
}

TEST(ReportSpectral, BarsStandOnZero) {
  const TempFolder folder;
  Ids ids;
  const Json view =
      viewOf(recordIn(folder, "simulation_ZOAWB_SpectralSensorInfo.xml",
                      element("SpectralSensorInfo", element("channelDatas", "30 -10 nan 0.1 "))),
             {}, ids);
  const Json& bars = view["bars"]["barItems"];
  ASSERT_EQ(bars.size(), 4U);
  EXPECT_EQ(bars[0]["barTop"], "0.0");
  EXPECT_EQ(bars[0]["barHeight"], "135.0");
  EXPECT_EQ(bars[1]["barTop"], "135.0");
  EXPECT_EQ(bars[1]["barHeight"], "45.0");
  EXPECT_EQ(bars[2]["barHeight"], "0.0");
  EXPECT_EQ(view["tables"][0]["tableRows"][0]["cells"][3]["cellText"], "0.1");
  const Json above =
      viewOf(recordIn(folder, "simulation_ZOAWB_SpectralSensorInfo.xml",
                      element("SpectralSensorInfo", element("channelDatas", "40 10 "))),
             {}, ids);
  EXPECT_EQ(above["bars"]["barItems"][1]["barHeight"], "45.0");
}

/// A page of these captures, or of the whole data folder.
std::string pageOf(const TempFolder& data, const std::vector<std::string>& names = {},
                   const std::vector<std::string>& compared = {}) {
  Request request = {Store(data.path()), {}};
  for (const std::string& name : names) request.captures.push_back(request.store.find(name));
  if (!compared.empty()) {
    request.compared = {request.store.find(compared[0]), request.store.find(compared[1])};
  }
  std::string page;
  writeReport(
      request, [&](const std::string& piece) { page += piece; }, [] {});
  return page;
}

std::size_t countOf(const std::string& part, const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

void addRequest(const TempFolder& data, int request, int camera, bool settled, double lux) {
  const std::string folder =
      fmt::format("tmp/RequestID[{}]_camId[{}]/simulation_", request, camera);
  data.write(folder + fmt::format("AWB_AECData_camId[{}].xml", camera),
             fmt::format(R"(<SimulationData><AWBAlgoExposureInformation luxIndex="1" )"
                         R"(AECSettled="{}" frameDuration="1"><BETemplateMatrix>1 2 3 4 )"
                         R"(</BETemplateMatrix></AWBAlgoExposureInformation></SimulationData>)",
                         settled ? 257 : 0));
  data.write(
      folder + fmt::format("AE_AECData_camId[{}]_ev[0].xml", camera),
      "<SimulationData>" + element("LuxIndex", fmt::format("{}", lux)) + "</SimulationData>");
}

TEST(ReportPage, TellsWhenExposureSettledAndWhichCamerasDisagree) {
  const TempFolder data;
  for (int request = 8; request < 14; ++request) {
    addRequest(data, request, 0, request == 8 || request > 10, 100);
    addRequest(data, request, 1, request == 8, request == 12 ? 150 : 100 + request / 2.0);
  }
  const std::string page = pageOf(data);
  EXPECT_NE(page.find("camera 0</th><td>request 11</td><td>request 10</td><td>2</td>"),
            std::string::npos);
  EXPECT_EQ(countOf("data-flag=\"true\"", page), 1U);
  EXPECT_NE(page.find("not settled at the end</td><td>request 13</td>"), std::string::npos);
  EXPECT_NE(page.find("lux index by 33.3 %, exposure settled</td>"), std::string::npos);
  EXPECT_NE(page.find("those of 3 are consistent within 10 %"), std::string::npos);  // 8, 9, 10
}

TEST(ReportPage, OfARequestThatOccursTwiceTheLastIsShownAndCopiesNever) {
  const TempFolder data;
  for (const int request : {8, 9}) addRequest(data, request, 0, true, 0.7486363870576611);
  constexpr char kFile[] = "/simulation_AE_AECData_camId[0]_ev[0].xml";
  const auto write = [&](const std::string& name, const char* lux) {
    data.write(name + kFile, "<SimulationData>" + element("LuxIndex", lux) + "</SimulationData>");
  };
  write("IMG_COPY_8", "99");
  data.write(std::string("IMG_COPY_8/") + kProvenanceFile, R"({"capture": "8/0"})");
  const std::string once = pageOf(data);
  EXPECT_NE(once.find("<p>Changed copies of captures that are here, too, are left out: 1.</p>"),
            std::string::npos);
  EXPECT_GT(once.find(">99<"), once.find("<section id=\"captures\""));
  write("IMG_8", "5");
  const std::string twice = pageOf(data);
  EXPECT_NE(twice.find("<p>1 request occurs in more than one capture of the same camera"),
            std::string::npos);
  const std::size_t list = twice.find("<section id=\"captures\"");
  EXPECT_LT(twice.find(">IMG_8<", list), twice.find(">8/0<", list));  // which is told to be shown
  EXPECT_EQ(countOf("[8,0.74863639]", twice), 1U);
  EXPECT_LT(twice.find("<td>5</td>"), list);  // in the table of all values
}

TEST(ReportPage, WhatADamagedFileLeavesOpenIsNoVerdict) {
  const TempFolder data;
  const auto damage = [&](int request, int camera, const char* file) {
    data.write(fmt::format("tmp/RequestID[{0}]_camId[{1}]/simulation_{2}", request, camera,
                           fmt::format(file, camera)),
               "junk");
  };
  constexpr char kSettledFile[] = "AWB_AECData_camId[{}].xml";
  for (int request = 8; request < 13; ++request) {
    addRequest(data, request, 0, true, 100);
    addRequest(data, request, 1, request > 8, 100);
  }
  damage(9, 1, kSettledFile);
  damage(12, 1, kSettledFile);
  damage(12, 1, "AE_AECData_camId[{}]_ev[0].xml");
  const std::string page = pageOf(data);
  for (const char* const part :
       {"<td class=\"long\">from the first one on (request "
        "8)</td><td>none</td><td>0</td><td>0</td>",
        "<td class=\"long\">request 10, or earlier: 1 request before it does not "
        "tell</td><td>request 8</td>",
        "those of 2 are consistent within 10 %, those of 1 only in what they have in common.",
        "<td class=\"long\">camera 1 lacks exposure settled</td>",
        "<td>cannot be compared</td><td>camera 1 has no values</td>"}) {
    EXPECT_NE(page.find(part), std::string::npos) << part;
  }
  const auto verdictOf = [](const std::vector<Moment>& moments) {
    return cameraComparison(moments)["verdicts"][0].get<std::string>();
  };
  Quantities values;
  values[0] = 100;
  EXPECT_EQ(verdictOf({{0, 8, values}, {1, 8, {}}}),
            "Cameras 0 and 1 cannot be compared: camera 1 has no values.");
  Quantities more = values;
  more[1] = 2;
  EXPECT_EQ(verdictOf({{0, 8, more}, {1, 8, values}}),
            "Cameras 0 and 1 are consistent in what they have in common, 1 value: nothing differs "
            "by more than 10 %; camera 1 lacks short gain.");
}

TEST(ReportPage, ShowsTheNewestImagesInPictures) {
  const TempFolder data;
  for (int image = 1; image <= 5; ++image) {
    const std::string name = fmt::format("IMG_{}/{}", image, kGridFile);
    const timespec time = {1000 + 100 * ((image + 2) % 5), 0};  // the newest: IMG_2, then 1 and 5
    const timespec times[] = {time, time};
    utimensat(AT_FDCWD, data.write(name, gridXml(kSquare)).c_str(), times, 0);
  }
  // Newer, with nothing to show but lens shading, or a finding.
  data.write(std::string("IMG_LENS/") + kShadingFile, shadingXml());
  data.write("IMG_BURST/simulation_AE_AECData_camId[0]_ev[0].xml", "junk");
  const std::string page = pageOf(data);
  EXPECT_EQ(countOf("<h4>", page), kNewest);
  EXPECT_EQ(countOf("<section class=\"capture\"", page), kNewest + 1);
  for (const char* const sound : {"3", "4", "LENS"}) {
    EXPECT_EQ(countOf(fmt::format(">IMG_{}</h2>", sound), page), 0U) << sound;
  }
  EXPECT_EQ(countOf("class=\"thumbnail\"", page), 6U);
  Request all = {Store(data.path() + "/IMG_1/../."), {}};
  all.allPictures = true;
  std::string whole;
  EXPECT_EQ(writeReport(
                all, [&](const std::string& piece) { whole += piece; }, [] {}),
            7U);
  EXPECT_EQ(countOf("<h4>", whole), 6U);
  EXPECT_EQ(countOf("<h1>Captures of " + data.path() + "</h1>", whole), 1U);
}

TEST(ReportPage, SmallRecordsStandInColumnsByCamera) {
  const TempFolder data;
  const auto write = [&](const std::string& file, const std::string& members) {
    data.write("IMG_1/simulation_" + file, element("SimulationData", members));
  };
  write("AE_AECData_camId[0]_ev[-1].xml", element("LuxIndex", "1"));
  write("AE_AECData_camId[0]_ev[0].xml", element("LuxIndex", "2"));
  write("AE_AECData_camId[1]_ev[0].xml", element("DrcGain", "0.1"));
  const std::string page = pageOf(data, {"IMG_1"});
  EXPECT_NE(page.find("LuxIndex</th><td>1</td><td>2</td><td class=\"marked\">missing</td>"),
            std::string::npos);
  EXPECT_NE(page.find("DrcGain</th><td class=\"marked\">missing</td><td class=\"marked\">missing"
                      "</td><td>0.1</td>"),
            std::string::npos);
  const auto store = Store(data.path());
  Doctor doctor(surveySizes(store));
  const Digest digest = digestOf(store.find("IMG_1"), doctor);
  ASSERT_FALSE(digest.moments.empty());
  EXPECT_EQ(digest.moments[0].values[0], 2);  // of the step nearest to 0
  EXPECT_EQ(digest.moments[0].request, 1);
}

TEST(ReportPage, SetsTwoCapturesSideBySide) {
  const TempFolder data;
  data.write(std::string("IMG_1/") + kShadingFile, shadingXml());
  std::string changed = shadingXml();
  changed.replace(changed.find("<rGain>2.5 "), 11, "<rGain>5 ");
  data.write(std::string("IMG_2/") + kShadingFile, changed);
  data.write("IMG_2/simulation_AWB_FaceROI_camId[0].bin", std::string(1784, '\0'));
  const std::string page = pageOf(data, {}, {"IMG_1", "IMG_2"});
  EXPECT_NE(page.find("1 of 221 places differ, most by 2.5 at column 0, row 0"), std::string::npos);
  EXPECT_EQ(countOf("<figcaption>", page), 3U);  // R alone differs
  const std::size_t answer = page.find("<h3>1 of 2 records differs, 1 is only in B</h3>");
  EXPECT_LT(answer, page.find("<h3>Side by side</h3>"));
  EXPECT_NE(page.find(">LSC.rGain</th><td class=\"long\">1 of 221 (", answer), std::string::npos);
  EXPECT_EQ(countOf("FaceROI_camId[0].bin</th><td>B</td>", page), 1U);
  EXPECT_EQ(countOf(">only in ", page), 0U);
  const std::string itself = pageOf(data, {}, {"IMG_1", "IMG_1"});
  EXPECT_EQ(countOf("<figcaption>", itself), 0U);
  EXPECT_EQ(countOf("<h1>IMG_1 and itself: no difference</h1>", itself), 1U);
}

TEST(ReportPage, WhatSeveralRecordsHaveInCommonIsToldOnce) {
  const TempFolder data;
  const auto write = [&](const char* capture, int camera, const char* lux, char byte) {
    data.write(fmt::format("{}/simulation_AE_AECData_camId[{}]_ev[0].xml", capture, camera),
               element("SimulationData", element("LuxIndex", lux)));
    data.write(fmt::format("{}/simulation_AWB_FaceROI_camId[{}].bin", capture, camera),
               std::string(1784, byte));
  };
  for (const int camera : {0, 1, 2}) {
    write("IMG_1", camera, "100", 'a');
    write("IMG_2", camera, camera == 2 ? "400" : "200", 'b');
  }
  const std::string page = pageOf(data, {}, {"IMG_1", "IMG_2"});
  const std::size_t all = page.find("<h3>All differences</h3>");
  constexpr char kRow[] =
      "LuxIndex</th><td>100</td><td>{}</td><td>by {} ({} %)</td><td{}>{}</td></tr>";
  for (const std::string& row : {fmt::format(kRow, 200, 100, 50, "", "Cameras 0 and 1, ev 0"),
                                 fmt::format(kRow, 400, 300, 75, "", "Camera 2, ev 0")}) {
    EXPECT_NE(page.find(row, all), std::string::npos) << row;
  }
  EXPECT_EQ(countOf("<td>1784 bytes in 1 range</td>", page), 3U);
  const std::size_t most =
      page.find(">AE_AECData.LuxIndex</th><td>100</td><td>400</td><td>75 %</td>");
  EXPECT_LT(most, page.find(">AE_AECData.LuxIndex</th><td>100</td><td>200</td><td>50 %</td>"));
  EXPECT_LT(most, all);
}

TEST(ReportPage, WhatChangedMostIsOneRowForEachMemberAndTellsWhere) {
  const TempFolder data;
  const auto write = [&](const char* capture, bool changed) {
    const std::string folder = std::string(capture) + "/simulation_";
    const auto text = [&](std::string xml, const std::string& from, const std::string& to) {
      return changed ? xml.replace(xml.find(from), from.size(), to) : xml;
    };
    for (int camera = 0; camera < 3; ++camera) {
      for (int ev = 0; ev < 3; ++ev) {
        data.write(folder + fmt::format("AE_AECData_camId[{}]_ev[{}].xml", camera, ev),
                   element("SimulationData", element("LuxIndex", changed ? "350" : "100")));
      }
      // Of camera 0 two regions are others, of the others all.
      const std::string grid = gridXml(kSquare);
      const std::string other = std::regex_replace(grid, std::regex(">[0-9 ]+<"), ">1 2 3 4 <");
      data.write(folder + fmt::format("AWB_ParsedAWBStatsOutput_p_camId[{}].xml", camera),
                 camera == 0 ? text(grid, "100 200 300 0", "100 2 3 0") : text(grid, grid, other));
      data.write(folder + fmt::format("AWB_AECData_camId[{}].xml", camera),
                 fmt::format(R"(<SimulationData><AWBAlgoExposureInformation AECSettled="{}">)"
                             R"(</AWBAlgoExposureInformation></SimulationData>)",
                             changed ? 1 : 0));
    }
    std::string labels = text(labelXml(4), "255 0 ", "255 3 ");
    for (const char* const id : {"40", "41", "42"}) {
      labels = text(labels, fmt::format("<ID>{}", id), fmt::format("<ID>{}0", id));
    }
    data.write(folder + "AWB_QsegImageData_camId[0].xml", labels);
    data.write(folder + "LSC[p]_index[0]_ev[0].xml", text(shadingXml(), "<rGain>2.5", "<rGain>5"));
  };
  write("IMG_1", false);
  write("IMG_2", true);
  data.write("IMG_1/simulation_AWB_FaceROI_camId[0].bin", std::string(1784, 'a'));
  std::string page = pageOf(data, {}, {"IMG_1", "IMG_2"});
  page.resize(page.find("<h3>Side by side</h3>"));
  page.erase(0, page.find("<h3>"));
  for (const char* const part :
       {"<h3>17 of 18 records differ, 1 is only in A</h3>", "and where (8 of 12)<",
        "relative to the larger one<", "<td>71.4 %</td><td>All cameras, ev 0 to 2</td>",
        ".RSum</th><td class=\"long\">4 of 4 (100 %), most by 297 at column 0, row "
        "1</td><td>Camera 1, p</td>",
        "LSC.rGain</th><td class=\"long\">1 of 221 (0.452 %), most by 2.5 at column 0, row 0</td>",
        "qsegStatsInfo</th><td class=\"long\">1 of 8 (12.5 %), at column 3, row 1<"}) {
    EXPECT_NE(page.find(part), std::string::npos) << part;
  }
  EXPECT_EQ(countOf("qsegInstInfos[", page), 1U);
  EXPECT_EQ(countOf("AECSettled", page), 0U);  // no quantity
}

TEST(ReportPage, ChangedLabelsHaveAKey) {
  const TempFolder data;
  const std::string file = "/simulation_AWB_QsegImageData_camId[0].xml", a = labelXml(4);
  std::string b = a;
  b.replace(b.find("255 0 "), 6, "0 3 ");
  data.write("IMG_1" + file, a);
  data.write("IMG_2" + file, b);
  const std::string page = pageOf(data, {}, {"IMG_1", "IMG_2"});
  for (const char* const row :
       {"Label 3</th><td>25.00 %</td><td>37.50 %</td><td>1</td><td>0</td>",
        "Label 255</th><td>12.50 %</td><td>0.00 %</td><td>0</td><td>1</td>"}) {
    EXPECT_NE(page.find(row), std::string::npos) << row;
  }
  EXPECT_NE(page.find("2 of 8 labels changed"), std::string::npos);
}

TEST(ReportPage, NothingInACaptureIsMarkup) {
  const TempFolder data;
  const std::string nasty = "<script>alert(1)<!--\"'&{{page}}\x1b\xff";
  const std::string texts = element("syncinfo", "&lt;/script&gt;&lt;script&gt;");
  data.write(nasty + "/simulation_ZOAWB_SyncInfo_camId[0].xml",
             "<AWBsyncInfo>" + texts + "</AWBsyncInfo>");
  data.write(nasty + "/simulation_LSC[" + nasty + "]_index[0]_ev[0].xml", shadingXml());
  data.write(nasty + "/simulation_" + nasty, "");
  data.write("IMG_1/simulation_AWB_FaceROI_camId[0].bin", "short");
  for (const std::string& page :
       {pageOf(data), pageOf(data, {nasty, "IMG_1"}), pageOf(data, {}, {nasty, "IMG_1"})}) {
    EXPECT_EQ(page.find("<script>alert"), std::string::npos);
    EXPECT_EQ(countOf("<!--", page), 0U);
    // The program's own two, and data.
    EXPECT_EQ(countOf("<script", page), 2 + countOf("<script type=\"text/plain\"", page));
    EXPECT_NE(page.find("&lt;script&gt;alert(1)&lt;!--&quot;&apos;&amp;{{page}}\\x1b\xEF\xBF\xBD"),
              std::string::npos);
    EXPECT_NE(page.find("5 bytes instead of 1784"), std::string::npos);
    EXPECT_NE(page.find("default-src 'none'"), std::string::npos);
  }
}

TEST(ReportPage, DamagedAndMissingFilesAreTold) {
  const TempFolder data;
  data.write(std::string("IMG_1/") + kGridFile, "<SimulationData><AWBBGStats");
  data.write("IMG_1/simulation_AWB_QsegImageData_camId[1].xml", "");
  data.write("IMG_1/simulation_ACB_acb_camId[0].bin", "");
  mkfifo((data.path() + "/IMG_1/simulation_ZOAWB_SpectralSensorInfo.xml").c_str(), 0600);
  const std::string page = pageOf(data, {"IMG_1"});
  for (const char* const part : {"(line 1)", "empty", "a FIFO, device or socket",
                                 "simulation_AWB_QsegImageData_camId[0].xml</td><td "
                                 "class=\"finding\"><strong class=\"warning\">"}) {
    EXPECT_NE(page.find(part), std::string::npos) << part;
  }
  EXPECT_EQ(countOf("</section>", page), 2U);
}

TEST(NewFile, AppearsWholeOrNotAtAll) {
  const TempFolder folder;
  const std::string path = folder.write("page.html", "old");
  const auto contentOf = [](const std::string& file) {
    return (std::ostringstream() << std::ifstream(file).rdbuf()).str();
  };
  { NewFile(path).write("half"); }
  EXPECT_EQ(contentOf(path), "old");
  const int nameless = open(folder.path().c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
  if (nameless >= 0) {  // then nothing is left even of a program that is ended
    close(nameless);
    NewFile draft(path);
    draft.write("half");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
  }
  fs::create_symlink(path, folder.path() + "/link");
  NewFile file(folder.path() + "/link");
  file.write("new");
  file.finish();
  EXPECT_EQ(contentOf(path), "new");
  EXPECT_TRUE(fs::is_symlink(folder.path() + "/link"));
  mkfifo((folder.path() + "/fifo").c_str(), 0600);
  for (const std::string& bad :
       {folder.path(), folder.path() + "/fifo", folder.path() + "/no/file", std::string()}) {
    EXPECT_THROW(NewFile{bad}, Error) << bad;
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 3);
}

}  // namespace
