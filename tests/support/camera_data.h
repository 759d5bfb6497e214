// A test that works on /data/vendor/camera, which is private to the test
// process and empty when a test starts.
#pragma once

#include <gtest/gtest.h>
#include <private_data.h>
#include <simulation/simulation.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/support/platform.h"

inline const std::string kCamera = "/data/vendor/camera/";

/// The request and camera of record operations, and where their dumps go.
inline constexpr unsigned int kRequest = 12;
inline constexpr unsigned int kCamId = 3;
inline const std::string kTmpFolder = "tmp/RequestID[12]_camId[3]/";
inline const std::string kImageFolder = "IMG_0001/";

using Names = std::vector<std::string>;

void clearCameraData();

class CameraDataTest : public testing::Test {
 protected:
  CameraDataTest() {
    clearCameraData();
    takeLog();
  }
};

inline Simulation& sim() { return *SimulationMgr::getInstance(); }

SimulationInfo infoFor(std::uint32_t mode, const char* folderName = "IMG_0001");

void writeFile(const std::string& path, const std::string& bytes);
std::string readFile(const std::string& path);

/// A file of tests/golden. What stands in it between the lines "repeat FIRST LAST" and
/// "end" is there once for each number n of these; {n}, and {n+1%50} and the like, reckoned
/// from left to right, stand for what they come to.
std::string golden(const std::string& name);

/// Plays a file of tests/golden: calls, each followed by what came of it, in lines
/// that begin with "=": what `perform` writes, then the log; false where it knows no
/// such call. In brackets: whatever comes of it. Of its own it does
///     put FILE [CONTENT]    makes a file and its folders; the content is its path
///     link TARGET FILE
///     remove FILE           or a folder with all that is in it
///     rights FILE
///     files                 shows all names, and contents that are not their path
void playGolden(const std::string& name,
                const std::function<bool(const Names& words, std::ostream& out)>& perform);

/// Makes the call of that name; false where there is none.
bool call(const std::string& name, const std::map<std::string, std::function<void()>>& calls);

/// All files and folders below `folder`, relative to it, sorted; folders end in "/".
Names tree(const std::string& folder = kCamera);

/// `text` with `by` instead of each `word`.
std::string replaced(std::string text, const std::string& word, const std::string& by);

/// Bytes that differ from place to place, and from seed to seed.
std::string pattern(std::size_t size, unsigned int seed);

/// For tests that mount, ReadOnlyCameraData's among them.
#define SKIP_WHERE_NOTHING_CAN_BE_MOUNTED() \
  if (!simulation_host::hasPrivateView()) GTEST_SKIP() << "nothing can be mounted"

/// While it lives, nothing can be created or changed below /data/vendor/camera.
class ReadOnlyCameraData {
 public:
  ReadOnlyCameraData();
  ~ReadOnlyCameraData();
};
