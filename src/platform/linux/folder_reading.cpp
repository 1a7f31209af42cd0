#include "platform/linux/folder_reading.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/linux/descriptor.h"
#include "platform/linux/file_system_kind.h"
#include "platform/linux/native_text.h"
#include "platform/linux/reached_path.h"

namespace qublet {
namespace {

// Null when it can't be opened; errno says why.
DIR* OpenFolder(const std::string& native) {
  const ReachedPath path(native);
  const int folder = openat(path.Folder(), path.Name(), O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC);
  DIR* const open = folder >= 0 ? fdopendir(folder) : nullptr;
  if (open == nullptr && folder >= 0) close(folder);
  return open;
}

}  // namespace

bool IsHiddenName(std::string_view name) {
  return name.starts_with('.') && name != "." && name != "..";
}

LinuxFolder::LinuxFolder(const std::string& native, DeviceWithFiles& with_files)
    : native_(native), with_files_(with_files), open_(OpenFolder(native)) {
  struct stat status {};
  if (!open_ || fstat(dirfd(open_.get()), &status) != 0) FailWithErrno("list", native);
  identity_ = {status.st_dev, status.st_ino};
}

bool LinuxFolder::ShowsTheKernel() const {
  if (identity_.device == with_files_) return false;
  if (qublet::ShowsTheKernel(dirfd(open_.get()))) return true;
  with_files_ = identity_.device;
  return false;
}

std::vector<FolderEntry> LinuxFolder::Read() {
  if (ShowsTheKernel()) return {};
  std::vector<FolderEntry> entries;
  errno = 0;
  while (const dirent* entry = readdir(open_.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    bool is_folder = entry->d_type == DT_DIR;
    if (entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN) {
      struct stat status {};
      if (fstatat(dirfd(open_.get()), entry->d_name, &status, 0) != 0) continue;
      is_folder = S_ISDIR(status.st_mode);
    }
    entries.push_back({TextFromNative(name), is_folder, IsHiddenName(name)});
    errno = 0;
  }
  if (errno != 0) FailWithErrno("list", native_);
  return entries;
}

}  // namespace qublet
