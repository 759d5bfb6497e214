// A test that works on /data/vendor/camera, which is private to the test
// process and empty when a test starts.
#pragma once

#include <gtest/gtest.h>
#include <simulation/simulation.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/captured_log.h"

inline const std::string kCamera = "/data/vendor/camera/";

class CameraDataTest : public testing::Test {
 protected:
  CameraDataTest();

  Simulation& simulation = *SimulationMgr::getInstance();
};

SimulationInfo infoFor(std::uint32_t mode, const char* folderName = "IMG_0001");

void writeFile(const std::string& path, const std::string& bytes);
std::string readFile(const std::string& path);

/// All files and folders below `folder`, relative to it, sorted; folders end in "/".
std::vector<std::string> tree(const std::string& folder = kCamera);

/// `text` without the first line that holds `part`.
std::string withoutLine(std::string text, const std::string& part);

/// What an independent XML reader finds at `xpath`; nothing where there is none.
std::optional<std::string> askXmllint(const std::string& xpath, const std::string& path);

/// Bytes that differ from place to place, and from seed to seed.
std::string pattern(std::size_t size, unsigned int seed);

/// While it lives, nothing can be created or changed below /data/vendor/camera.
class ReadOnlyCameraData {
 public:
  ReadOnlyCameraData();
  ~ReadOnlyCameraData();
};
