#include "tests/support/camera_data.h"

#include <sys/mount.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <sstream>

namespace fs = std::filesystem;

void clearCameraData() {
  for (const auto& entry : fs::directory_iterator(kCamera)) fs::remove_all(entry.path());
}

SimulationInfo infoFor(std::uint32_t mode, const char* folderName) {
  return {{0xA5, 0xA5, 0xA5, 0xA5, 0xA5, 0xA5, 0xA5, 0xA5}, folderName, mode};
}

void writeFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return "there is no " + path;
  return (std::ostringstream() << file.rdbuf()).str();
}

namespace {

/// `text` with what its braces come to.
std::string counted(std::string text, int n) {
  for (std::size_t at; (at = text.find("{n")) != text.npos;) {
    std::istringstream formula(text.substr(at + 2));
    double is = n, by;
    for (char o; formula >> o && o != '}' && formula >> by;) {
      is = o == '*' ? is * by : o == '%' ? std::fmod(is, by) : is + (o == '-' ? -by : by);
    }
    const std::string number = (std::ostringstream() << std::setprecision(9) << is).str();
    text.replace(at, text.find('}', at) + 1 - at, number);
  }
  return text;
}

}  // namespace

std::string golden(const std::string& name) {
  const std::string path = SIMULATION_GOLDEN_FOLDER + name;
  EXPECT_TRUE(fs::exists(path) && fs::file_size(path) != 0) << path << " holds nothing";
  std::string text = '\n' + readFile(path);
  for (std::size_t at; (at = text.find("\nrepeat ")) != text.npos;) {
    const std::size_t begin = text.find('\n', at + 1), end = text.find("\nend\n", begin);
    std::string all;
    std::istringstream range(text.substr(at + 8, begin - at));
    int n, last;
    for (range >> n >> last; n <= last; ++n) all += counted(text.substr(begin, end - begin), n);
    text.replace(at, end + 4 - at, all);
  }
  return text.substr(1);
}

bool call(const std::string& name, const std::map<std::string, std::function<void()>>& calls) {
  const auto found = calls.find(name);
  if (found != calls.end()) found->second();
  return found != calls.end();
}

Names tree(const std::string& folder) {
  Names names;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::string name = entry.path().lexically_relative(folder).string();
    std::error_code loop;
    names.push_back(entry.is_directory(loop) ? name + "/" : name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string replaced(std::string text, const std::string& word, const std::string& by) {
  for (std::size_t at = 0; (at = text.find(word, at)) != std::string::npos; at += by.size()) {
    text.replace(at, word.size(), by);
  }
  return text;
}

std::string pattern(std::size_t size, unsigned int seed) {
  std::string bytes(size, '\0');
  unsigned int state = seed * 2654435761U + 1;
  for (char& byte : bytes) {
    state = state * 1664525U + 1013904223U;
    byte = static_cast<char>(state >> 24);
  }
  return bytes;
}

static void remount(unsigned long flags) {
  const int result =
      mount(nullptr, kCamera.c_str(), nullptr, MS_REMOUNT | MS_BIND | flags, nullptr);
  EXPECT_EQ(result, 0) << std::strerror(errno);
}

ReadOnlyCameraData::ReadOnlyCameraData() { remount(MS_RDONLY); }
ReadOnlyCameraData::~ReadOnlyCameraData() { remount(0); }
