// The bar on a terminal: there while the work goes on, and out of the way of results.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <thread>

#include "core/raw_file.h"
#include "simrec/cli/output.h"

namespace {

using namespace simrec::cli;
using simulation::FileDescriptor;

/// A process whose stderr is a terminal, and its stdout, too, or nowhere.
struct Worker {
  explicit Worker(bool onTerminal, bool quiet) : terminal(posix_openpt(O_RDWR | O_NOCTTY)) {
    EXPECT_EQ(grantpt(terminal.get()) + unlockpt(terminal.get()), 0);
    const FileDescriptor end(open(ptsname(terminal.get()), O_RDWR | O_NOCTTY));
    std::fflush(nullptr);
    child = fork();
    if (child != 0) return;
    dup2(end.get(), STDERR_FILENO);
    dup2(onTerminal ? end.get() : open("/dev/null", O_WRONLY), STDOUT_FILENO);
    setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);  // as a program has it that begins on a terminal
    work(quiet);
  }

  [[noreturn]] static void work(bool quiet) {
    Progress progress("Working", 2, quiet);
    std::this_thread::sleep_for(std::chrono::milliseconds(1001));
    put("half a ");
    progress.step();
    put("line\n");
    progress.step(0);
    put("row\n");
    flushOutput();
    _exit(0);
  }

  /// All that is on the terminal.
  std::string seen() {
    waitpid(child, nullptr, 0);
    char text[4096];
    return {text, readUpTo(terminal, text, sizeof text)};
  }

  const FileDescriptor terminal;
  pid_t child = -1;
};

TEST(SimrecProgress, IsSeenWhileTheWorkGoesOn) {
  const std::string bar = "\rWorking [###############...............] 1/2\x1b[K";
  Worker alone(false, false), shared(true, false), quiet(true, true);
  std::string seen = alone.seen();
  EXPECT_EQ(seen.substr(0, bar.size()), bar);
  while (seen.compare(0, bar.size(), bar) == 0) seen.erase(0, bar.size());
  EXPECT_EQ(seen, "");  // nothing has taken it away
  EXPECT_EQ(shared.seen(), "half a line\r\n" + bar + "\r\x1b[Krow\r\n" + bar);
  EXPECT_EQ(quiet.seen(), "half a line\r\nrow\r\n");
}

}  // namespace
