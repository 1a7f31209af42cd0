#include "platform/linux/attributes.h"

#include <sys/xattr.h>

#include <cstdio>
#include <cstdlib>

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
  if (result != 0 && errno != ENOTSUP && errno != ENODATA) FailWithErrno("set attributes", native);
}

void SetMode(const std::string& native, mode_t mode) {
  if (chmod(native.c_str(), mode & 07777) != 0) FailWithErrno("set attributes", native);
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
  const mode_t writable = present | S_IWUSR;
  const mode_t read_only = present & ~static_cast<mode_t>(S_IWUSR | S_IWGRP | S_IWOTH);
  const mode_t wanted = (attributes & kReadOnly) == 0 ? writable : (present & S_IWUSR) == 0 ? present : read_only;

  if ((attributes & kStored) != StoredBits(native, status)) {
    // The other bits can only be stored while the file may be written.
    if (present != writable) SetMode(native, writable);
    Store(native, attributes & kStored, status);
    if (wanted != writable) SetMode(native, wanted);
  } else if (wanted != present) {
    SetMode(native, wanted);
  }
}

}  // namespace qublet
