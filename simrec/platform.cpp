#include "simrec/platform.h"

#include <android/log.h>
#include <cutils/properties.h>

#include <cstdarg>
#include <cstdio>
#include <utility>

namespace simrec {
namespace {

thread_local const LogSink* currentSink = nullptr;

}  // namespace

LogCatcher::LogCatcher(LogSink sink)
    : sink_(std::move(sink)), previous_(std::exchange(currentSink, &sink_)) {}

LogCatcher::~LogCatcher() { currentSink = previous_; }

}  // namespace simrec

int __android_log_print(int priority, const char*, const char* format, ...) {
  if (simrec::currentSink == nullptr) return 1;
  char text[1024];  // the library's lines are shorter
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  (*simrec::currentSink)(priority, text);
  return 1;
}

int32_t property_get_int32(const char*, int32_t default_value) { return default_value; }
