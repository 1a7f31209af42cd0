#include "platform/linux/temporary_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <unistd.h>

#include "platform/linux/file_system_kind.h"

namespace qublet {
namespace {

// ".qublet-next-" and sixteen digits, however long the target's name is. No random name looks like this.
std::string NameFor(const std::string& target) {
  std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
  for (const char c : target) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  char name[32];
  snprintf(name, sizeof name, ".qublet-next-%016llx", static_cast<unsigned long long>(hash));
  return name;
}

enum class LockResult { kLocked, kHeldByAnother, kNotLockable };

LockResult Lock(const Descriptor& file) {
  if (Uninterrupted([&] { return flock(file.Get(), LOCK_EX | LOCK_NB); }) == 0) return LockResult::kLocked;
  return errno == EWOULDBLOCK ? LockResult::kHeldByAnother : LockResult::kNotLockable;
}

// Whoever holds the lock of the file that stands at a name may delete or rename it, and nobody else. Between opening
// and locking it may have gone, and another come, so both are asked for together.
bool Owns(const Descriptor& folder, const std::string& name, const Descriptor& file) {
  return file.IsOpen() && Lock(file) == LockResult::kLocked && StandsAt(folder.Get(), name, file);
}

void DeleteIfLeft(const Descriptor& folder, const std::string& name) {
  const Descriptor left(
      openat(folder.Get(), name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW | O_CLOEXEC));
  if (Owns(folder, name, left)) unlinkat(folder.Get(), name.c_str(), 0);
}

Descriptor MakeNew(const Descriptor& folder, const std::string& name, mode_t mode) {
  Descriptor file(Uninterrupted(
      [&] { return openat(folder.Get(), name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode); }));
  if (!file.IsOpen() && errno != EEXIST) FailWithErrno("open", name);
  return file;
}

}  // namespace

TemporaryFile MakeTemporaryFile(const Descriptor& folder, const std::string& target, mode_t mode) {
  if (LocksHoldForAll(folder.Get())) {
    const std::string name = NameFor(target);
    DeleteIfLeft(folder, name);
    Descriptor file = MakeNew(folder, name, mode);
    if (Owns(folder, name, file)) return {std::move(file), name};
    // One that took ours for left, before it was locked, deletes it. What nobody can lock is ours to delete.
    if (file.IsOpen() && Lock(file) == LockResult::kNotLockable && StandsAt(folder.Get(), name, file))
      unlinkat(folder.Get(), name.c_str(), 0);
  }
  const std::string name = TemporaryName();
  return {OpenAt(folder.Get(), name, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, mode), name};
}

}  // namespace qublet
