#include "platform/linux/replacement.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include "platform/file_content.h"
#include "platform/linux/file_metadata.h"
#include "platform/linux/rename.h"
#include "platform/linux/temporary_file.h"

namespace qublet {
namespace {

constexpr std::size_t kSetOutTogether = 1024 * 1024;  // bytes on their way to the disk while more is written
constexpr int kMostLinks = 40;

struct Place {
  std::string folder;  // with its trailing "/", or "" for the current folder
  std::string name;
};

Place SplitPlace(const std::string& native) {
  const std::size_t cut = native.rfind('/') + 1;
  return {native.substr(0, cut), native.substr(cut)};
}

// Where a path really leads, the last name's links followed; the file itself may be missing.
Place FollowLinks(std::string native) {
  for (int i = 0; i < kMostLinks; ++i) {
    Place place = SplitPlace(native);
    char target[4096];
    const ssize_t length = readlink(native.c_str(), target, sizeof target);
    if (length < 0) return place;
    const std::string link(target, static_cast<std::size_t>(length));
    native = link.starts_with('/') ? link : place.folder + link;
  }
  throw Failure("too many links", native);
}

// Flushing a folder needs it readable; one that is not still serves to make files in.
Descriptor OpenFolder(const std::string& folder) {
  const std::string native = folder.empty() ? "." : folder;
  Descriptor readable(open(native.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return readable.IsOpen() ? std::move(readable) : OpenAt(AT_FDCWD, native, O_PATH | O_DIRECTORY);
}

}  // namespace

Replacement::Replacement(const std::string& native, Role role, DescriptorInput* source, FolderFlushes* batches)
    : role_(role), source_(source), batches_(batches) {
  const Place place = role == Role::kMoved ? SplitPlace(native) : FollowLinks(native);
  if (place.name.empty()) throw Failure("a folder can't be replaced", native);
  name_ = place.name;
  folder_ = OpenFolder(place.folder);
  FindPresent(native);
  OpenTemporary();
}

Replacement::~Replacement() {
  if (!temporary_.empty()) unlinkat(folder_.Get(), temporary_.c_str(), 0);
}

void Replacement::FindPresent(const std::string& native) {
  struct stat status {};
  if (fstatat(folder_.Get(), name_.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return;
  if (role_ == Role::kMoved) throw Failure("there is a file of this name already", native);
  if (!S_ISREG(status.st_mode)) throw Failure("only a regular file can be replaced", native);
  if (RefusesWriting(folder_.Get(), name_, status)) throw Failure("read-only", native);
  present_ = status;
  present_file_ = Descriptor(openat(folder_.Get(), name_.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
}

void Replacement::OpenTemporary() {
  // What replaces a private file must never be readable to others, not even for a moment.
  const mode_t mode = present_ || source_ != nullptr ? 0600 : 0666;
  const bool no_entry = faccessat(folder_.Get(), ".", W_OK | X_OK, AT_EACCESS) != 0;
  if (no_entry && (errno == EACCES || errno == EROFS))
    throw FolderRefusesWriting("no file can be made beside " + name_);
  TemporaryFile made = MakeTemporaryFile(folder_, name_, mode);
  file_ = std::move(made.file);
  temporary_ = std::move(made.name);
}

void Replacement::WriteOut(std::span<const std::uint8_t> bytes) {
  WriteFully(file_, bytes);
  waiting_ += bytes.size();
  if (waiting_ < kSetOutTogether) return;
  StartFlush(file_);
  waiting_ = 0;
}

void Replacement::CopyFrom(InputFile& source, std::int64_t offset, std::int64_t length) {
  if (const auto* input = dynamic_cast<DescriptorInput*>(&source)) {
    const std::int64_t copied = CopyInKernel(input->File(), offset, length);
    offset += copied;
    length -= copied;
  }
  AppendContent(source, offset, length, *this);
}

// Gives how much was copied; what is left has to be read and written.
std::int64_t Replacement::CopyInKernel(const Descriptor& source, std::int64_t offset, std::int64_t length) {
  if (length < static_cast<std::int64_t>(kBufferSize)) return 0;
  FlushBuffer();
  std::int64_t copied = 0;
  while (copied < length) {
    off64_t place = offset + copied;
    const ssize_t count = Uninterrupted([&] {
      return copy_file_range(source.Get(), &place, file_.Get(), nullptr, static_cast<std::size_t>(length - copied),
                             0);
    });
    if (count < 0 && (errno == ENOSPC || errno == EDQUOT || errno == EIO || errno == EFBIG)) {
      FailWithErrno("copy", name_);
    }
    if (count <= 0) break;
    copied += count;
  }
  return copied;
}

std::unique_ptr<InputFile> Replacement::OpenWritten() {
  FlushBuffer();
  return std::make_unique<DescriptorInput>(OpenAt(folder_.Get(), temporary_, O_RDONLY | O_NOFOLLOW));
}

void Replacement::CopyAttributes() {
  const bool has_source = source_ != nullptr;
  if (!has_source && !present_) return;
  const struct stat model = has_source ? StatusOf(source_->File()) : *present_;
  const Descriptor& model_file = has_source ? source_->File() : present_file_;

  mode_t mode = model.st_mode;
  if (role_ == Role::kMoved) CopyOwner(model, file_, mode);
  if (present_) CopyOwner(*present_, file_, mode);
  CopyMode(mode, file_);
  if (model_file.IsOpen()) CopyExtendedAttributes(model_file, file_);
  if (has_source) CopyTimes(model, file_);
}

void Replacement::RefuseAnotherVersion() const {
  if (!only_) return;
  struct stat status {};
  const bool there = fstatat(folder_.Get(), name_.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
  if (!there || VersionOf(status) != *only_) throw ChangedMeanwhile();
}

void Replacement::Commit() {
  if (temporary_.empty()) throw Failure("committed already", name_);
  FlushBuffer();
  CopyAttributes();
  FlushToDisk(file_);
  RefuseAnotherVersion();
  if (role_ == Role::kMoved) {
    RenameInFolder(folder_.Get(), temporary_, name_);
  } else if (renameat(folder_.Get(), temporary_.c_str(), folder_.Get(), name_.c_str()) != 0) {
    FailWithErrno("replace", name_);
  }
  temporary_.clear();
  file_ = Descriptor();
  FolderFlushes at_once;
  (batches_ != nullptr ? *batches_ : at_once).Flush(std::move(folder_));
}

}  // namespace qublet
