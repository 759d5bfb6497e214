#include "standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace simulation_host {

void holdStandardStreams() {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    if (fcntl(stream, F_GETFD) != -1) continue;
    // The lowest number that is free is this one's; open the other way round it still fails.
    if (open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream) return;
  }
}

bool outputArrived(const char* program) {
  errno = 0;
  if (std::fflush(stdout) == 0 && !std::ferror(stdout)) return true;
  // What could not be written before is known without its reason.
  std::fprintf(stderr, "%s: stdout did not take all output: %s\n", program,
               errno == 0 ? "it was closed or is full" : std::strerror(errno));
  return false;
}

}  // namespace simulation_host
