#include "fuzz/support/list_seeds.h"

#include <cstddef>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace fuzz {
namespace {

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

void writeAll(const fs::path& folder, const std::string& name, const Texts& texts) {
  fs::create_directories(folder);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    std::ofstream(folder / (name + '_' + std::to_string(i)), std::ios::binary) << texts[i];
  }
}

/// Numbers of all sizes up to `most`, each with its blank, of at least `size` characters.
std::string numbers(std::size_t size, unsigned int most) {
  std::string text;
  for (unsigned int noise = 1; text.size() < size; noise = noise * 1664525U + 1013904223U) {
    text += std::to_string((noise >> 4) % most >> noise % 4 * 3) + ' ';
  }
  return text;
}

/// Numbers with `odd` behind the blank that is nearest before each border.
std::string interrupted(std::string text, const char* odd, std::size_t border, std::size_t shift) {
  for (std::size_t at = border + shift; at < text.size(); at += 5 * border) {
    text.insert(text.rfind(' ', at) + 1, odd);
  }
  return text;
}

constexpr std::size_t kBorders[] = {16, 64, 128, 512};

/// At all borders, and a few characters beside them.
Texts interruptedLists(unsigned int most, const Texts& odds) {
  Texts texts;
  for (const std::string& odd : odds) {
    for (const std::size_t border : kBorders) {
      const std::size_t shift = texts.size() % 7;
      texts.push_back(interrupted(numbers(1400, most), odd.c_str(), border, shift));
    }
  }
  return texts;
}

/// Runs of `label`, longer and shorter, with `odd` inside the last and labels between.
std::string runs(const std::string& label, const std::string& odd) {
  std::string text = numbers(9, 256);
  for (const int length : {3, 5, 8, 16, 21, 31, 32, 33, 64, 129, 300}) {
    for (int i = 0; i < length; ++i) text += label;
    text += std::to_string(length % 256) + ' ';
    if (length == 33) text += numbers(600, 256);
  }
  return text.insert(text.rfind(label, text.size() - 200), odd);
}

/// Periods of 2, 3 and 4 characters, plain and odd, and longer ones.
Texts labelRuns() {
  Texts texts;
  for (const char* label : {"7 ", "42 ", "-1 ", "255 ", "007 ", "0x9 ", "1.5 ", "00042 "}) {
    for (const char* odd : {"", "8 ", "42", "-", "1234 ", "300 ", "x ", " ", "\n"}) {
      texts.push_back(runs(label, odd));
    }
  }
  return texts;
}

Texts labelTexts() {
  Texts texts =
      interruptedLists(256, {"300 ", " ", "1000 ", "-1 ", "x", "\n9 ", "12-3 ", "99999999999 ", "7",
                             "\x01"
                             "A "});
  for (const std::string& run : labelRuns()) texts.push_back(run);
  return texts;
}

std::string segmentation(const std::string& labels) {
  return "<a><qsegStatsInfo>" + labels + "</qsegStatsInfo></a>";
}

/// `list` in all places of the statistics, of which the counts are shorter.
std::string statistics(const std::string& list, bool paired) {
  std::string text = "<a><AWBBGStats hasSatInfo=\"" + std::to_string(paired) + "\" numROIs=\"90\">";
  for (const char* name : {"RSum", "BSum", "GRorGSum", "GBSum", "YSum", "RCount", "BCount",
                           "GRorGCount", "GBCount", "YCount"}) {
    text.append("<").append(name).append(">") += list;
    text.append("</").append(name).append(">");
  }
  return text + "</AWBBGStats></a>";
}

Texts statisticsTexts() {
  Texts texts;
  for (const unsigned int most : {3000U, 65540U, 134217728U}) {
    for (const std::string& list : interruptedLists(
             most,
             {"", " ", "123456789 ", "18446744073709551616 ", "-1 ", "+5 ", "\n", "x", "7.5 "})) {
      texts.push_back(statistics(list, texts.size() % 2 != 0));
    }
  }
  return texts;
}

/// Gains as they are dumped, a line feed behind each row.
std::string gains(const std::string& odd) {
  std::string text;
  for (int i = 0; i < 221; ++i) {
    if (i % 34 == 20) text += odd;
    text += std::to_string(1 + (i * 7919 % 1000) / 125.0) + ' ';
    if (i % 17 == 16) text += '\n';
  }
  return text;
}

Texts gainTexts() {
  Texts texts;
  for (const char* odd :
       {"", "10.000000 ", "1.00000 ", "1.0000000 ", "1e0 ", "nan ", " ", "\n", "-", "1,234567 ",
        "0x1.8p1 ", "1.234567x ", "1.23456", "9.9999995 ", "."}) {
    texts.push_back("<a><LensShadingInfo><rGain>" + gains(odd) + "</rGain><b>" + gains("") +
                    "</b></LensShadingInfo></a>");
  }
  return texts;
}

/// Lists beside what could be taken for a mark, for a list, or changes one.
Texts documents() {
  const std::string list = numbers(333, 1000);
  const std::string element = "<n>" + list + "</n>";
  Texts texts;
  for (const char* beside : {"<n>&#1;A</n>", "<n>&#x1;Z</n>",
                             "<n>\x01"
                             "A</n>",
                             "<n>&#49;</n>", "<![CDATA[", "<![CDATA[>1 2<]]>", "<!-- > -->", "&",
                             ">", "\r\n", "<x y='>'/>"}) {
    texts.push_back("<a>" + element + beside + element + "</a>");
    texts.push_back("<a>" + element + "<n>" + list + beside + "</n></a>");
    texts.push_back("<a><n>" + list + beside + list + "</n>" + element + "</a>");
  }
  for (const std::string& labels :
       interruptedLists(1000, {"\r\n", "x", "&amp;", "/", ",", ">", "<b/>",
                               "\x01"
                               "A"})) {
    texts.push_back("<a><n>" + labels + "</n>" + element + "</a>");
  }
  return texts;
}

}  // namespace

void writeListSeeds(const fs::path& folder) {
  Texts segmentations;
  for (const std::string& labels : labelTexts()) segmentations.push_back(segmentation(labels));
  writeAll(folder / "qseg", "list", segmentations);
  writeAll(folder / "stats", "list", statisticsTexts());
  writeAll(folder / "lsc", "list", gainTexts());
  writeAll(folder / "document", "list", documents());
}

}  // namespace fuzz
