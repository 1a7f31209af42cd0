#include "platform/linux/open_files.h"

#include <fcntl.h>
#include <unistd.h>

#include "platform/linux/reached_path.h"

namespace qublet {
namespace {

Descriptor OpenWhereItLeads(const std::string& native, int flags, Whose whose) {
  const HeldPlace place = PlaceOf(native, whose);
  Descriptor file = OpenAt(place.folder.Get(), place.name, flags);
  if (whose == Whose::kOwn && !IsThisUsers(StatusOf(file))) throw Failure("belongs to another user", native);
  return file;
}

// O_NONBLOCK, because opening a pipe or a device could wait for ever before it can be seen what it is.
Descriptor OpenRegular(const std::string& native, int access, Whose whose) {
  const int flags = access | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW;
  if (whose == Whose::kOwn) return OpenWhereItLeads(native, flags, whose);
  const ReachedPath path(native);
  Descriptor file(Uninterrupted([&] { return openat(path.Folder(), path.Name(), flags | O_CLOEXEC); }));
  if (!file.IsOpen() && errno == ELOOP) return OpenWhereItLeads(native, flags, whose);
  if (!file.IsOpen()) FailWithErrno("open", native);
  return file;
}

class DescriptorInPlace : public InPlaceFile {
 public:
  explicit DescriptorInPlace(Descriptor file) : file_(std::move(file)) {}

  std::int64_t Size() const override { return StatusOf(file_).st_size; }
  void WriteAt(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
    WriteFullyAt(file_, offset, bytes);
  }
  void Truncate(std::int64_t size) override {
    if (Uninterrupted([&] { return ftruncate(file_.Get(), size); }) != 0) FailWithErrno("cut", "open file");
  }
  void Flush() override { FlushToDisk(file_); }

 private:
  Descriptor file_;
};

}  // namespace

FileVersion VersionOf(const struct stat& status) {
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  const auto in_nanoseconds = [](const timespec& time) { return time.tv_sec * kNanoseconds + time.tv_nsec; };
  return {status.st_dev, status.st_ino, status.st_size, in_nanoseconds(status.st_mtim),
          in_nanoseconds(status.st_ctim)};
}

DescriptorInput::DescriptorInput(Descriptor file) : file_(std::move(file)) {
  const struct stat status = StatusOf(file_);
  if (!S_ISREG(status.st_mode)) throw Failure("only a regular file can be read");
  version_ = VersionOf(status);
}

std::size_t DescriptorInput::ReadAt(std::int64_t offset, std::span<std::uint8_t> buffer) {
  return ReadFully(file_, offset, buffer);
}

std::unique_ptr<DescriptorInput> OpenInput(const std::string& native, Whose whose) {
  return std::make_unique<DescriptorInput>(OpenRegular(native, O_RDONLY, whose));
}

std::unique_ptr<InPlaceFile> OpenForChange(const std::string& native, Whose whose) {
  Descriptor file = OpenRegular(native, O_WRONLY, whose);
  const struct stat status = StatusOf(file);
  if (!S_ISREG(status.st_mode)) throw Failure("only a regular file can be changed", native);
  if ((status.st_mode & S_IWUSR) == 0) throw Failure("read-only", native);
  return std::make_unique<DescriptorInPlace>(std::move(file));
}

std::unique_ptr<InPlaceFile> MakePrivate(const std::string& native) {
  Descriptor file = OpenAt(AT_FDCWD, native, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
  FlushToDisk(OpenAt(AT_FDCWD, native.substr(0, native.rfind('/') + 1) + ".", O_RDONLY | O_DIRECTORY));
  return std::make_unique<DescriptorInPlace>(std::move(file));
}

}  // namespace qublet
