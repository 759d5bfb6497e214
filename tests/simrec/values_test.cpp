// What show prints is what a record held when the library dumped it, at the digits that its
// file has.
#include <simulation/records.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "simrec/json.h"
#include "simrec/live_records.h"
#include "simrec/record.h"
#include "tests/simrec/temp_folder.h"

namespace {

using namespace simrec;
using catalogue::Digits;
using catalogue::Member;
using catalogue::Members;
using catalogue::Shape;
using catalogue::Type;
using Bytes = std::vector<char>;

std::mt19937_64 generator(7);  // NOLINT: the same numbers in every run

template <typename Value>
Value read(const Bytes& bytes, std::size_t at) {
  Value value;
  std::memcpy(&value, &bytes[at], sizeof value);
  return value;
}

template <typename Value>
void store(Bytes& bytes, std::size_t at, Value value) {
  std::memcpy(&bytes[at], &value, sizeof value);
}

/// Any bits at all, an ordinary number, or one from the borders.
float randomFloat() {
  using Limits = std::numeric_limits<float>;
  constexpr float kBorders[] = {0.0F,
                                -0.0F,
                                Limits::max(),
                                Limits::lowest(),
                                Limits::min(),
                                Limits::denorm_min(),
                                -3e-42F,
                                Limits::quiet_NaN(),
                                -Limits::quiet_NaN(),
                                Limits::infinity(),
                                -Limits::infinity(),
                                16777216.0F,
                                0.1F};
  const std::uint64_t random = generator();
  if (random % 3 == 0) return kBorders[(random >> 8) % std::size(kBorders)];
  if (random % 3 == 1) return static_cast<float>(static_cast<int>(random >> 40)) / 1024;
  const auto bits = static_cast<std::uint32_t>(random >> 32);
  float value;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

/// Noise with zeros, ones only, and the borders of signed numbers among it.
std::uint64_t randomInteger() {
  constexpr std::uint64_t kBorders[] = {0,
                                        1,
                                        ~std::uint64_t{0},
                                        0x7FFFFFFF7FFFFFFF,
                                        0x8000000080000000,
                                        0x7FFFFFFFFFFFFFFF,
                                        0x8000000000000000};
  const std::uint64_t random = generator();
  return random % 2 == 0 ? random : kBorders[(random >> 8) % std::size(kBorders)];
}

void fillNumber(Bytes& live, const Member& member, std::size_t at) {
  if (member.type == Type::kFloat) return store(live, at, randomFloat());
  const std::uint64_t value = randomInteger();
  std::memcpy(&live[at], &value, sizeOf(member.type));
}

void fill(Bytes& live, const Members& members, std::size_t base) {
  for (const Member& member : members) {
    std::size_t at = base + member.offset;
    for (std::size_t i = 0; i < member.count; ++i, at += member.stride) {
      if (member.members.empty()) {
        fillNumber(live, member, at);
      } else {
        fill(live, member.members, at);
      }
    }
  }
}

/// The decimal that the file has of a float.
Json decimalOf(float value, Digits digits) {
  if (std::isnan(value)) return "nan";
  if (std::isinf(value)) return value < 0 ? "-inf" : "inf";
  constexpr const char* kFormats[] = {"%.8g", "%.6g", "%.6f"};
  char text[64];
  std::snprintf(text, sizeof text, kFormats[static_cast<int>(digits)], static_cast<double>(value));
  return std::strtod(text, nullptr);
}

Json numberAt(const Bytes& live, const Member& member, std::size_t at) {
  switch (member.type) {
    case Type::kUint8:
      return read<std::uint8_t>(live, at);
    case Type::kUint16:
      return read<std::uint16_t>(live, at);
    case Type::kUint32:
      return read<std::uint32_t>(live, at);
    case Type::kUint64:
      return read<std::uint64_t>(live, at);
    case Type::kInt32:
      return read<std::int32_t>(live, at);
    case Type::kFloat:
      break;
  }
  return decimalOf(read<float>(live, at), member.digits);
}

/// How many numbers of lists were dumped, and how far they are from each other, where the record
/// itself tells. Its flags are one word.
struct Grid {
  explicit Grid(const Bytes& live)
      : flags(read<std::uint32_t>(live, 0)), regions(read<std::uint32_t>(live, 4)) {}
  std::uint32_t flags, regions;
};

bool isGrid(const catalogue::Kind& kind) { return kind.members[0].name == std::string("usesY"); }

Json expected(const Bytes& live, const Members& members, std::size_t base, const Grid* grid) {
  Json values = Json::object();
  for (const Member& member : members) {
    if (member.replay == catalogue::Replay::kOnlyReplaced) continue;
    const std::size_t at = base + member.offset;
    const bool regions = grid != nullptr && member.carrier == catalogue::Carrier::kElement;
    const bool paired = regions && (grid->flags & BayerGridOutput::kHasSatInfo) != 0;
    const std::size_t count = regions ? grid->regions : member.count;
    Json& value = values[member.name];
    if (grid != nullptr && at == 0) {
      value = grid->flags >> (member.name == std::string("hasSatInfo") ? 1 : 0) & 1;
    } else if (member.shape == Shape::kNumber) {
      value = numberAt(live, member, at);
    } else if (member.shape == Shape::kGroup) {
      value = expected(live, member.members, at, nullptr);
    } else {
      value = Json::array();
      for (std::size_t i = 0; i < count; ++i) {
        const std::size_t item = at + i * (paired ? 2 : 1) * member.stride;
        value.push_back(member.shape == Shape::kList
                            ? numberAt(live, member, item)
                            : expected(live, member.members, item, nullptr));
      }
    }
  }
  return values;
}

TEST(SimrecValues, OfDumpedRecordsAreWhatWasPutIn) {
  const TempFolder folder;
  for (const catalogue::Kind& kind : catalogue::kinds()) {
    if (kind.format != catalogue::Format::kXml) continue;
    const Codec& codec = *codecOf(kind.name);
    const int rounds = codec.size > 10000 ? 4 : 100;
    for (int round = 0; round < rounds; ++round) {
      File file;
      file.parts = catalogue::FileName{&kind};
      file.name = std::string(kind.name) + "_" + std::to_string(round);
      Bytes live(codec.size);
      fill(live, kind.members, 0);
      if (isGrid(kind)) store(live, 4, static_cast<std::uint32_t>(generator() % 1000));
      codec.dump((folder.path() + "/" + file.name).c_str(), live.data(), live.size());
      const Record record = readRecord(folder.path(), file);
      EXPECT_TRUE(record.problems.empty()) << kind.name << ": " << record.problems.front();
      std::string text;
      appendValues(text, record, true);
      const auto grid = isGrid(kind) ? std::make_optional<Grid>(live) : std::nullopt;
      Json due = expected(live, kind.members, 0, grid ? &*grid : nullptr);
      if (due.contains("rGain")) due.update({{"width", kLscColumns}, {"height", kLscRows}});
      ASSERT_EQ(Json::parse(text), due) << kind.name;
    }
  }
}

}  // namespace
