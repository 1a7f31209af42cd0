// Loaded into a program by LD_PRELOAD, it stands before the calls of the C library that change files, counts those
// that concern files below $QUBLET_FAULT_BELOW, and makes call number $QUBLET_FAULT_CALL go wrong as
// $QUBLET_FAULT_KIND says (see faults.h). The name of that call is written to $QUBLET_FAULT_REPORT.
//
// Everything is done by plain system calls, so that nothing here comes back to itself.

#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

enum class Verdict { kPass, kFail, kDieAfter };
enum class Nature { kTakesRoom, kOther, kDeletes };

int calls_seen = 0;

const char* Setting(const char* name) {
  const char* value = getenv(name);
  return value != nullptr ? value : "";
}

bool StandsBelow(const char* place) {
  const char* below = Setting("QUBLET_FAULT_BELOW");
  const size_t length = strlen(below);
  return length > 0 && strncmp(place, below, length) == 0 && (place[length] == '/' || place[length] == '\0');
}

bool Concerns(int file) {
  char link[64];
  char place[PATH_MAX];
  snprintf(link, sizeof link, "/proc/self/fd/%d", file);
  const long length = syscall(SYS_readlinkat, AT_FDCWD, link, place, sizeof place - 1);
  if (length < 0) return false;
  place[length] = '\0';
  return StandsBelow(place);
}

// The folder of the path decides: the file itself may not exist yet.
bool Concerns(int folder, const char* path) {
  char parent[PATH_MAX];
  const char* cut = strrchr(path, '/');
  if (cut == nullptr) {
    strcpy(parent, ".");
  } else {
    snprintf(parent, sizeof parent, "%.*s", static_cast<int>(cut - path) + 1, path);
  }
  const long file = syscall(SYS_openat, folder, parent, O_PATH | O_DIRECTORY | O_CLOEXEC, 0);
  if (file < 0) return false;
  const bool concerned = Concerns(static_cast<int>(file));
  syscall(SYS_close, file);
  return concerned;
}

