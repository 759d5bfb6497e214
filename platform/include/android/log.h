// The part of the Android log that libsimulation uses. On a device the
// platform's own header of this name is used instead.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

enum android_LogPriority {
  ANDROID_LOG_VERBOSE = 2,
  ANDROID_LOG_DEBUG = 3,
  ANDROID_LOG_INFO = 4,
  ANDROID_LOG_WARN = 5,
  ANDROID_LOG_ERROR = 6,
};

/// Writes one message under `tag`. Returns a positive value when it was written.
int __android_log_print(int priority, const char* tag, const char* format, ...)
    __attribute__((__format__(printf, 3, 4)));

#ifdef __cplusplus
}
#endif
