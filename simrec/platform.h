// What the library takes from the device, for programs that are made of its objects:
// nothing is printed; its log goes to whoever asks for it.
#pragma once

#include <functional>
#include <string_view>

namespace simrec {

/// Takes a line of the library's log. The levels are the Android log's: 2 verbose,
/// 3 debug, 6 error.
using LogSink = std::function<void(int level, std::string_view text)>;

/// While it lives, what the library logs in this thread goes to `sink`, which must
/// not throw; else it is dropped. The last one made is the one that counts.
class LogCatcher {
 public:
  explicit LogCatcher(LogSink sink);
  ~LogCatcher();
  LogCatcher(const LogCatcher&) = delete;
  LogCatcher& operator=(const LogCatcher&) = delete;

 private:
  const LogSink sink_;
  const LogSink* const previous_;
};

}  // namespace simrec
