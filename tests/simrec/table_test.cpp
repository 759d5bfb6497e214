// Rows of tables are what readRecord() tells of the same files, whichever way they were read; and
// work over several threads is taken in order.
#include <simulation/records.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <cstring>
#include <map>
#include <random>
#include <thread>

#include "simrec/error.h"
#include "simrec/json.h"
#include "simrec/live_records.h"
#include "simrec/number.h"
#include "simrec/record.h"
#include "simrec/table/batches.h"
#include "simrec/table/list_proof.h"
#include "simrec/table/row_reader.h"
#include "simrec/table/sound_list.h"
#include "tests/simrec/temp_folder.h"

namespace {

using namespace simrec;
using catalogue::Kind;

/// The members of a document of show's under the names of columns. Lists are left whole.
void flatten(const Json& values, const std::string& path, std::map<std::string, Json>& flat) {
  for (const auto& [name, value] : values.items()) {
    if (value.is_object()) {
      flatten(value, path + name + "_", flat);
    } else if (value.is_array() && !value.empty() && value[0].is_object()) {
      for (std::size_t i = 0; i < value.size(); ++i) {
        flatten(value[i], path + name + "_" + std::to_string(i) + "_", flat);
      }
    } else {
      flat[path + name] = value;
    }
  }
}

Json jsonOf(const Cell& cell) {
  switch (cell.is) {
    case Cell::Is::kSigned:
    case Cell::Is::kTime:
      return static_cast<std::int64_t>(cell.integer);
    case Cell::Is::kUnsigned:
      return cell.integer;
    case Cell::Is::kDouble:
      if (!cell.text.empty()) {
        EXPECT_EQ(Json::parse(cell.text).get<double>(), cell.decimal);
      }
      return toJson(cell.decimal);
    case Cell::Is::kText:
      return std::string(cell.text);
    case Cell::Is::kList: {
      std::string text;
      appendNumbers(text, *cell.list);
      return Json::parse(text);
    }
    case Cell::Is::kNull:
      break;
  }
  return nullptr;
}

class Tables : public testing::Test {
 protected:
  /// The row of a file of that kind is what is in it, with lists and without.
  void check(const Kind& kind, const std::string& content) {
    File file;
    file.name = "record";
    file.parts = catalogue::FileName{&kind};
    file.bytes = content.size();
    folder.write("record", content);
    const Record record = readRecord(folder.path(), file);
    std::string text;
    appendValues(text, record, true);
    Json values = Json::parse(text);
    values.erase("hex");
    const Capture capture = {"C", folder.path()};
    for (const bool lists : {false, true}) {
      const Table table(kind, lists);
      readRow(capture, file, table, row);
      std::map<std::string, Json> flat;
      flatten(values, "", flat);
      for (std::size_t i = kLeads; i < table.columns.size(); ++i) {
        const auto found = flat.find(table.columns[i].name);
        ASSERT_EQ(jsonOf(row.cells[i]), found != flat.end() ? found->second : Json())
            << kind.name << '.' << table.columns[i].name << '\n'
            << content.substr(0, 2000);
      }
      std::string problem;
      for (const std::string& each : record.problems) {
        problem += (problem.empty() ? "" : "; ") + each;
      }
      ASSERT_EQ(row.problem, problem) << kind.name << '\n' << content.substr(0, 2000);
      if (row.problem.empty() && kind.format == catalogue::Format::kXml) ++soundRows;
      if (!row.record.opened) ++fastRows;
    }
  }

