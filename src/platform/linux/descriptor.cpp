#include "platform/linux/descriptor.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/random.h>
#include <unistd.h>

#include <system_error>

namespace qublet {

Descriptor::~Descriptor() {
  if (number_ >= 0) close(number_);
}

void FailWithErrno(const std::string& step, const std::string& native) {
  const std::error_code error(errno, std::generic_category());
  throw Failure(ReasonOf(error), step + " \"" + native + "\"");
}

Descriptor OpenAt(int folder, const std::string& native, int flags, mode_t mode) {
  Descriptor file(Uninterrupted([&] { return openat(folder, native.c_str(), flags | O_CLOEXEC, mode); }));
  if (!file.IsOpen()) FailWithErrno("open", native);
  return file;
}

struct stat StatusOf(const Descriptor& file) {
  struct stat status {};
  if (fstat(file.Get(), &status) != 0) FailWithErrno("examine", "open file");
  return status;
}

std::size_t ReadFully(const Descriptor& file, std::int64_t offset, std::span<std::uint8_t> buffer) {
  std::size_t done = 0;
  while (done < buffer.size()) {
    const auto place = static_cast<off_t>(offset + static_cast<std::int64_t>(done));
    const ssize_t count =
        Uninterrupted([&] { return pread(file.Get(), buffer.data() + done, buffer.size() - done, place); });
    if (count < 0) FailWithErrno("read", "open file");
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  return done;
}

void WriteFully(const Descriptor& file, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = Uninterrupted([&] { return write(file.Get(), bytes.data(), bytes.size()); });
    if (count <= 0) FailWithErrno("write", "open file");
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
}

void WriteFullyAt(const Descriptor& file, std::int64_t offset, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = Uninterrupted([&] { return pwrite(file.Get(), bytes.data(), bytes.size(), offset); });
    if (count <= 0) FailWithErrno("write", "open file");
    offset += count;
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
}

// An error stays with the file until the flush, which tells it.
void StartFlush(const Descriptor& file) {
  sync_file_range(file.Get(), 0, 0, SYNC_FILE_RANGE_WRITE);
}

void FlushToDisk(const Descriptor& file) {
  if (Uninterrupted([&] { return fsync(file.Get()); }) != 0) FailWithErrno("flush", "open file");
}

bool StandsAt(int folder, const std::string& name, const Descriptor& file) {
  struct stat named {};
  struct stat open {};
  return fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 && fstat(file.Get(), &open) == 0 &&
         S_ISREG(open.st_mode) && named.st_dev == open.st_dev && named.st_ino == open.st_ino;
}

std::string TemporaryName() {
  std::uint64_t number = 0;
  if (getrandom(&number, sizeof number, 0) != sizeof number) FailWithErrno("make", "temporary name");
  char name[32];
  snprintf(name, sizeof name, ".qublet-%016llx", static_cast<unsigned long long>(number));
  return name;
}

bool RefusesWriting(int folder, const std::string& native, const struct stat& status) {
  return (status.st_mode & S_IWUSR) == 0 || faccessat(folder, native.c_str(), W_OK, AT_EACCESS) != 0;
}

}  // namespace qublet
