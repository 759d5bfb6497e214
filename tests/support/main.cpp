// Every test process works on its own, empty /data/vendor/camera.
#include <gtest/gtest.h>
#include <private_data.h>
#include <sys/stat.h>

#include <cstdio>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!testing::GTEST_FLAG(list_tests)) {
    const std::string problem = simulation_host::useEmptyCameraData();
    if (!problem.empty()) {
      std::fprintf(stderr, "the tests need a /data/vendor/camera: %s\n", problem.c_str());
      return 2;
    }
    umask(0);
  }
  return RUN_ALL_TESTS();
}
