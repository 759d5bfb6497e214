#include "tests/support/camera_data.h"

#include <sys/mount.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

CameraDataTest::CameraDataTest() {
  clearCameraData();
  takeLog();
}

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

std::string golden(const std::string& name) { return readFile(SIMULATION_GOLDEN_FOLDER + name); }

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
  for (std::size_t at; (at = text.find(word)) != std::string::npos;) {
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

namespace {

void remount(unsigned long flags) {
  if (mount(nullptr, kCamera.c_str(), nullptr, MS_REMOUNT | MS_BIND | flags, nullptr) != 0) {
    ADD_FAILURE() << "remounting: " << std::strerror(errno);
  }
}

}  // namespace

ReadOnlyCameraData::ReadOnlyCameraData() { remount(MS_RDONLY); }
ReadOnlyCameraData::~ReadOnlyCameraData() { remount(0); }
