// Golden files that hold calls.
#include <filesystem>
#include <iterator>
#include <sstream>

#include "tests/support/camera_data.h"

namespace fs = std::filesystem;

namespace {

void showFiles(std::ostream& out) {
  for (const std::string& name : tree()) {
    const std::string path = kCamera + name;
    const bool other = fs::is_regular_file(fs::symlink_status(path)) && readFile(path) != name;
    out << "= " << name << (other ? " has " + readFile(path) : "") << '\n';
  }
}

}  // namespace

void playGolden(const std::string& name,
                const std::function<bool(const Names& words, std::ostream& out)>& perform) {
  const std::string expected = golden(name);
  EXPECT_NE(expected.find("\n="), expected.npos) << name << " expects nothing";
  std::istringstream lines(expected);
  std::ostringstream found, whatever;
  for (std::string line; std::getline(lines, line);) {
    if (line[0] == '=') continue;
    found << line << '\n';
    EXPECT_EQ(line[0] == '(', line.back() == ')') << line;
    std::ostringstream& out = line[0] == '(' ? whatever : found;
    std::istringstream text(line[0] == '(' ? line.substr(1, line.size() - 2) : line);
    const Names words(std::istream_iterator<std::string>(text), {});
    const auto path = [&](std::size_t at) { return fs::path(kCamera + words.at(at)); };
    const auto put = [&] {
      fs::create_directories(path(1).parent_path());
      writeFile(path(1), words.back());
    };
    const auto rights = [&] { return static_cast<int>(fs::status(path(1)).permissions()); };
    const bool known =
        call(words[0],
             {{"put", put},
              {"link", [&] { fs::create_symlink(words[1], path(2)); }},
              {"remove", [&] { fs::remove_all(path(1)); }},
              {"rights", [&] { out << "= " << std::oct << rights() << std::dec << '\n'; }},
              {"files", [&] { showFiles(out); }}}) ||
        perform(words, out);
    EXPECT_TRUE(known) << name << ": no call is named " << words[0];
    for (const LogLine& logged : takeLog()) out << "= " << logged << '\n';
  }
  EXPECT_EQ(found.str(), expected) << name;
}
