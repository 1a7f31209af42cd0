// Loaded into a program by LD_PRELOAD, it has the system end the program as soon as that starts another one or
// reaches for a socket. Threads are let be.

#include <errno.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <stddef.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// A filter's step, and how many of the following ones are passed over where it holds and where it doesn't.
constexpr sock_filter Step(unsigned short code, unsigned value, unsigned char when = 0, unsigned char otherwise = 0) {
  return {code, when, otherwise, value};
}
constexpr sock_filter Load(size_t offset) {
  return Step(BPF_LD | BPF_W | BPF_ABS, static_cast<unsigned>(offset));
}
constexpr unsigned kEnds = SECCOMP_RET_KILL_PROCESS;
constexpr sock_filter If(unsigned call) {
  return Step(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1);
}
constexpr sock_filter End(unsigned verdict) {
  return Step(BPF_RET | BPF_K, verdict);
}

__attribute__((constructor)) void Seal() {
  static sock_filter steps[] = {
      Load(offsetof(seccomp_data, nr)),
      If(SYS_execve),
      End(kEnds),
      If(SYS_execveat),
      End(kEnds),
#ifdef SYS_fork
      If(SYS_fork),
      End(kEnds),
      If(SYS_vfork),
      End(kEnds),
#endif
      If(SYS_socket),
      End(kEnds),
      If(SYS_connect),
      End(kEnds),
      // What this couldn't look into; the C library falls back to the older call.
      If(SYS_clone3),
      End(SECCOMP_RET_ERRNO | ENOSYS),
      Step(BPF_JMP | BPF_JEQ | BPF_K, SYS_clone, 0, 3),
      Load(offsetof(seccomp_data, args[0])),
      Step(BPF_JMP | BPF_JSET | BPF_K, CLONE_THREAD, 1, 0),
      End(kEnds),
      End(SECCOMP_RET_ALLOW),
  };
  const sock_fprog filter = {sizeof steps / sizeof *steps, steps};
  if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0)
    _exit(99);
}

}  // namespace
