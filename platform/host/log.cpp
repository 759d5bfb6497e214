// The Android log on a workstation: one line on stderr for each message, as
// `logcat -v brief` prints it.
#include <android/log.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdio>

namespace {

char letterOf(int priority) {
  constexpr char kLetters[] = "??VDIWEF";
  return priority >= 0 && priority < 8 ? kLetters[priority] : '?';
}

}  // namespace

int __android_log_print(int priority, const char* tag, const char* format, ...) {
  char text[1024];
  va_list arguments;
  va_start(arguments, format);
  vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  return fprintf(stderr, "%c/%-8s(%5d): %s\n", letterOf(priority), tag, getpid(), text);
}
