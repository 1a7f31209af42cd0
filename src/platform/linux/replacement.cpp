#include "platform/linux/replacement.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <algorithm>

#include "platform/file_content.h"
#include "platform/linux/file_metadata.h"
#include "platform/linux/holes.h"
#include "platform/linux/links.h"
#include "platform/linux/rename.h"
#include "platform/linux/temporary_file.h"
#include "platform/linux/unfinished_files.h"

namespace qublet {
namespace {

constexpr std::size_t kSetOutTogether = 1024 * 1024;  // bytes on their way to the disk while more is written

bool IsZero(std::span<const std::uint8_t> bytes) {
  return std::ranges::all_of(bytes, [](std::uint8_t byte) { return byte == 0; });
}

HeldPlace PlaceFor(const std::string& native, Replacement::Role role) {
  using Role = Replacement::Role;
  if (role == Role::kMoved) return PlaceAsNamed(native);
  return PlaceOf(native, role == Role::kOwnFile ? Whose::kOwn : Whose::kAnybodys);
}

// Flushing a folder needs it readable; one that is not still serves to make files in.
Descriptor ReadableIfPossible(Descriptor folder) {
  Descriptor readable(openat(folder.Get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return readable.IsOpen() ? std::move(readable) : std::move(folder);
}

}  // namespace

Replacement::Replacement(const std::string& native, Role role, DescriptorInput* source, FolderFlushes* batches)
    : role_(role), source_(source), batches_(batches) {
  HeldPlace place = PlaceFor(native, role);
  if (place.name.empty()) throw Failure("a folder can't be replaced", native);
  name_ = place.name;
  folder_ = ReadableIfPossible(std::move(place.folder));
  FindPresent(native);
  OpenTemporary();
}

Replacement::~Replacement() {
  if (temporary_.empty()) return;
  const WholeStep step = BeginWholeStep();
  unlinkat(folder_.Get(), temporary_.c_str(), 0);
  ForgetUnfinished(folder_.Get(), temporary_);
}

void Replacement::FindPresent(const std::string& native) {
  struct stat status {};
  if (fstatat(folder_.Get(), name_.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return;
  if (role_ == Role::kMoved) throw Failure("there is a file of this name already", native);
  if (!S_ISREG(status.st_mode)) throw Failure("only a regular file can be replaced", native);
  if (role_ == Role::kOwnFile && !IsThisUsers(status)) throw Failure("belongs to another user", native);
  if (RefusesWriting(folder_.Get(), name_, status)) throw Failure("read-only", native);
  present_ = status;
  present_file_ = Descriptor(openat(folder_.Get(), name_.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
}

void Replacement::OpenTemporary() {
  // What replaces a private file must never be readable to others, not even for a moment.
  const mode_t mode = present_ || source_ != nullptr || role_ == Role::kOwnFile ? 0600 : 0666;
  const bool no_entry = faccessat(folder_.Get(), ".", W_OK | X_OK, AT_EACCESS) != 0;
  if (no_entry && (errno == EACCES || errno == EROFS))
    throw FolderRefusesWriting("no file can be made beside " + name_);
  const WholeStep step = BeginWholeStep();
  TemporaryFile made = MakeTemporaryFile(folder_, name_, mode);
  NoteUnfinished(folder_.Get(), made.name);
  file_ = std::move(made.file);
  temporary_ = std::move(made.name);
}

void Replacement::WriteOut(std::span<const std::uint8_t> bytes) {
  const std::size_t step = present_ && HasHoles(*present_) ? kBufferSize : bytes.size();
  for (; !bytes.empty(); bytes = bytes.subspan(std::min(step, bytes.size()))) {
    const auto piece = bytes.first(std::min(step, bytes.size()));
    piece.size() == kBufferSize&& IsZero(piece) ? PassOver(kBufferSize) : WriteData(piece);
  }
}

void Replacement::WriteData(std::span<const std::uint8_t> bytes) {
  WriteFully(file_, bytes);
  waiting_ += bytes.size();
  if (waiting_ < kSetOutTogether) return;
  StartFlush(file_);
  waiting_ = 0;
}

void Replacement::CopyFrom(InputFile& source, std::int64_t offset, std::int64_t length) {
  auto* const input = dynamic_cast<DescriptorInput*>(&source);
  if (input == nullptr || length < static_cast<std::int64_t>(kBufferSize))
    return AppendContent(source, offset, length, *this);
  ExpectRoom(input->File(), length, file_);
  for (const std::int64_t end = offset + length; offset < end;) {
    const std::int64_t data = NextData(input->File(), offset, end);
    const std::int64_t hole = data < end ? NextHole(input->File(), data, end) : end;
    LeaveHole(data - offset);
    CopyData(*input, data, hole - data);
    offset = hole;
  }
}

void Replacement::CopyData(DescriptorInput& source, std::int64_t offset, std::int64_t length) {
  const std::int64_t copied = CopyInKernel(source.File(), offset, length);
  AppendContent(source, offset + copied, length - copied, *this);
}

void Replacement::LeaveHole(std::int64_t length) {
  if (length == 0) return;
  FlushBuffer();
  PassOver(length);
}

void Replacement::PassOver(std::int64_t length) {
  const off_t end = lseek(file_.Get(), length, SEEK_CUR);
  if (end < 0 || ftruncate(file_.Get(), end) != 0) FailWithErrno("copy", name_);
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
  // An access list lets nobody in any more then.
  if (role_ == Role::kOwnFile) CopyMode(0600, file_);
  if (has_source) CopyTimes(model, file_);
}

void Replacement::RefuseAnotherVersion() const {
  if (!only_) return;
  struct stat status {};
  const bool there = fstatat(folder_.Get(), name_.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
  if (!there || VersionOf(status) != *only_) throw ChangedMeanwhile();
}

void Replacement::TakePlace() {
  const WholeStep step = BeginWholeStep();
  if (role_ == Role::kMoved) {
    RenameInFolder(folder_.Get(), temporary_, name_);
  } else if (renameat(folder_.Get(), temporary_.c_str(), folder_.Get(), name_.c_str()) != 0) {
    FailWithErrno("replace", name_);
  }
  ForgetUnfinished(folder_.Get(), temporary_);
  temporary_.clear();
}

void Replacement::Commit() {
  if (temporary_.empty()) throw Failure("committed already", name_);
  FlushBuffer();
  CopyAttributes();
  FlushToDisk(file_);
  RefuseAnotherVersion();
  TakePlace();
  file_ = Descriptor();
  FolderFlushes at_once;
  (batches_ != nullptr ? *batches_ : at_once).Flush(std::move(folder_));
}

}  // namespace qublet
