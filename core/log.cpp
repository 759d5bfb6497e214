#include "core/log.h"

#include <android/log.h>
#include <cutils/properties.h>

#include <cstdarg>
#include <cstdio>

namespace simulation {
namespace {

int threshold() {
  static const int value =
      property_get_int32("persist.vendor.camera.simulation.loglevel", kVerbose);
  return value;
}

}  // namespace

void SimulationLog(int level, const char* format, ...) {
  if (threshold() > level) return;
  char text[1024] = {};
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  __android_log_print(level, "[SIMULATION]", "%s", text);
}

}  // namespace simulation
