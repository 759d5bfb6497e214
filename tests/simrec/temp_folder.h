// A folder of a test's own, which goes with it.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>

class TempFolder {
 public:
  TempFolder() { EXPECT_NE(mkdtemp(path_.data()), nullptr); }
  ~TempFolder() { std::filesystem::remove_all(path_); }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& path() const { return path_; }

  /// Writes a file, and the folders that lead to it; returns its path.
  std::string write(const std::string& name, const std::string& content) const {
    const std::string path = path_ + "/" + name;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << content;
    return path;
  }

 private:
  std::string path_ = "/tmp/simrec_testXXXXXX";
};
