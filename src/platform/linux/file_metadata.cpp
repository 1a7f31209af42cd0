#include "platform/linux/file_metadata.h"

#include <sys/xattr.h>
#include <unistd.h>

#include <string_view>
#include <vector>

namespace qublet {
namespace {

constexpr const char* kAccessList = "system.posix_acl_access";

bool MayBeLeftOut(int error) {
  return error == ENOTSUP || error == EPERM || error == EACCES || error == ENODATA || error == EINVAL;
}

std::vector<char> AttributeNames(const Descriptor& model) {
  std::vector<char> names;
  ssize_t size = flistxattr(model.Get(), nullptr, 0);
  while (size > 0) {
    names.resize(static_cast<std::size_t>(size));
    size = flistxattr(model.Get(), names.data(), names.size());
    if (size >= 0 || errno != ERANGE) break;
    size = flistxattr(model.Get(), nullptr, 0);
  }
  names.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  return names;
}

// What the system itself believes of a file ("security.capability", "trusted.overlay.opaque"). It was given to those
// bytes, not to others.
bool GivesPower(std::string_view name) {
  return name.starts_with("security.") || name.starts_with("trusted.");
}

void CopyAttribute(const Descriptor& model, const Descriptor& file, const char* name) {
  const ssize_t size = fgetxattr(model.Get(), name, nullptr, 0);
  std::vector<char> value(size > 0 ? static_cast<std::size_t>(size) : 0);
  const ssize_t read = size >= 0 ? fgetxattr(model.Get(), name, value.data(), value.size()) : -1;
  if (read >= 0 && fsetxattr(file.Get(), name, value.data(), static_cast<std::size_t>(read), 0) == 0) return;
  if (!MayBeLeftOut(errno)) FailWithErrno("copy attribute", name);
}

}  // namespace

void CopyOwner(const struct stat& model, const Descriptor& file, mode_t& mode) {
  const struct stat own = StatusOf(file);
  if (own.st_uid == model.st_uid && own.st_gid == model.st_gid) return;
  if (fchown(file.Get(), model.st_uid, model.st_gid) == 0) return;
  if (errno != EPERM && errno != EINVAL && errno != ENOSYS) FailWithErrno("copy owner", "open file");
  if (fchown(file.Get(), static_cast<uid_t>(-1), model.st_gid) == 0) return;
  const mode_t others = mode & S_IRWXO;
  mode = (mode & ~static_cast<mode_t>(S_IRWXG)) | (mode & (others << 3));
}

void CopyExtendedAttributes(const Descriptor& model, const Descriptor& file) {
  // A folder can hand its own access list down to whatever is made in it.
  if (fgetxattr(model.Get(), kAccessList, nullptr, 0) < 0) fremovexattr(file.Get(), kAccessList);
  const std::vector<char> names = AttributeNames(model);
  for (std::size_t i = 0; i < names.size(); i += std::char_traits<char>::length(&names[i]) + 1) {
    if (!GivesPower(&names[i])) CopyAttribute(model, file, &names[i]);
  }
}

void CopyMode(mode_t mode, const Descriptor& file) {
  if (fchmod(file.Get(), mode & ~static_cast<mode_t>(S_IFMT | S_ISUID | S_ISGID)) != 0 && errno != EPERM &&
      errno != ENOTSUP) {
    FailWithErrno("copy mode", "open file");
  }
}

void CopyTimes(const struct stat& model, const Descriptor& file) {
  const timespec times[2] = {model.st_atim, model.st_mtim};
  if (futimens(file.Get(), times) != 0 && errno != EPERM) FailWithErrno("copy time", "open file");
}

}  // namespace qublet
