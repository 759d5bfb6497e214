// The services every record builds on: flags, paths and folders, raw files, log.
#include <fcntl.h>

#include <cfloat>

#include "core/log.h"
#include "core/number_text.h"
#include "core/path.h"
#include "core/xml_printer.h"
#include "tests/support/camera_data.h"

namespace {

std::string prefix(int mode, unsigned int type, unsigned int request, unsigned int camId) {
  char path[128];
  sim().getFilesPath(mode, static_cast<FileType>(type), path, request, camId);
  return path;
}

std::string namedPrefix(bool acb, int mode, unsigned int type, std::string folder) {
  const auto get = acb ? &Simulation::getACBAWBFilesPath : &Simulation::getOfflineAWBFilesPath;
  char path[128];
  (sim().*get)(mode, static_cast<FileType>(type), path, 1, 2, folder.data());
  return path;
}

bool perform(const Names& words, std::ostream& out) {
  const auto number = [&](std::size_t at) { return std::stoull(words.at(at)); };
  const auto low = [&](std::size_t at) { return static_cast<unsigned int>(number(at)); };
  const auto mode = [&] { return std::stoi(words.at(1)); };
  const auto path = [&] { return words.at(1)[0] == '/' ? words[1] : kCamera + words[1]; };
  const auto named = [&] { out << namedPrefix(words[0] == "acb", mode(), low(2), words[3]); };
  const auto read = [&] {
    std::string buffer = "....";
    out << sim().ReadFromFile(buffer.data(), path().data(), number(2), static_cast<int>(low(3)));
    out << ' ' << buffer;
  };
  const auto write = [&](int flags) {
    std::string buffer = "new";
    out << sim().WritetoFile(buffer.data(), path().data(), number(2), flags);
  };
  out << "= ";
  const bool known =
      call(words[0], {
                         {"prefix", [&] { out << prefix(mode(), low(2), low(3), low(4)); }},
                         {"offline", named},
                         {"acb", named},
                         {"root", [] { sim().makeTmpFileFloder(); }},
                         {"exists", [&] { out << sim().isFileExists(path().data()); }},
                         {"read", read},
                         {"write", [&] { write(O_WRONLY); }},
                         {"append", [&] { write(O_WRONLY | O_APPEND); }},
                         {"truncate", [&] { write(O_WRONLY | O_TRUNC); }},
                         {"create", [&] { write(O_RDWR | O_CREAT); }},
                     });
  out << '\n';
  return known;
}

using Core = CameraDataTest;

TEST_F(Core, EachFlagQueryReadsItsOwnBit) {
  for (int flags = 0; flags < 256; ++flags) {
    const auto byte = static_cast<unsigned char>(flags);
    EXPECT_EQ(sim().isSimulationEnable(byte), flags % 2 == 1) << flags;
    EXPECT_EQ(sim().getSimulationMode(byte), flags / 2 % 2 == 1) << flags;
    EXPECT_EQ(sim().getSimulationAEMode(byte), flags / 4 % 2 == 1) << flags;
  }
}

TEST_F(Core, PathsAreMadeAsTheirFileSays) { playGolden("paths.calls", perform); }

TEST_F(Core, FoldersThatCannotBeMadeAreLogged) {
  SKIP_WHERE_NOTHING_CAN_BE_MOUNTED();
  const ReadOnlyCameraData readOnly;
  playGolden("read_only.calls", perform);
}

TEST_F(Core, RawFilesAreReadAndWrittenAsTheirFileSays) { playGolden("raw_files.calls", perform); }

TEST_F(Core, UnknownFileTypeAborts) {
  for (const int mode : {1, 0}) {
    EXPECT_EXIT(prefix(mode, 10, 1, 1), testing::KilledBySignal(SIGABRT), "");
  }
}

TEST_F(Core, PathsAreCutAt127Characters) {
  const std::string text(100, 'x');
  EXPECT_EQ(simulation::Path(text, "-", -2147483647 - 1, "-", text).view(),
            (text + "--2147483648-" + text).substr(0, 127));
  EXPECT_EQ(simulation::Path(text, text, 7).c_str()[127], '\0');
  const char* const missing = nullptr;
  EXPECT_EQ(simulation::Path("a", missing, 4294967295U).view(), "a(null)-1");
}

TEST_F(Core, LogCutsAt1023Characters) {
  const std::string text(2000, 'y');
  simulation::SimulationLog(3, "%s", text.c_str());
  EXPECT_EQ(takeLog(), (LogLines{{3, text.substr(0, 1023)}}));
}

TEST_F(Core, XmlIsWholeWhereverTheBufferEnds) {
  const std::string longest = "-340282346638528859811704183484516925440.000000 ";
  const std::string path = kCamera + "file", bytes(5000, '\xFF');
  const std::string all =
      'c' + replaced(std::string(71, 'x'), "x", longest) + replaced(bytes, "\xFF", "255 ");
  const auto write = [](char* out, std::size_t) {
    return simulation::writeBlank(simulation::writeFixedFloat(out, -FLT_MAX));
  };
  for (std::size_t room = 0; room < 20000; room += room < 130 ? 1 : 997) {
    const auto printer = std::make_unique<simulation::XmlPrinter>(path.c_str());
    const std::string before(65536 - 3 - room, 'x');
    printer->OpenElement("a");
    printer->PushText(before.c_str());
    printer->pushCharacter('c');
    printer->pushNumber(write, 0U);
    printer->pushNumbers(70, write);
    printer->pushBytes(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    printer->CloseElement();
    EXPECT_EQ(printer->finish(), tinyxml2::XML_SUCCESS);
    EXPECT_TRUE(readFile(path) == "<a>" + before + all + "</a>\n") << room;
  }
}

}  // namespace
