#include "simrec/journal.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>

#include "catalogue/file_name.h"
#include "simrec/error.h"
#include "simrec/json.h"

namespace simrec {
namespace {

using simulation::FileDescriptor;

/// What is larger is cut, and no journal then.
constexpr std::size_t kLargest = 64 << 20;

std::string textOf(const Directory& folder, const std::string& name, const FileDescriptor& file) {
  std::string text;
  std::array<char, 1 << 16> piece;
  for (;;) {
    bool failed = false;
    const std::size_t count = readUpTo(file, piece.data(), piece.size(), &failed);
    if (failed) folder.fail(name);
    text.append(piece.data(), count);
    if (count < piece.size() || text.size() > kLargest) return text;
  }
}

/// The number of which `digits` are the hexadecimal ones. Throws what is no number.
std::uint64_t numberOf(std::string_view digits) {
  std::uint64_t number = 0;
  const char* const end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, number, 16);
  if (digits.empty() || result.ec != std::errc() || result.ptr != end) throw Error("no number");
  return number;
}

JournalEntry entryFrom(const Json& json) {
  JournalEntry entry = {nameIn(json, "file", "fileBytes"),
                        {json.at("bytes"), numberOf(std::string(json.at("hash")))}};
  const bool staged = entry.file.rfind(catalogue::kRecordPrefix, 0) == 0;
  if (!staged || entry.file.find('/') != entry.file.npos ||
      entry.file.find('\0') != entry.file.npos) {
    throw Error("no record");
  }
  return entry;
}

Journal journalFrom(const Json& json) {
  if (json.at("schema") != 1) throw Error("another schema");
  Journal journal = {nameIn(json, "from", "fromBytes"), json.at("since"), json.at("folder"), {}};
  if (journal.folder != 0 && journal.folder != 1) throw Error("no folder");
  for (const Json& entry : json.at("files")) journal.files.push_back(entryFrom(entry));
  return journal;
}

Json toJson(const Journal& journal) {
  Json json = {{"schema", 1}};
  setName(json, "from", "fromBytes", journal.from);
  json["since"] = journal.since;
  json["folder"] = journal.folder;
  Json& files = json["files"] = Json::array();
  for (const JournalEntry& entry : journal.files) {
    Json& file = files.emplace_back();
    setName(file, "file", "fileBytes", entry.file);
    file["bytes"] = entry.content.bytes;
    file["hash"] = fmt::format("{:016x}", entry.content.hash);
  }
  return json;
}

}  // namespace

std::optional<Journal> readJournal(const Directory& folder, const std::string& name) {
  const FileDescriptor file(folder.open(name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK));
  if (!file.valid() && errno == ENOENT) return std::nullopt;
  if (!file.valid()) folder.fail(name);
  const std::string text = textOf(folder, name, file);
  try {
    return journalFrom(Json::parse(text));
  } catch (const std::exception&) {
    throw Error(folder.pathOf(name) + ": not as simrec writes it");
  }
}

void writeJournal(const Journal& journal, const Directory& folder, const std::string& name) {
  const std::string text = toJson(journal).dump() + "\n";
  if (text.size() > kLargest) throw Error("these are too many files to stage at once");
  FileDescriptor file(folder.open(name, O_WRONLY | O_CREAT | O_EXCL, 0666));
  const bool written = file.valid() && writeAll(file, text.data(), text.size());
  if (!written || fsync(file.get()) != 0 || !file.close()) folder.fail(name);
}

}  // namespace simrec