  const TempFolder folder;
  Row row;
  int soundRows = 0;              ///< rows of XML without a problem
  int fastRows = 0;               ///< rows that cost no document
  std::mt19937_64 generator{11};  // NOLINT: the same in every run
};

/// A file of that kind as the library writes it, with random numbers.
std::string dumped(const Kind& kind, const TempFolder& folder, std::mt19937_64& generator) {
  const Codec& codec = *codecOf(kind.name);
  std::vector<char> live(codec.size);
  const std::uint64_t mask = generator() % 2 == 0 ? ~std::uint64_t{0} : 0x3F8F0F1F3FFF007F;
  for (std::size_t at = 0; at + 8 <= live.size(); at += 8) {
    const std::uint64_t random = generator() & mask;
    std::memcpy(&live[at], &random, sizeof random);
  }
  if (kind.members[0].name == std::string("usesY")) {
    const auto regions = static_cast<std::uint32_t>(generator() % 1000);
    std::memcpy(&live[4], &regions, sizeof regions);
  }
  const std::string path = folder.path() + "/dumped";
  codec.dump(path.c_str(), live.data(), live.size());
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(Tables, HoldWhatTheFilesHold) {
  for (const Kind& kind : catalogue::kinds()) {
    if (kind.format != catalogue::Format::kXml) continue;
    const bool large = codecOf(kind.name)->size > 10000;
    for (int round = 0; round < (large ? 4 : 50); ++round) {
      check(kind, dumped(kind, folder, generator));
    }
  }
  EXPECT_EQ(fastRows, soundRows);  // what the library wrote is read the fast way
}

TEST_F(Tables, HoldWhatIsLeftOfDamagedFiles) {
  static constexpr std::string_view kPieces[] = {
      "<",    ">",        "/",     "\"",    " ",
      "\n",   "-",        "+",     ".",     "0",
      "9",    "256",      "e5",    "nan",   "&#49;",
      "x",    "<!-- -->", "<a/>",  "]",     std::string_view("\0", 1),
      "\xff", "00",       "1e400", "65536", "true"};
  for (const Kind& kind : catalogue::kinds()) {
    if (kind.format != catalogue::Format::kXml) continue;
    const bool large = codecOf(kind.name)->size > 10000;
    const std::string sound = dumped(kind, folder, generator);
    for (int round = 0; round < (large ? 15 : 200); ++round) {
      std::string text = sound;
      const std::size_t at = generator() % text.size();
      const std::size_t cut = generator() % 3 == 0 ? 1 : 0;
      switch (generator() % 8) {
        case 0:
          text.resize(at);
          break;
        case 1: {  // a piece of it once more
          const std::string again = text.substr(at, generator() % 200);
          text.insert(generator() % text.size(), again);
          break;
        }
        case 2:
          text.erase(at, generator() % 100);
          break;
        default:
          text.replace(at, cut, kPieces[generator() % std::size(kPieces)]);
      }
      check(kind, text);
    }
  }
}

/// What is proved, or read in one pass, is what reading finds; and what the library writes is.
TEST(ListProofs, AreNeverWrong) {
  std::mt19937_64 generator(5);  // NOLINT: the same in every run
  constexpr const char* kOdd[] = {"256",
                                  "300",
                                  "1000",
                                  "0255",
                                  "-1",
                                  " ",
                                  "1.5",
                                  "7\n",
                                  "7 ",
                                  "12345678",
                                  "123456789",
                                  "65536",
                                  "18446744073709551616",
                                  "99999999999999999999",
                                  "000000000000000000000000000000001"};
  constexpr std::pair<catalogue::Type, std::uint64_t> kTypes[] = {
      {catalogue::Type::kUint8, 256},
      {catalogue::Type::kUint16, 65536},
      {catalogue::Type::kUint32, 4'294'967'296},
      {catalogue::Type::kUint64, 1'000'000'000'000'000'000}};
  for (int round = 0; round < 40000; ++round) {
    const auto& [type, limit] = kTypes[generator() % std::size(kTypes)];
    const std::uint64_t below = std::min<std::uint64_t>(limit, generator() % 2 == 0 ? limit : 20);
    const std::size_t count = generator() % 200;
    const std::uint64_t odd = round % 4 == 0 ? count : generator() % (count + 8);
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
      text += i == odd ? kOdd[generator() % std::size(kOdd)] : std::to_string(generator() % below);
      text += ' ';
    }
    if (count > 0 && generator() % 4 == 0) text.pop_back();
    std::string problem;
    const NumberList list = parseList(text, type, 1000, problem);
    const bool sound = list.size() == count && problem.empty();
    const std::string element = text + "</RSum> 7 <BSum>";
    NumberList::Values values;
    const char* const read = readSoundList(element, type, count, values);
    const bool whole = read == element.data() + text.size();
    ASSERT_TRUE(!whole || (sound && values == list.values)) << text;
    ASSERT_TRUE(whole || odd < count || (count > 0 && text.back() != ' ')) << text;
    ASSERT_EQ(readSoundList(text, type, count + 1, values), nullptr) << text;
    if (type == catalogue::Type::kUint32) continue;  // is never proved
    const char* const end = endOfSoundList(element, type, count);
    const bool proved = end == element.data() + text.size();
    ASSERT_TRUE(sound || !proved) << text;
    ASSERT_TRUE(proved || odd < count) << text;
    ASSERT_TRUE(!proved || end == nullptr || *end == '<') << text;
    ASSERT_EQ(endOfSoundList(text, type, count + 1), nullptr) << text;
  }
}

/// No two names of a table's columns are the same to an engine that does not look at the case.
TEST(TableColumns, AreToldApart) {
  for (const Table& table : makeTables(true)) {
    std::map<std::string, int> names;
    for (const Column& column : table.columns) {
      std::string name = column.name;
      for (char& character : name) character = static_cast<char>(std::tolower(character));
      EXPECT_EQ(++names[name], 1) << table.kind->name << '.' << name;
    }
  }
}

TEST(InOrder, ResultsComeInTheOrderOfTheItemsAndLargeOnesAlone) {
  int next = 0, taken = 0;
  std::atomic<int> working = 0;
  const auto work = [&](int item) {
    const int others = working++;
    if (item % 50 == 3) {
      EXPECT_EQ(others, 0);
    }
    if (item % 4 == 0) std::this_thread::sleep_for(std::chrono::microseconds(300));
    --working;
    return item;
  };
  inOrder([&]() { return next < 500 ? std::optional<int>(next++) : std::nullopt; },
          [](int item) { return item % 50 == 3; }, work,
          [&](int result) { EXPECT_EQ(result, taken++); }, 4);
  EXPECT_EQ(taken, 500);
}

TEST(InOrder, WhatIsThrownEndsItAll) {
  for (const int thrower : {0, 1, 2}) {
    int next = 0;
    const auto failAt = [&](int who, int item) {
      if (who == thrower && item == 100) throw Error("100");
      return item;
    };
    EXPECT_THROW(
        inOrder([&]() { return std::optional<int>(failAt(0, next++)); }, [](int) { return false; },
                [&](int item) { return failAt(1, item); }, [&](int item) { failAt(2, item); }, 4),
        Error);
    EXPECT_LE(next, thrower == 0 ? 101 : 116);  // four for each of four cores wait
  }
}

}  // namespace