void Report(const char* name) {
  const long file =
      syscall(SYS_openat, AT_FDCWD, Setting("QUBLET_FAULT_REPORT"), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  if (file < 0) return;
  syscall(SYS_write, file, name, strlen(name));
  syscall(SYS_close, file);
}

void Die() {
  syscall(SYS_kill, getpid(), SIGKILL);
  for (;;) pause();
}

Verdict FailWith(int error) {
  errno = error;
  return Verdict::kFail;
}

// Counts a call that concerns us.
Verdict Judge(const char* name, Nature nature, bool concerned) {
  if (!concerned) return Verdict::kPass;
  const char* kind = Setting("QUBLET_FAULT_KIND");
  const int wanted = atoi(Setting("QUBLET_FAULT_CALL"));
  if (++calls_seen < wanted) return Verdict::kPass;
  const bool first = calls_seen == wanted;
  if (first) Report(name);
  if (first && strcmp(kind, "kill-before") == 0) Die();
  if (first && strcmp(kind, "kill-after") == 0) return Verdict::kDieAfter;
  if (first && strcmp(kind, "error-once") == 0) return FailWith(EIO);
  if (strcmp(kind, "error-from") == 0 && nature != Nature::kDeletes) return FailWith(EIO);
  if (strcmp(kind, "disk-full") == 0 && nature == Nature::kTakesRoom) return FailWith(ENOSPC);
  return Verdict::kPass;
}

template <typename Call>
auto Changed(const char* name, Nature nature, bool concerned, Call&& call) -> decltype(call()) {
  const Verdict verdict = Judge(name, nature, concerned);
  if (verdict == Verdict::kFail) return -1;
  const auto result = call();
  if (verdict == Verdict::kDieAfter) Die();
  return result;
}

// Half of a write is done before a death or where the room ends, as a disk would do it.
template <typename Call>
ssize_t Written(const char* name, int file, size_t size, Call&& call) {
  const Verdict verdict = Judge(name, Nature::kTakesRoom, Concerns(file));
  if (verdict == Verdict::kPass) return call(size);
  if (verdict == Verdict::kDieAfter) {
    call(size / 2);
    Die();
  }
  const bool where_room_ends = errno == ENOSPC && calls_seen == atoi(Setting("QUBLET_FAULT_CALL"));
  return where_room_ends && size > 1 ? call(size / 2) : -1;
}

bool Changes(int flags) {
  return (flags & (O_WRONLY | O_RDWR | O_CREAT | O_TRUNC)) != 0;
}

bool MakesFile(int flags) {
  return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

int Open(int folder, const char* path, int flags, mode_t mode) {
  const bool concerned = Changes(flags) && Concerns(folder, path);
  return Changed("open", Nature::kTakesRoom, concerned,
                 [&] { return static_cast<int>(syscall(SYS_openat, folder, path, flags, mode)); });
}

int Rename(int from_folder, const char* from, int to_folder, const char* to, unsigned flags) {
  if (flags != 0 && *Setting("QUBLET_FAULT_OLD_FILE_SYSTEM") != '\0') {
    errno = EINVAL;
    return -1;
  }
  const bool concerned = Concerns(from_folder, from) || Concerns(to_folder, to);
  return Changed("rename", Nature::kTakesRoom, concerned,
                 [&] { return static_cast<int>(syscall(SYS_renameat2, from_folder, from, to_folder, to, flags)); });
}

int Unlink(int folder, const char* path, int flags) {
  return Changed("unlink", Nature::kDeletes, Concerns(folder, path),
                 [&] { return static_cast<int>(syscall(SYS_unlinkat, folder, path, flags)); });
}

ssize_t Write(const char* name, int file, const void* bytes, size_t size) {
  return Written(name, file, size, [&](size_t part) { return syscall(SYS_write, file, bytes, part); });
}

ssize_t WriteAt(int file, const void* bytes, size_t size, off_t offset) {
  return Written("pwrite", file, size, [&](size_t part) { return syscall(SYS_pwrite64, file, bytes, part, offset); });
}

template <typename Call>
int OnFile(const char* name, Nature nature, int file, Call&& call) {
  return Changed(name, nature, Concerns(file), [&] { return static_cast<int>(call()); });
}

}  // namespace

#define QUBLET_OPEN_MODE(flags)                         \
  mode_t mode = 0;                                      \
  if (MakesFile(flags)) {                               \
    va_list rest;                                       \
    va_start(rest, flags);                              \
    mode = static_cast<mode_t>(va_arg(rest, unsigned)); \
    va_end(rest);                                       \
  }

extern "C" {

int open(const char* path, int flags, ...) {
  QUBLET_OPEN_MODE(flags)
  return Open(AT_FDCWD, path, flags, mode);
}
int open64(const char* path, int flags, ...) {
  QUBLET_OPEN_MODE(flags)
  return Open(AT_FDCWD, path, flags, mode);
}
int openat(int folder, const char* path, int flags, ...) {
  QUBLET_OPEN_MODE(flags)
  return Open(folder, path, flags, mode);
}
int openat64(int folder, const char* path, int flags, ...) {
  QUBLET_OPEN_MODE(flags)
  return Open(folder, path, flags, mode);
}

ssize_t write(int file, const void* bytes, size_t size) {
  return Write("write", file, bytes, size);
}
ssize_t pwrite(int file, const void* bytes, size_t size, off_t offset) {
  return WriteAt(file, bytes, size, offset);
}
ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t offset) {
  return WriteAt(file, bytes, size, offset);
}
// The parts are written one by one, so that a fault can strike between them.
ssize_t writev(int file, const iovec* parts, int count) {
  ssize_t sum = 0;
  for (int i = 0; i < count; ++i) {
    const ssize_t done = Write("writev", file, parts[i].iov_base, parts[i].iov_len);
    if (done < 0) return sum > 0 ? sum : -1;
    sum += done;
    if (static_cast<size_t>(done) < parts[i].iov_len) break;
  }
  return sum;
}
ssize_t copy_file_range(int source, off64_t* from, int file, off64_t* to, size_t size, unsigned flags) {
  return Written("copy_file_range", file, size,
                 [&](size_t part) { return syscall(SYS_copy_file_range, source, from, file, to, part, flags); });
}
ssize_t sendfile(int file, int source, off_t* from, size_t size) noexcept {
  return Written("sendfile", file, size,
                 [&](size_t part) { return syscall(SYS_sendfile, file, source, from, part); });
}

int fsync(int file) {
  return OnFile("fsync", Nature::kTakesRoom, file, [&] { return syscall(SYS_fsync, file); });
}
int fdatasync(int file) {
  return OnFile("fdatasync", Nature::kTakesRoom, file, [&] { return syscall(SYS_fdatasync, file); });
}
int ftruncate(int file, off_t size) noexcept {
  return OnFile("ftruncate", Nature::kOther, file, [&] { return syscall(SYS_ftruncate, file, size); });
}
int ftruncate64(int file, off64_t size) noexcept {
  return OnFile("ftruncate", Nature::kOther, file, [&] { return syscall(SYS_ftruncate, file, size); });
}
int fchmod(int file, mode_t mode) noexcept {
  return OnFile("fchmod", Nature::kOther, file, [&] { return syscall(SYS_fchmod, file, mode); });
}
int fchown(int file, uid_t owner, gid_t group) noexcept {
  return OnFile("fchown", Nature::kOther, file, [&] { return syscall(SYS_fchown, file, owner, group); });
}
int futimens(int file, const timespec times[2]) noexcept {
  return OnFile("futimens", Nature::kOther, file, [&] { return syscall(SYS_utimensat, file, nullptr, times, 0); });
}
int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept {
  return OnFile("fsetxattr", Nature::kTakesRoom, file,
                [&] { return syscall(SYS_fsetxattr, file, name, value, size, flags); });
}

int flock(int file, int operation) noexcept {
  if (*Setting("QUBLET_FAULT_NO_LOCKS") == '\0') return static_cast<int>(syscall(SYS_flock, file, operation));
  errno = ENOLCK;
  return -1;
}

int rename(const char* from, const char* to) noexcept {
  return Rename(AT_FDCWD, from, AT_FDCWD, to, 0);
}
int renameat(int from_folder, const char* from, int to_folder, const char* to) noexcept {
  return Rename(from_folder, from, to_folder, to, 0);
}
int renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned flags) noexcept {
  return Rename(from_folder, from, to_folder, to, flags);
}
int linkat(int from_folder, const char* from, int to_folder, const char* to, int flags) noexcept {
  return Changed("link", Nature::kTakesRoom, Concerns(to_folder, to),
                 [&] { return static_cast<int>(syscall(SYS_linkat, from_folder, from, to_folder, to, flags)); });
}
int link(const char* from, const char* to) noexcept {
  return linkat(AT_FDCWD, from, AT_FDCWD, to, 0);
}
int unlink(const char* path) noexcept {
  return Unlink(AT_FDCWD, path, 0);
}
int unlinkat(int folder, const char* path, int flags) noexcept {
  return Unlink(folder, path, flags);
}
int rmdir(const char* path) noexcept {
  return Unlink(AT_FDCWD, path, AT_REMOVEDIR);
}
int mkdir(const char* path, mode_t mode) noexcept {
  return Changed("mkdir", Nature::kTakesRoom, Concerns(AT_FDCWD, path),
                 [&] { return static_cast<int>(syscall(SYS_mkdirat, AT_FDCWD, path, mode)); });
}
int chmod(const char* path, mode_t mode) noexcept {
  return Changed("chmod", Nature::kOther, Concerns(AT_FDCWD, path),
                 [&] { return static_cast<int>(syscall(SYS_fchmodat, AT_FDCWD, path, mode)); });
}
int truncate(const char* path, off_t size) noexcept {
  return Changed("truncate", Nature::kOther, Concerns(AT_FDCWD, path),
                 [&] { return static_cast<int>(syscall(SYS_truncate, path, size)); });
}

}  // extern "C"
