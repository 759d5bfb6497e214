#include "library_log.h"

#include <android/log.h>
#include <cutils/properties.h>
#include <unistd.h>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <utility>

namespace capture {
namespace {

constexpr char kThreshold[] = "persist.vendor.camera.simulation.loglevel";

std::atomic<bool> showLines{false};
std::mutex errorsMutex;
std::vector<std::string> errors;

void takeLine(int priority, const char* tag, const char* text) {
  if (showLines) {
    std::fprintf(stderr, "%c/%-8s(%5d): %s\n", "??VDIWEF"[priority & 7], tag, getpid(), text);
  }
  if (priority < ANDROID_LOG_ERROR) return;
  const std::lock_guard lock(errorsMutex);
  errors.emplace_back(text);
}

}  // namespace

void setUpLibraryLog(bool shown) {
  showLines = shown;
  if (!shown) setenv(kThreshold, std::to_string(ANDROID_LOG_ERROR).c_str(), /*overwrite=*/0);
}

bool libraryLogsErrors() {
  return property_get_int32(kThreshold, ANDROID_LOG_VERBOSE) <= ANDROID_LOG_ERROR;
}

std::vector<std::string> takeErrorLines() {
  const std::lock_guard lock(errorsMutex);
  return std::exchange(errors, {});
}

}  // namespace capture

int __android_log_print(int priority, const char* tag, const char* format, ...) {
  char text[1024];
  va_list arguments;
  va_start(arguments, format);
  const int length = std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  capture::takeLine(priority, tag, text);
  return length;
}
