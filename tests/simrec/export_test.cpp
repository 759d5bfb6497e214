// Exports: what stands at their place after kills, refusals and additions, and rows that are the
// same in each format. Other engines' opinion of them is a stage of its own.
#include <fcntl.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <set>
#include <sstream>

#include "simrec/error.h"
#include "simrec/export/export.h"
#include "simrec/export/part_files.h"
#include "simrec/json.h"
#include "tests/simrec/temp_folder.h"

namespace {

namespace fs = std::filesystem;
using namespace simrec;

constexpr char kAec[] = "simulation_AWB_OTPData_camId[0].xml";
constexpr ExportFormat kFormats[] = {ExportFormat::kJsonLines, ExportFormat::kCsv,
                                     ExportFormat::kSqlite};

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What a database holds, table by table, a line for each row.
std::string textOf(const std::string& path, const std::string& sql) {
  sqlite3* database = nullptr;
  EXPECT_EQ(sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
  std::string text;
  const auto add = [](void* to, int count, char** values, char**) {
    for (int i = 0; i < count; ++i) {
      *static_cast<std::string*>(to) += std::string(values[i] ? values[i] : "NULL") + "|";
    }
    *static_cast<std::string*>(to) += '\n';
    return 0;
  };
  EXPECT_EQ(sqlite3_exec(database, sql.c_str(), add, &text, nullptr), SQLITE_OK)
      << sqlite3_errmsg(database);
  sqlite3_close(database);
  return text;
}

/// All that an export holds; empty where there is none.
std::map<std::string, std::string> picture(const std::string& out) {
  std::map<std::string, std::string> picture;
  if (fs::is_directory(out)) {
    for (const auto& entry : fs::recursive_directory_iterator(out)) {
      if (entry.is_regular_file()) {
        picture[entry.path().lexically_relative(out).string()] = contentOf(entry.path());
      }
    }
  } else if (fs::exists(out)) {
    EXPECT_EQ(textOf(out, "PRAGMA integrity_check"), "ok|\n");
    picture["records"] = textOf(out, "SELECT * FROM records");
    picture["AWB_OTPData"] = textOf(out, "SELECT * FROM AWB_OTPData");
    picture["indexes"] = textOf(out, "SELECT name FROM sqlite_master ORDER BY 1");
  }
  return picture;
}

class Exports : public testing::Test {
 protected:
  Exports() {
    for (int i = 0; i < 6; ++i) addCapture(i);
  }

  void addCapture(int number) {
    const std::string name = "data/IMG_" + std::to_string(number) + "/";
    for (int camera = 0; camera < 3; ++camera) {
      folder.write(name + "simulation_AWB_OTPData_camId[" + std::to_string(camera) + "].xml",
                   "<WBOTPData><rOverG>0." + std::to_string(number + 1) +
                       "</rOverG><bOverG>nan</bOverG></WBOTPData>");
    }
    folder.write(name + "simulation_LSC[a]_index[0]_ev[0].xml", "<cut");
  }

  ExportCounts run(
      ExportFormat format, bool append = false, bool lists = false,
      const std::function<void()>& step = [] {}) {
    ExportWishes wishes = {format, out(format), lists, append};
    return exportTables(CaptureList(folder.path() + "/data"), wishes, step);
  }

  std::string out(ExportFormat format) const { return folder.path() + "/" + nameOf(format); }

  const TempFolder folder;
};

/// The rows of one kind as columns' texts: JSON's for numbers, null for what is absent.
using Rows = std::set<std::vector<std::string>>;

std::vector<std::string> jsonRow(const std::string& line) {
  std::vector<std::string> row;
  const Json json = Json::parse(line);
  for (const auto& [name, value] : json.items()) {
    if (name.find("Bytes") == name.npos)
      row.push_back(value.is_string() ? value.get<std::string>() : dump(value));
  }
  return row;
}

/// A table of CSV, the head first. An absent value is "null".
std::vector<std::vector<std::string>> csvRows(const std::string& text) {
  std::vector<std::vector<std::string>> rows(1);
  for (std::size_t at = 0; at < text.size();) {
    std::string field;
    if (text[at] == '"') {
      for (++at; text[at] != '"' || text[at + 1] == '"'; ++at) {
        at += text[at] == '"' ? 1 : 0;
        field += text[at];
      }
      ++at;
    } else {
      const std::size_t end = text.find_first_of(",\n", at);
      field = end == at ? "null" : text.substr(at, end - at);
      at = end;
    }
    rows.back().push_back(field);
    if (text[at++] == '\n') rows.emplace_back();
  }
  rows.pop_back();
  return rows;
}

TEST_F(Exports, HoldTheSameRowsInEachFormat) {
  const std::string odd = "data/I,\"M\n\xff/";
  folder.write(odd + "simulation_LSC[]_index[-1]_ev[2].xml", "");
  folder.write(odd + "simulation_LSC[\xff,\"\n\x1b]_index[0]_ev[0].xml", "<x/>");
  folder.write(odd + "simulation_AE_AECData_camId[-7]_ev[0].xml",
               "<SimulationData><LuxIndex>-inf</LuxIndex><DigitalGain>1e-42</DigitalGain>"
               "<ExposureIndexShort ExposureTime='18446744073709551615' Gain='-nan'/>"
               "<ExposureIndexLong ExposureTime='9223372036854775807' Gain='0.1'/>"
               "</SimulationData>");
  folder.write(
      odd + "simulation_AWB_AECData_camId[0].xml",
      "<SimulationData><AWBAlgoExposureInformation luxIndex=\"16777217\" AECSettled=\"-2\" "
      "frameDuration=\"0\"><BETemplateMatrix>1 nan -inf 0.5 </BETemplateMatrix>"
      "</AWBAlgoExposureInformation></SimulationData>");
  folder.write(odd + "simulation_AWB_OTPData_camId[3].xml",  // no number that JSON knows
               "<WBOTPData><rOverG>00.5</rOverG><bOverG>1.</bOverG></WBOTPData>");
  mkfifo((folder.path() + "/data/IMG_0/simulation_AWB_FaceROI_camId[0].bin").c_str(), 0666);
  fs::create_symlink("nowhere", folder.path() + "/data/IMG_0/simulation_AWB_FaceROI_camId[1].bin");
  for (const ExportFormat format : kFormats) {
    const ExportCounts counts = run(format, false, true);
    EXPECT_EQ(counts.rows, 31U);
    EXPECT_EQ(counts.captures, 7U);
    EXPECT_EQ(counts.problems, 6U + 2 + 1 + 2);
  }
  std::map<std::string, Rows> json, csv;
  for (const auto& [name, text] : picture(out(ExportFormat::kJsonLines))) {
    if (fs::path(name).extension() != ".jsonl") continue;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      json[fs::path(name).parent_path().string()].insert(jsonRow(line));
    }
  }
  for (const auto& [name, text] : picture(out(ExportFormat::kCsv))) {
    if (fs::path(name).extension() != ".csv") continue;
    const auto rows = csvRows(text);
    csv[fs::path(name).parent_path().string()].insert(rows.begin() + 1, rows.end());
  }
  EXPECT_EQ(json, csv);
  EXPECT_EQ(json.count("AE_AECData/camera=-7"), 1U);
  const std::string database = out(ExportFormat::kSqlite);
  EXPECT_EQ(
      textOf(database,
             "SELECT LuxIndex, typeof(LuxIndex), DigitalGain, ExposureIndexShort_ExposureTime, "
             "ExposureIndexShort_Gain, typeof(ExposureIndexLong_ExposureTime), "
             "ExposureIndexLong_Gain, ExposureIndexSafe_Gain, camera, request FROM AE_AECData"),
      "-Inf|real|1.0e-42|18446744073709551615|nan|integer|0.1|NULL|-7|NULL|\n");
  EXPECT_EQ(
      textOf(database, "SELECT luxIndex, AECSettled, BETemplateMatrix, problem FROM AWB_AECData"),
      "16777217.0|-2|[1,\"nan\",\"-inf\",0.5]|NULL|\n");
  EXPECT_EQ(textOf(database,
                   "SELECT capture, text, \"index\", ev FROM LSC WHERE capture NOT LIKE 'IMG%'"),
            "I,\"M\n\xEF\xBF\xBD||-1|2|\nI,\"M\n\xEF\xBF\xBD|\xEF\xBF\xBD,\"\n\x1b|0|0|\n");
  EXPECT_EQ(textOf(database, "SELECT problem, modified IS NULL FROM AWB_FaceROI ORDER BY file"),
            "a FIFO, device or socket|0|\na link to nowhere|1|\n");
  EXPECT_NE(contentOf(out(ExportFormat::kJsonLines) + "/LSC/part-00000.jsonl")
                .find("\"captureBytes\":\"492c224d0aff\""),
            std::string::npos);
}

TEST_F(Exports, OfOneGridHaveItsRegionsAndOfShadingItsFallOff) {
  std::string lists;
  for (const char* list : {"RSum", "BSum", "GRorGSum", "GBSum", "YSum", "RCount", "BCount",
                           "GRorGCount", "GBCount", "YCount"}) {
    lists += std::string("<") + list + ">7 18446744073709551615 9 </" + list + ">";
    if (list == std::string("YSum")) lists.replace(lists.find("YSum") + 5, 2, "8 ");
  }
  for (std::size_t at; (at = lists.find("Count>7 18446744073709551615")) != lists.npos;) {
    lists.replace(at, 28, "Count>7 65535");
  }
  const std::string grid =
      "<SimulationData><AWBBGStats usesY=\"1\" hasSatInfo=\"0\" numROIs=\"3\" horizontal_num=\"2\" "
      "vertical_num=\"2\" BLStretchFactor=\"1\" channelGainThreshold=\"1 2 3 4 \">" +
      lists + "</AWBBGStats></SimulationData>";
  folder.write("data/IMG_0/simulation_AWB_ParsedAWBStatsOutput_p_camId[0].xml", grid);
  folder.write("data/IMG_1/simulation_OfflineAWB_ParsedAWBStatsOutput_camId[1].xml", grid);
  std::string gains;
  for (int i = 0; i < 221; ++i) gains += i == 0 ? "4 " : i == 16 ? "2 " : "1 ";
  folder.write("data/IMG_0/simulation_LSC[a]_index[0]_ev[0].xml",
               "<SimulationData><LensShadingInfo width=\"17\" height=\"13\"><rGain>" + gains +
                   "</rGain><bGain>1 </bGain></LensShadingInfo></SimulationData>");
  run(ExportFormat::kSqlite, false, true);
  const std::string database = out(ExportFormat::kSqlite);
  EXPECT_EQ(
      textOf(database,
             "SELECT kind, capture, camera, region, \"row\", \"column\", RSum, YSum, RCount "
             "FROM regions WHERE region > 0 ORDER BY 1, region"),
      "AWB_ParsedAWBStatsOutput|IMG_0|0|1|0|1|18446744073709551615|18446744073709551615|65535|\n"
      "AWB_ParsedAWBStatsOutput|IMG_0|0|2|1|0|9|9|9|\n"
      "OfflineAWB_ParsedAWBStatsOutput|IMG_1|1|1|0|1|18446744073709551615|18446744073709551615|"
      "65535|\n"
      "OfflineAWB_ParsedAWBStatsOutput|IMG_1|1|2|1|0|9|9|9|\n");
  const std::string shading =
      "SELECT capture, width, r_fall_off, b_fall_off FROM shading WHERE capture < 'IMG_2'";
  EXPECT_EQ(textOf(database, shading), "IMG_0|17|0.5|NULL|\nIMG_1|NULL|NULL|NULL|\n");
  run(ExportFormat::kSqlite);
  EXPECT_EQ(textOf(database, shading), "IMG_0|17|0.5|NULL|\nIMG_1|NULL|NULL|NULL|\n");
}

TEST_F(Exports, HoldAllRecordsOfALargeCapture) {
  std::set<std::string> expected;
  for (int index = 0; index < 300; ++index) {
    const std::string file = "simulation_LSC[b]_index[" + std::to_string(index) + "]_ev[0].xml";
    folder.write("data/IMG_2/" + file, std::string(index % 100 == 0 ? 5 << 20 : 10, '<'));
    expected.insert(file);
  }
  run(ExportFormat::kSqlite);
  std::set<std::string> files;
  std::istringstream lines(textOf(out(ExportFormat::kSqlite),
                                  "SELECT file FROM LSC WHERE text = 'b' AND problem IS NOT NULL"));
  for (std::string line; std::getline(lines, line);) files.insert(line.substr(0, line.size() - 1));
  EXPECT_EQ(files, expected);
}

TEST_F(Exports, AppendTakesWhatIsNew) {
  for (const ExportFormat format : kFormats) {
    EXPECT_EQ(run(format, true).rows, 24U);  // to nothing
    EXPECT_EQ(run(format, true).rows, 0U);
    const auto before = picture(out(format));
    addCapture(8);
    addCapture(7);
    folder.write(std::string("data/IMG_3/") + kAec, "<x/>");  // another time and size
    EXPECT_EQ(run(format, true).rows, 9U);
    EXPECT_EQ(run(format, true).rows, 0U);
    const ExportWishes one = {format, out(format), false, true};
    EXPECT_EQ(exportTables({{"IMG_0", folder.path() + "/data/IMG_0"}}, one, [] {}).rows, 0U);
    EXPECT_EQ(run(format, true).rows, 0U);  // the others are not forgotten
    const auto after = picture(out(format));
    for (const auto& [name, content] : before) {
      if (format != ExportFormat::kSqlite && name[0] != '.') {
        EXPECT_EQ(after.at(name), content) << name;
      }
    }
    if (format != ExportFormat::kSqlite) {
      EXPECT_EQ(after.count(std::string("AWB_OTPData/camera=0/part-00001.") + nameOf(format)), 1U);
    } else {
      EXPECT_EQ(
          textOf(out(format),
                 "SELECT count(*), count(DISTINCT capture || file), count(problem) FROM records"),
          "32|32|9|\n");
      EXPECT_EQ(textOf(out(format),
                       "SELECT count(*), sum(records) FROM captures, AWB_OTPData "
                       "WHERE captures.capture = AWB_OTPData.capture"),
                "25|100|\n");
    }
    EXPECT_THROW(run(format, true, true), Error);  // other columns
    EXPECT_EQ(picture(out(format)), after);
    // Everything anew is as if there had never been another.
    run(format);
    const auto anew = picture(out(format));
    fs::remove_all(out(format));
    run(format);
    EXPECT_EQ(picture(out(format)), anew);
    for (const char* gone : {"IMG_7", "IMG_8"}) fs::remove_all(folder.path() + "/data/" + gone);
    addCapture(3);
  }
}

/// Another content of the same size, at another time or the same one.
void change(const fs::path& path, char digit, std::time_t time) {
  std::string content = contentOf(path);
  for (char& each : content) each = each == '7' || each == '8' ? digit : each;
  std::ofstream(path, std::ios::binary) << content;
  const timespec times[2] = {{time, 0}, {time, 0}};
  utimensat(AT_FDCWD, path.c_str(), times, 0);
}

TEST_F(Exports, OfChangedFilesHaveOneRowInViews) {
  const std::string data = folder.path() + "/data/";
  fs::remove_all(data);
  const char* const files[] = {"AE_AECData_camId[0]_ev[0]", "AWB_AECData_camId[0]",
                               "AWB_OTPData_camId[0]",      "AWB_ParsedAWBStatsOutput_p_camId[0]",
                               "LSC[a]_index[0]_ev[0]",     "ZOAWB_SpectralSensorInfo"};
  for (const char* file : files) {
    folder.write(
        std::string("data/IMG_0/simulation_") + file + ".xml",
        "<SimulationData><LuxIndex>8</LuxIndex><AWBBGStats horizontal_num=\"1\"><RSum>8 "
        "</RSum></AWBBGStats><AWBAlgoExposureInformation luxIndex=\"8\"/></SimulationData>");
  }
  run(ExportFormat::kSqlite, false, true);
  for (const char digit : {'7', '6'}) {  // the second time an older file comes back
    for (const char* file : files) {
      change(data + "IMG_0/simulation_" + file + ".xml", digit, digit);
    }
    EXPECT_EQ(run(ExportFormat::kSqlite, true, true).rows, std::size(files));
  }
  const std::string database = out(ExportFormat::kSqlite);
  for (const auto& [sql, expected] : {std::pair{"SELECT LuxIndex FROM exposure", "6.0|\n"},
                                      {"SELECT luxIndex FROM white_balance", "6.0|\n"},
                                      {"SELECT RSum FROM regions", "6|\n"},
                                      {"SELECT count(*) FROM shading", "1|\n"},
                                      {"SELECT records, problems FROM captures", "6|6|\n"},
                                      {"SELECT count(*) FROM AE_AECData", "3|\n"}}) {
    EXPECT_EQ(textOf(database, sql), expected) << sql;
  }
}

/// By one of the two alone they would look at a share of all rows for each row.
TEST_F(Exports, ViewsJoinByCaptureAndCamera) {
  run(ExportFormat::kSqlite);
  for (const char* view : {"exposure", "white_balance"}) {
    const std::string plan =
        textOf(out(ExportFormat::kSqlite), std::string("EXPLAIN QUERY PLAN SELECT * FROM ") + view);
    EXPECT_NE(plan.find("(capture=? AND camera=?)"), plan.npos) << plan;
    EXPECT_EQ(plan.find("(camera=?)"), plan.npos) << plan;
  }
}

TEST_F(Exports, AppendKnowsFilesByTheirBytes) {
  for (const ExportFormat format : kFormats) {
    run(format);
    for (const char* name : {"q\xff", "q\xfe"}) {
      fs::copy(folder.path() + "/data/IMG_0", folder.path() + "/data/" + name);
      for (const auto& entry : fs::directory_iterator(folder.path() + "/data/" + name)) {
        change(entry.path(), '6', 1);
      }
      EXPECT_EQ(run(format, true).rows, 4U) << nameOf(format);
    }
    const std::string longer = std::string("data/q\xff/") + kAec;
    folder.write(longer, "<x/>");
    change(folder.path() + "/" + longer, '6', 1);  // another size at the same time
    EXPECT_EQ(run(format, true).rows, 1U) << nameOf(format);
    for (const char* name : {"q\xff", "q\xfe"}) fs::remove_all(folder.path() + "/data/" + name);
  }
}

TEST_F(Exports, GoToDatabasesThatHaveALogBesideThem) {
  run(ExportFormat::kSqlite);
  const std::string odd = folder.path() + "/a%20?#b.db";
  fs::rename(out(ExportFormat::kSqlite), odd);
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(odd.c_str(), &database), SQLITE_OK);
  sqlite3_exec(database, "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
  sqlite3_close(database);
  const auto append = [&] {
    return exportTables(CaptureList(folder.path() + "/data"),
                        {ExportFormat::kSqlite, odd, false, true}, [] {})
        .rows;
  };
  EXPECT_EQ(append(), 0U);
  EXPECT_FALSE(fs::exists(odd + "-wal") || fs::exists(odd + "-shm"));
  folder.write("a%20?#b.db-wal", "");
  EXPECT_EQ(append(), 0U);
  folder.write("a%20?#b.db-wal", "not empty");
  EXPECT_THROW(append(), Error);
}

TEST_F(Exports, ReplaceNothingThatIsNoExport) {
  for (const ExportFormat format : kFormats) {
    const bool folders = format != ExportFormat::kSqlite;
    const std::string mine =
        folders ? std::string(nameOf(format)) + "/AE_AECData/mine.txt" : "sqlite";
    folder.write(mine, "mine");
    EXPECT_THROW(run(format), Error);
    EXPECT_THROW(run(format, true), Error);
    EXPECT_EQ(contentOf(folder.path() + "/" + mine), "mine");
    fs::remove_all(out(format));
    if (folders) fs::create_directory(out(format));
    EXPECT_EQ(run(format).rows, 24U);  // nothing there, or an empty folder
    // Neither a database of somebody else's nor an export of another format.
    ExportWishes other = {folders ? ExportFormat::kSqlite : ExportFormat::kCsv, out(format)};
    EXPECT_THROW(exportTables(std::vector<Capture>{}, other, [] {}), Error);
    if (folders) {
      folder.write(std::string(nameOf(format)) + "/AWB_OTPData/camera=0/notes", "mine");
      EXPECT_THROW(run(format), Error);
      fs::remove(out(format) + "/AWB_OTPData/camera=0/notes");
      other.format = format == ExportFormat::kCsv ? ExportFormat::kJsonLines : ExportFormat::kCsv;
      EXPECT_THROW(exportTables(std::vector<Capture>{}, other, [] {}), Error);
    }
    EXPECT_EQ(run(format, true).rows, 0U);
    // Nothing is left beside it.
    for (const auto& entry : fs::directory_iterator(folder.path())) {
      EXPECT_NE(entry.path().filename().string()[0], '.') << entry;
    }
  }
  sqlite3* database = nullptr;
  sqlite3_open((folder.path() + "/foreign").c_str(), &database);
  sqlite3_exec(database, "CREATE TABLE a (b)", nullptr, nullptr, nullptr);
  sqlite3_close(database);
  EXPECT_THROW(exportTables(std::vector<Capture>{},
                            {ExportFormat::kSqlite, folder.path() + "/foreign"}, [] {}),
               Error);
}

TEST_F(Exports, GoNowhereElse) {
  const std::string link = folder.path() + "/link", loop = out(ExportFormat::kCsv) + "/loop";
  fs::create_symlink(folder.path() + "/nowhere", link);
  for (const ExportFormat format : kFormats) {
    for (const std::string& place : {std::string(), link}) {
      EXPECT_THROW(exportTables(std::vector<Capture>{}, {format, place}, [] {}), Error) << place;
    }
  }
  EXPECT_TRUE(fs::is_symlink(link));
  run(ExportFormat::kCsv);
  folder.write("csv/AWB_OTPData/part-2147483647.csv", "");
  EXPECT_THROW(run(ExportFormat::kCsv, true), Error);
  fs::remove(out(ExportFormat::kCsv) + "/AWB_OTPData/part-2147483647.csv");
  fs::create_symlink("loop", loop);
  EXPECT_THROW(run(ExportFormat::kCsv, true), Error);
}

TEST_F(Exports, OfNamedCapturesTakeEachFolderOnceAndFailWithOne) {
  const std::string data = folder.path() + "/data/", gone = folder.path() + "/gone";
  fs::create_directory_symlink(data + "IMG_0", folder.path() + "/same");
  folder.write("gone", "no folder");
  for (const ExportFormat format : kFormats) {
    const ExportWishes wishes = {format, out(format)};
    const Capture one = {"IMG_0", data + "IMG_0"};
    EXPECT_EQ(
        exportTables({one, {"./same", folder.path() + "/same"}, {"d", data + "../data/IMG_0"}},
                     wishes, [] {})
            .rows,
        4U);
    const auto before = picture(out(format));
    EXPECT_THROW(exportTables({one, {"gone", gone}}, wishes, [] {}), Error);
    EXPECT_EQ(picture(out(format)), before);
  }
}

TEST_F(Exports, KilledAtAnyMomentAreWholeTheNextTime) {
  for (const ExportFormat format : kFormats) {
    for (const bool append : {false, true}) {
      run(format);
      const auto first = picture(out(format));
      addCapture(9);
      run(format, append);
      const auto whole = picture(out(format));
      fs::remove_all(out(format));
      fs::remove_all(folder.path() + "/data/IMG_9");
      run(format);
      addCapture(9);
      // Times of files are in it: both ways have the same ones.
      const auto touch = [&] {
        for (const auto& entry : fs::directory_iterator(folder.path() + "/data/IMG_9")) {
          const timespec times[2] = {};
          utimensat(AT_FDCWD, entry.path().c_str(), times, 0);
        }
      };
      touch();
      const std::string older = folder.path() + "/older";
      fs::copy(out(format), older, fs::copy_options::recursive);
      run(format, append);
      const auto expected = picture(out(format));
      EXPECT_EQ(expected.size(), whole.size());
      for (unsigned int round = 0; round < 12; ++round) {
        fs::remove_all(out(format));
        fs::copy(older, out(format), fs::copy_options::recursive);
        const pid_t child = fork();
        if (child == 0) {
          run(format, append);
          _exit(0);
        }
        usleep(round * 700);
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        const auto left = picture(out(format));
        EXPECT_TRUE(left == first || left == expected) << nameOf(format) << ' ' << round;
        run(format, append);
        EXPECT_EQ(picture(out(format)), left == expected && append ? left : expected);
      }
      fs::remove_all(older);
      fs::remove_all(out(format));
      fs::remove_all(folder.path() + "/data/IMG_9");
    }
  }
}

TEST_F(Exports, EndedByASignalLeaveNoDraft) {
  const std::string data = folder.path() + "/data/", draft = folder.path() + "/.csv.simrec";
  for (int i = 10; i < 1000; ++i) {
    fs::copy(data + "IMG_0", data + "IMG_" + std::to_string(i),
             fs::copy_options::create_hard_links);
  }
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    int status = 0;
    // On a busy machine it may come when all is done.
    for (int attempt = 0; attempt < 100 && status == 0; ++attempt) {
      fs::remove_all(out(ExportFormat::kCsv));
      const pid_t child = fork();
      if (child == 0) {
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        execl(SIMREC_PROGRAM, "simrec", "--data", data.c_str(), "export", "--format", "csv", "-o",
              out(ExportFormat::kCsv).c_str(), nullptr);
        _exit(127);
      }
      siginfo_t ended = {};
      while (!fs::exists(draft) && ended.si_pid == 0) {
        waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOHANG | WNOWAIT);
      }
      kill(child, signal);
      waitpid(child, &status, 0);
    }
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
    EXPECT_FALSE(fs::exists(draft));
    EXPECT_FALSE(fs::exists(out(ExportFormat::kCsv)));
  }
}

