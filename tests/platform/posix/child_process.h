#pragma once

#include <grp.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <vector>

namespace quillon::testing {

/// Runs `work` in a child process, which may drop privileges for good. Returns its result, 0 to
/// 125; 126 after an exception.
template <typename Work>
int inChildProcess(const Work& work) {
  const pid_t child = fork();
  if (child == 0) {
    int result = 126;
    try {
      result = work();
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
      // The exit code tells.
    }
    _exit(result);
  }
  int status = 0;
  while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return child > 0 && WIFEXITED(status) ? WEXITSTATUS(status) : 127;
}

/// Keeps this process from changing file permissions. False where a process cannot be restricted
/// like that.
inline bool forbidChangesOfRights() {
  std::vector<sock_filter> filter = {
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
  for (const long number : {
#ifdef SYS_chmod
           static_cast<long>(SYS_chmod),
#endif
           static_cast<long>(SYS_fchmod), static_cast<long>(SYS_fchmodat)}) {
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(number), 0, 1));
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM));
  }
  filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
  return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

/// Becomes a user who is also a member of another group. For a child process of root.
inline bool becomeMember(gid_t group, uid_t user, gid_t ownGroup) {
  return setgroups(1, &group) == 0 && setgid(ownGroup) == 0 && setuid(user) == 0;
}

}  // namespace quillon::testing
