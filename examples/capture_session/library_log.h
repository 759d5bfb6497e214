// Takes the library's log: this program defines the log function of the platform
// and so replaces its stand-in. Any thread may log.
#pragma once

#include <string>
#include <vector>

namespace capture {

/// Sets what the library logs; call it before the first operation. Unless lines
/// are to be `shown`, or the threshold was set by the user, only errors are logged.
void setUpLibraryLog(bool shown);

/// Whether error lines come at all: the user can silence the library.
bool libraryLogsErrors();

/// The error lines since the last call.
std::vector<std::string> takeErrorLines();

}  // namespace capture