TEST_F(Exports, OnAFullDiskLeaveWhatThereWas) {
  // A name that is too long for its folder, as any place where nothing can be made.
  const ExportWishes wishes = {ExportFormat::kCsv, folder.path() + "/missing/out"};
  EXPECT_THROW(exportTables(std::vector<Capture>{}, wishes, [] {}), Error);
  EXPECT_FALSE(fs::exists(folder.path() + "/missing"));
  // What is thrown on the way.
  for (const ExportFormat format : kFormats) {
    run(format);
    const auto before = picture(out(format));
    const auto fail = [] { throw Error("no space"); };
    EXPECT_THROW(run(format, false, true, fail), Error);
    EXPECT_EQ(picture(out(format)), before);
    EXPECT_THROW(exportTables(
                     CaptureList(folder.path() + "/data"), {format, out(format)}, [] {}, fail),
                 Error);
    EXPECT_EQ(picture(out(format)), before);
  }
}

TEST(PartFiles, AreOfBoundedSize) {
  const TempFolder folder;
  const std::vector<Table> tables = makeTables(false);
  PartFiles parts(folder.path() + "/new", "csv");
  parts.begin(tables);
  const std::string lines(3 << 20, 'x');
  for (int i = 0; i < 25; ++i) {
    for (const int camera : {0, 11}) parts.add(tables[0], camera, "head\n", lines);
  }
  for (int camera = 100; camera < 400; ++camera) parts.add(tables[0], camera, "head\n", "x");
  parts.add(tables[0], 100, "head\n", "y");
  parts.end();
  const std::string name = folder.path() + "/new/AE_AECData/camera=";
  for (const auto& [part, bytes] : {std::pair{"0/part-00000.csv", 5 + (33 << 20)},
                                    {"11/part-00001.csv", 5 + (33 << 20)},
                                    {"11/part-00002.csv", 5 + (9 << 20)},
                                    {"100/part-00000.csv", 7}}) {
    EXPECT_EQ(fs::file_size(name + part), static_cast<std::uintmax_t>(bytes)) << part;
  }
}

}  // namespace
