#include "platform/linux/attributes.h"

#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>

#include "platform/file_system.h"
#include "platform/linux/descriptor.h"

namespace qublet {
namespace {

constexpr const char* kStore = "user.DOSATTRIB";
constexpr unsigned kStored = kHidden | kSystem | kArchive;

unsigned UsualBits(const struct stat& status) {
  return S_ISDIR(status.st_mode) ? 0u : kArchive;
}

unsigned StoredBits(const std::string& native, const struct stat& status) {
  char text[16] = {};
  const ssize_t size = getxattr(native.c_str(), kStore, text, sizeof text - 1);
  if (size < 3 || text[0] != '0' || text[1] != 'x') return UsualBits(status);
  return static_cast<unsigned>(std::strtoul(text, nullptr, 16)) & kStored;
}

void Store(const std::string& native, unsigned bits, const struct stat& status) {
  char text[16];
  const int size = std::snprintf(text, sizeof text, "0x%x", bits);
  const int result = bits == UsualBits(status)
                         ? removexattr(native.c_str(), kStore)
                         : setxattr(native.c_str(), kStore, text, static_cast<std::size_t>(size), 0);
  if (result != 0 && errno != ENODATA) FailWithErrno("set attributes", native);
}

constexpr mode_t kWrite = S_IWUSR | S_IWGRP | S_IWOTH;

// What new files don't get. Asked of the kernel, since the other way to learn it is to change it.
mode_t Umask() {
  constexpr std::string_view kLabel = "Umask:";
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(kLabel)) return static_cast<mode_t>(std::strtoul(line.c_str() + kLabel.size(), nullptr, 8));
  }
  return S_IWGRP | S_IWOTH;
}

mode_t Writable(mode_t mode) {
  mode_t given = 0;
  if ((mode & S_IRGRP) != 0) given |= S_IWGRP;
  if ((mode & S_IROTH) != 0) given |= S_IWOTH;
  return mode | S_IWUSR | (given & ~Umask());
}

void SetMode(const std::string& native, mode_t mode) {
  if (chmod(native.c_str(), mode & 07777) != 0) FailWithErrno("set attributes", native);
}

// The owner of a read-only file can store only while it may be written.
void StoreWherePossible(const std::string& native, unsigned bits, const struct stat& status) {
  if (faccessat(AT_FDCWD, native.c_str(), W_OK, AT_EACCESS) == 0) return Store(native, bits, status);
  const mode_t present = status.st_mode & 07777;
  SetMode(native, present | S_IWUSR);
  const Outcome stored = Attempt([&] { Store(native, bits, status); });
  SetMode(native, present);
  stored.OrThrow();
}

}  // namespace

unsigned AttributesOf(const std::string& native, const struct stat& status) {
  unsigned bits = StoredBits(native, status);
  if (S_ISDIR(status.st_mode)) bits |= kFolder;
  if ((status.st_mode & S_IWUSR) == 0) bits |= kReadOnly;
  return bits;
}

void SetAttributesOf(const std::string& native, unsigned attributes) {
  struct stat status {};
  if (stat(native.c_str(), &status) != 0) FailWithErrno("examine", native);
  const mode_t present = status.st_mode & 07777;
  const bool was_read_only = (present & S_IWUSR) == 0;
  const bool read_only = (attributes & kReadOnly) != 0;
  const mode_t wanted = read_only == was_read_only ? present : read_only ? present & ~kWrite : Writable(present);

  if (!read_only && wanted != present) SetMode(native, wanted);
  if ((attributes & kStored) != StoredBits(native, status)) StoreWherePossible(native, attributes & kStored, status);
  if (read_only && wanted != present) SetMode(native, wanted);
}

}  // namespace qublet
