#include "tests/support/captured_log.h"

#include <android/log.h>

#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <utility>

namespace {

std::mutex mutex;
LogLines lines;

}  // namespace

int __android_log_print(int priority, const char* tag, const char* format, ...) {
  char text[4096];
  va_list arguments;
  va_start(arguments, format);
  const int length = vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  const bool known = std::string(tag) == "[SIMULATION]";
  const std::lock_guard<std::mutex> lock(mutex);
  lines.push_back({priority, known ? text : std::string("under another tag: ") + text});
  return length;
}

LogLines takeLog() {
  const std::lock_guard<std::mutex> lock(mutex);
  return std::exchange(lines, {});
}
