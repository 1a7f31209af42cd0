#include "platform/linux/file_system_kind.h"

#include <linux/magic.h>
#include <sys/vfs.h>

#include <algorithm>
#include <cstdint>
#include <span>

namespace qublet {
namespace {

// Those that linux/magic.h leaves out.
constexpr std::uint32_t kJfs = 0x3153464A;
constexpr std::uint32_t kNtfs3 = 0x7366746E;
constexpr std::uint32_t kZfs = 0x2FC12FC1;
constexpr std::uint32_t kBcachefs = 0xCA451A4E;

constexpr std::uint32_t kOfTheKernel[] = {PROC_SUPER_MAGIC, SYSFS_MAGIC};
constexpr std::uint32_t kOfThisMachine[] = {
    // disks
    EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC, F2FS_SUPER_MAGIC, REISERFS_SUPER_MAGIC, kJfs, kZfs,
    kBcachefs,
    // what is carried about
    MSDOS_SUPER_MAGIC, EXFAT_SUPER_MAGIC, kNtfs3, UDF_SUPER_MAGIC,
    // memory and containers
    TMPFS_MAGIC, RAMFS_MAGIC, OVERLAYFS_SUPER_MAGIC};

constexpr std::uint32_t kSharingOrPacking[] = {XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC, F2FS_SUPER_MAGIC, kZfs, kBcachefs};

bool IsOneOf(int file, std::span<const std::uint32_t> kinds) {
  struct statfs status {};
  // The type's width and sign differ from one processor to the next.
  return fstatfs(file, &status) == 0 &&
         std::find(kinds.begin(), kinds.end(), static_cast<std::uint32_t>(status.f_type)) != kinds.end();
}

}  // namespace

bool ShowsTheKernel(int file) {
  return IsOneOf(file, kOfTheKernel);
}

bool LocksHoldForAll(int file) {
  return IsOneOf(file, kOfThisMachine);
}

bool MayTakeLessRoom(int file) {
  return IsOneOf(file, kSharingOrPacking);
}

}  // namespace qublet
