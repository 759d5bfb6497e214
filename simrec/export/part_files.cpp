#include "simrec/export/part_files.h"

#include <fcntl.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <fstream>

#include <fmt/format.h>

#include "simrec/error.h"
#include "simrec/export/row_text.h"

namespace simrec {
namespace {

namespace fs = std::filesystem;

/// A part that has as many bytes is followed by another one.
constexpr std::uint64_t kPartBytes = 32 << 20;

/// More files than this are not held open.
constexpr std::size_t kMostOpen = 200;

/// As much of a part is written at once.
constexpr std::size_t kWriteBytes = 16 << 10;

constexpr char kSchema[] = "_schema.json";
constexpr std::string_view kPart = "part-";

[[noreturn]] void fail(const std::string& path) { throw Error(path + ": " + std::strerror(errno)); }

void makeFolder(const std::string& path) {
  std::error_code error;
  fs::create_directories(path, error);
  if (error) throw Error(path + ": " + error.message());
}

/// No export has as many parts as this.
constexpr int kMostParts = 1'000'000'000;

/// The number of the part that is called so; none: it is no part.
std::optional<int> partNumber(std::string_view name, std::string_view extension) {
  if (name.substr(0, kPart.size()) != kPart) return std::nullopt;
  int number = 0;
  const char* const end = name.data() + name.size();
  const auto [rest, error] = std::from_chars(name.data() + kPart.size(), end, number);
  const std::string_view left(rest, static_cast<std::size_t>(end - rest));
  const bool is = error == std::errc() && number >= 0 && number < kMostParts &&
                  left.substr(0, 1) == "." && left.substr(1) == extension;
  return is ? std::optional(number) : std::nullopt;
}

}  // namespace

void forEachBelow(const std::string& folder,
                  const std::function<void(const fs::directory_entry&)>& visit) {
  try {
    for (const auto& entry : fs::recursive_directory_iterator(folder)) visit(entry);
  } catch (const fs::filesystem_error& error) {
    const std::string& path = error.path1().string();
    throw Error((path.empty() ? folder : path) + ": " + error.code().message());
  }
}

void PartFiles::begin(const std::vector<Table>& tables) const {
  for (const Table& table : tables) {
    const std::string path = folder_ + "/" + table.kind->name;
    makeFolder(path);
    std::ofstream file(path + "/" + kSchema, std::ios::binary);
    file << schemaOf(table);
    file.close();
    if (!file) fail(path);
  }
}

bool PartFiles::knows(const std::string& name) const {
  const fs::path path = name;
  const std::string kind = path.begin()->string();
  if (catalogue::kindNamed(kind) == nullptr) return false;
  const std::string file = path.filename().string();
  const std::string between = path.parent_path().lexically_relative(kind).string();
  if (file == kSchema) return between == ".";
  const bool camera = between.rfind("camera=", 0) == 0 && between.find('/') == between.npos;
  return (between == "." || camera) && partNumber(file, extension_).has_value();
}

void PartFiles::share(const std::string& folder) {
  forEachBelow(folder, [&](const fs::directory_entry& entry) {
    const auto number = partNumber(entry.path().filename().string(), extension_);
    if (!number || !entry.is_regular_file()) return;
    const std::string partition = entry.path().parent_path().lexically_relative(folder).string();
    const fs::path target = fs::path(folder_) / partition / entry.path().filename();
    makeFolder(target.parent_path().string());
    std::error_code error;
    fs::create_hard_link(entry.path(), target, error);
    if (error) fs::copy_file(entry.path(), target, error);
    if (error) throw Error(target.string() + ": " + error.message());
    Part& part = parts_[partition];
    part.number = std::max(part.number, *number + 1);
  });
}

void PartFiles::add(const Table& table, std::optional<int> camera, const std::string& head,
                    const std::string& lines) {
  const std::string name = partition(table, camera);
  Part& part = parts_[name];
  if (part.bytes >= kPartBytes) {
    close(part, name);
    part.bytes = 0;
    ++part.number;
  }
  if (part.file == nullptr) open(part, name);
  if (part.bytes == 0) part.waiting = head;
  part.bytes += part.bytes == 0 ? head.size() : 0;
  part.waiting += lines;
  part.bytes += lines.size();
  if (part.waiting.size() >= kWriteBytes) flush(part, name);
}

void PartFiles::flush(Part& part, const std::string& partition) const {
  if (!writeAll(*part.file, part.waiting.data(), part.waiting.size())) {
    fail(folder_ + "/" + partition);
  }
  part.waiting.clear();
}

void PartFiles::end() {
  for (auto& [name, part] : parts_) close(part, name);
}

std::string PartFiles::partition(const Table& table, std::optional<int> camera) const {
  return camera ? fmt::format("{}/camera={}", table.kind->name, *camera) : table.kind->name;
}

void PartFiles::open(Part& part, const std::string& partition) {
  if (open_ == kMostOpen) end();
  const std::string folder = folder_ + "/" + partition;
  const std::string path = fmt::format("{}/{}{:05}.{}", folder, kPart, part.number, extension_);
  makeFolder(folder);
  part.file = std::make_unique<simulation::FileDescriptor>(
      ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666));
  if (!part.file->valid()) fail(path);
  ++open_;
}

void PartFiles::close(Part& part, const std::string& partition) {
  if (part.file == nullptr) return;
  flush(part, partition);
  part.waiting.shrink_to_fit();
  const bool whole = part.file->close();
  part.file.reset();
  --open_;
  if (!whole) fail(folder_ + "/" + partition);
}

}  // namespace simrec
