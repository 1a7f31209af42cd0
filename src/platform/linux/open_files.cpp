#include "platform/linux/open_files.h"

#include <fcntl.h>
#include <unistd.h>

#include "platform/linux/reached_path.h"

namespace qublet {
namespace {

// O_NONBLOCK, because opening a pipe or a device could wait for ever before it can be seen what it is.
Descriptor OpenRegular(const std::string& native, int access) {
  const ReachedPath path(native);
  return OpenAt(path.Folder(), path.Name(), access | O_NONBLOCK | O_NOCTTY);
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

DescriptorInput::DescriptorInput(Descriptor file) : file_(std::move(file)) {
  const struct stat status = StatusOf(file_);
  if (!S_ISREG(status.st_mode)) throw Failure("only a regular file can be read");
  size_ = status.st_size;
}

std::size_t DescriptorInput::ReadAt(std::int64_t offset, std::span<std::uint8_t> buffer) {
  return ReadFully(file_, offset, buffer);
}

std::unique_ptr<DescriptorInput> OpenInput(const std::string& native) {
  return std::make_unique<DescriptorInput>(OpenRegular(native, O_RDONLY));
}

std::unique_ptr<InPlaceFile> OpenForChange(const std::string& native) {
  Descriptor file = OpenRegular(native, O_WRONLY);
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
