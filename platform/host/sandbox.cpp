// simulation_sandbox [--data DIR] COMMAND...: runs any program that links libsimulation
// with a /data/vendor/camera of its own.
#include <getopt.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

#include "private_data.h"

namespace {

constexpr char kUsage[] =
    "Usage: simulation_sandbox [--data DIR] COMMAND [ARGUMENT...]\n"
    "Runs the command with a /data/vendor/camera of its own: DIR (made if missing), or an\n"
    "empty folder that goes with it. The machine's own is left as it is; where there are no\n"
    "name spaces it is borrowed meanwhile, if it is missing or empty.\n"
    "Exit status: the command's; 125 nothing was started, 126 the command can't be run,\n"
    "127 there is no such command.\n";

enum { kNotStarted = 125, kCannotRun = 126, kNotFound = 127 };

int refuse(int status, const std::string& problem) {
  std::fprintf(stderr, "simulation_sandbox: %s\n", problem.c_str());
  return status;
}

std::string show(const std::string& folder) {
  const bool made = mkdir(folder.c_str(), 0777) == 0;
  std::string problem = simulation_host::showAsCameraData(folder);
  if (!problem.empty() && made) rmdir(folder.c_str());
  return problem;
}

}  // namespace

int main(int argc, char** argv) {
  const option options[] = {
      {"data", required_argument, nullptr, 'd'}, {"help", no_argument, nullptr, 'h'}, {}};
  const char* folder = nullptr;
  for (int found; (found = getopt_long(argc, argv, "+h", options, nullptr)) != -1;) {
    if (found == 'h') return std::fputs(kUsage, stdout) < 0 ? kNotStarted : 0;
    if (found != 'd') return kNotStarted;
    folder = optarg;
  }
  if (optind == argc) return refuse(kNotStarted, "no command is given (--help tells more)");
  const std::string problem =
      folder != nullptr ? show(folder) : simulation_host::useEmptyCameraData();
  if (!problem.empty()) return refuse(kNotStarted, problem);
  char** const command = argv + optind;
  execvp(command[0], command);
  return refuse(errno == ENOENT ? kNotFound : kCannotRun,
                std::string(command[0]) + ": " + std::strerror(errno));
}
