// What the sanitizers' runtimes look for in a program.
#define SANITIZER_HOOK extern "C" __attribute__((visibility("default"))) const char*

// What stays allocated on purpose. The XML library keeps no
// frame pointers: only full stacks tell its leaks apart.
SANITIZER_HOOK __lsan_default_suppressions();
SANITIZER_HOOK __lsan_default_suppressions() {
  return "leak:ExtExposure\n"
         "leak:readQsegImageData\n"
         "leak:FlatRecord\n"
         "leak:newWorkingCopy\n";
}
SANITIZER_HOOK __asan_default_options();
SANITIZER_HOOK __asan_default_options() { return "fast_unwind_on_malloc=0"; }
