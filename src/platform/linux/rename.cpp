#include "platform/linux/rename.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/descriptor.h"

namespace qublet {
namespace {

bool Exists(int folder, const std::string& native) {
  struct stat status {};
  return fstatat(folder, native.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

// Like the public one, both give 0 or the error.
int RenameByLink(int folder, const std::string& from, const std::string& to) {
  if (linkat(folder, from.c_str(), folder, to.c_str(), 0) != 0) return errno;
  if (unlinkat(folder, from.c_str(), 0) == 0) return 0;
  const int error = errno;
  unlinkat(folder, to.c_str(), 0);
  return error;
}

int RenameAfterLooking(int folder, const std::string& from, const std::string& to) {
  if (Exists(folder, to)) return EEXIST;
  return renameat(folder, from.c_str(), folder, to.c_str()) == 0 ? 0 : errno;
}

}  // namespace

// Not every file system knows a rename that never replaces, nor links; folders can't be linked anywhere.
int RenameWithoutReplacing(int folder, const std::string& from, const std::string& to) {
  if (renameat2(folder, from.c_str(), folder, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  const int error = RenameByLink(folder, from, to);
  const bool no_links = error == EPERM || error == ENOTSUP || error == ENOSYS || error == EMLINK;
  return no_links ? RenameAfterLooking(folder, from, to) : error;
}

void RenameInFolder(int folder, const std::string& from, const std::string& to) {
  errno = RenameWithoutReplacing(folder, from, to);
  if (errno != 0) FailWithErrno("rename", from);
}

}  // namespace qublet
