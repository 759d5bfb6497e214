// Any file as a record of any kind, read, printed and compared as simrec does it. The first byte
// chooses the kind.
#include <stdlib.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "simrec/comparison.h"
#include "simrec/json.h"
#include "simrec/record.h"
#include "simrec/text.h"

namespace {

using namespace simrec;

void require(bool holds, const char* claim) {
  if (holds) return;
  std::fprintf(stderr, "not true: %s\n", claim);
  std::abort();
}

/// In memory, and gone with the process.
struct Folder {
  Folder() { require(mkdtemp(path.data()) != nullptr, "a folder can be made"); }
  ~Folder() { std::filesystem::remove_all(path); }
  std::string path = "/dev/shm/fuzz_simrecXXXXXX";
};

void write(const std::string& path, std::string_view text) {
  std::ofstream(path, std::ios::binary)
      .write(text.data(), static_cast<std::streamsize>(text.size()));
}

/// The file as show prints it; what it tells may stand on a terminal.
void show(const std::string& folder, const File& file, bool lists) {
  const Record record = readRecord(folder, file, {true, lists});
  std::string text;
  appendValues(text, record, lists);
  require(Json::accept(text), "the values are JSON");
  for (const std::string& problem : record.problems) {
    require(printable(problem) == problem, "problems can be printed");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Folder own;
  const std::string& folder = own.path;
  if (size == 0) return 0;
  const auto& kind = catalogue::kinds()[data[0] % catalogue::kinds().size()];
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  write(folder + "/a", text);
  write(folder + "/b", text.substr(0, text.size() / 2));
  RecordPair pair;
  pair.a = File{"a", catalogue::FileName{&kind}};
  show(folder, *pair.a, true);
  show(folder, *pair.a, false);
  pair.b = pair.a;
  require(compareRecords(folder, folder, pair).outcome == Outcome::kSame, "a file is as itself");
  pair.b->name = "b";
  compareRecords(folder, folder, pair, {1e-3, 0});
  return 0;
}
