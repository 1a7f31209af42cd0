#include "platform/held_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

#include "platform/linux/links.h"

namespace qublet {
namespace {

constexpr int kMostTries = 10;

class LockedFile : public HeldFile {
 public:
  LockedFile(std::string native, Descriptor file) : native_(std::move(native)), file_(std::move(file)) {}
  ~LockedFile() override { unlink(native_.c_str()); }

 private:
  std::string native_;
  Descriptor file_;
};

}  // namespace

std::unique_ptr<HeldFile> HoldFile(const FileSystem& files, const std::string& path) {
  const std::string native = files.ToNative(path);
  for (int tries = 0; tries < kMostTries; ++tries) {
    Descriptor file = OpenAt(AT_FDCWD, native, O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK, 0600);
    if (!IsThisUsers(StatusOf(file))) throw Failure("belongs to another user", native);
    if (Uninterrupted([&] { return flock(file.Get(), LOCK_EX | LOCK_NB); }) != 0) {
      if (errno == EWOULDBLOCK) return nullptr;
      FailWithErrno("lock", native);
    }
    // One that its holder deleted in between is held in vain.
    if (StandsAt(AT_FDCWD, native, file)) return std::make_unique<LockedFile>(native, std::move(file));
  }
  throw Failure("it comes and goes", native);
}

}  // namespace qublet
