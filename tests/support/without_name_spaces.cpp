// without_name_spaces [--pivot-root] COMMAND...: runs it as a container with the usual filter
// does, where no name space can be had and nothing mounted; or where all of that is
// allowed, and only the root stays as it is.
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <vector>

int main(int argc, char** argv) {
  std::vector<unsigned int> refused = {SYS_unshare, SYS_setns, SYS_mount, SYS_umount2};
  if (argc > 1 && argv[1] == std::string("--pivot-root")) {
    refused = {SYS_pivot_root};
    ++argv;
  }
  std::vector<sock_filter> filter = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, 0)};  // the call's number
  for (const unsigned int call : refused) {
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1));
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM));
  }
  filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  const sock_fprog program = {static_cast<unsigned short>(filter.size()), filter.data()};
  if (argv[0] != nullptr && argv[1] != nullptr && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
      prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0) {
    execvp(argv[1], argv + 1);
  }
  std::perror("without_name_spaces");
  return 125;
}
