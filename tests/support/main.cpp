// Every test process works on its own, empty /data/vendor/camera.
#include <gtest/gtest.h>
#include <private_data.h>
#include <sys/stat.h>

#include <cstdio>

// What the sanitizers' runtimes look for in a program.
#define SANITIZER_HOOK extern "C" __attribute__((visibility("default"))) const char*

// What stays allocated on purpose. The XML library keeps no
// frame pointers: only full stacks tell its leaks apart.
SANITIZER_HOOK __lsan_default_suppressions();
SANITIZER_HOOK __lsan_default_suppressions() {
  return "leak:SimulationForAWBExtExposure\n"
         "leak:readQsegImageData\n"
         "leak:runFlatRecord\n";
}
SANITIZER_HOOK __asan_default_options();
SANITIZER_HOOK __asan_default_options() { return "fast_unwind_on_malloc=0"; }

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!testing::GTEST_FLAG(list_tests)) {
    const std::string problem = simulation_host::useEmptyCameraData();
    if (!problem.empty()) {
      std::fprintf(stderr, "the tests need a private /data: %s\n", problem.c_str());
      return 2;
    }
    umask(0);
  }
  return RUN_ALL_TESTS();
}
