#include "platform/linux/holes.h"

#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <system_error>

#include "platform/linux/file_system_kind.h"

namespace qublet {
namespace {

constexpr std::int64_t kBlock = 512;  // the unit that a file's room is counted in, whatever its disk's blocks are

}  // namespace

bool HasHoles(const struct stat& status) {
  return status.st_blocks * kBlock < status.st_size;
}

std::int64_t NextData(const Descriptor& file, std::int64_t offset, std::int64_t end) {
  const off_t data = lseek(file.Get(), offset, SEEK_DATA);
  if (data >= 0) return std::min<std::int64_t>(data, end);
  if (errno != ENXIO) return offset;
  if (StatusOf(file).st_size < end) throw Failure("the source ends early");
  return end;
}

std::int64_t NextHole(const Descriptor& file, std::int64_t offset, std::int64_t end) {
  const off_t hole = lseek(file.Get(), offset, SEEK_HOLE);
  return hole > offset ? std::min<std::int64_t>(hole, end) : end;
}

void ExpectRoom(const Descriptor& source, std::int64_t length, const Descriptor& target) {
  struct statvfs disk {};
  if (MayTakeLessRoom(target.Get()) || fstatvfs(target.Get(), &disk) != 0 || disk.f_blocks == 0) return;
  const std::uint64_t blocks = geteuid() == 0 ? disk.f_bfree : disk.f_bavail;
  const std::int64_t needed = std::min<std::int64_t>(length, StatusOf(source).st_blocks * kBlock);
  if (static_cast<std::uint64_t>(needed) / disk.f_frsize < blocks) return;
  throw Failure(ReasonOf(std::make_error_code(std::errc::no_space_on_device)), std::to_string(needed) + " bytes");
}

}  // namespace qublet
