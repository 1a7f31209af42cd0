#include "platform/file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/drive_form.h"
#include "platform/forwarding_file_system.h"
#include "platform/linux/absent_places.h"
#include "platform/linux/attributes.h"
#include "platform/linux/descriptor.h"
#include "platform/linux/drives.h"
#include "platform/linux/file_system_kind.h"
#include "platform/linux/folder_flushes.h"
#include "platform/linux/folder_reading.h"
#include "platform/linux/links.h"
#include "platform/linux/move.h"
#include "platform/linux/native_text.h"
#include "platform/linux/open_files.h"
#include "platform/linux/reached_path.h"
#include "platform/linux/replacement.h"

namespace qublet {
namespace {

std::string_view LastName(std::string_view path) {
  while (!path.empty() && IsSeparator(path.back())) path.remove_suffix(1);
  return path.substr(path.find_last_of("\\/") + 1);
}

bool SameFile(const std::string& one, const std::string& other) {
  struct stat a {};
  struct stat b {};
  return stat(one.c_str(), &a) == 0 && stat(other.c_str(), &b) == 0 && a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

void MakeFolder(const std::string& native, mode_t mode) {
  if (mkdir(native.c_str(), mode) != 0) FailWithErrno("make folder", native);
}

// As the user came here, links kept, if the environment tells.
std::string NativeCurrentFolder() {
  const char* shown = std::getenv("PWD");
  if (shown != nullptr && *shown == '/') {
    const std::string named = PlainNativePath(shown);
    if (SameFile(named, ".")) return named;
  }
  char* place = getcwd(nullptr, 0);
  const std::string folder = place != nullptr ? place : "/";
  std::free(place);
  return PlainNativePath(folder);
}

class OwnFileSystem : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;

  std::unique_ptr<InputFile> OpenForReading(const std::string& path) const override {
    return OpenInput(ToNative(path), Whose::kOwn);
  }
  std::unique_ptr<FileReplacement> BeginReplacement(const std::string& path) const override {
    return std::make_unique<Replacement>(ToNative(path), Replacement::Role::kOwnFile);
  }
  std::unique_ptr<InPlaceFile> OpenInPlace(const std::string& path) const override {
    return OpenForChange(ToNative(path), Whose::kOwn);
  }
  void CreateFolder(const std::string& path) const override { MakeFolder(ToNative(path), 0700); }
};

class LinuxFileSystem : public FileSystem {
 public:
  LinuxFileSystem() : drives_(Drives::FindFolder()), current_native_(NativeCurrentFolder()) {
    // Where no drive leads, relative paths would mean something that can't be said.
    if (!Guarded([&] { current_ = drives_.TextOf(current_native_); })) ResumeNext([&] { Enter("z:\\"); });
  }

  std::optional<unsigned> Attributes(const std::string& path) const override;
  bool Exists(const std::string& path) const override { return FindStatus(path).has_value(); }
  void SetAttributes(const std::string& path, unsigned attributes) const override {
    // A name that begins with a dot says it already.
    SetAttributesOf(ToNative(path), IsHiddenName(LastName(path)) ? attributes & ~kHidden : attributes);
  }
  std::int64_t FileLength(const std::string& path) const override;
  bool IsReadOnly(const std::string& path) const override;
  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override;
  std::unique_ptr<OpenedFolder> Open(const std::string& folder) const override;
  std::optional<FolderIdentity> IdentityOf(const std::string& folder) const override;
  std::optional<FileIdentity> IdentityOfFile(const std::string& path) const override;
  std::optional<std::string> LinkedFile(const std::string& path) const override;
  std::unique_ptr<RealNames> FindRealNames() const override { return FindNamesInAnyCase(*this); }
  std::unique_ptr<AbsentPlaces> FindAbsentPlaces() const override { return FindUnmountedPlaces(*this); }

  std::unique_ptr<InputFile> OpenForReading(const std::string& path) const override {
    return OpenInput(ToNative(path));
  }
  std::unique_ptr<FileReplacement> BeginReplacement(const std::string& path) const override {
    return std::make_unique<Replacement>(ToNative(path), Replacement::Role::kNewVersion, nullptr, &flushes_);
  }
  std::unique_ptr<ReplacementBatch> BeginBatch() const override { return flushes_.BeginBatch(); }
  std::unique_ptr<InPlaceFile> OpenInPlace(const std::string& path) const override {
    return OpenForChange(ToNative(path));
  }
  std::unique_ptr<InPlaceFile> CreatePrivate(const std::string& path) const override {
    return MakePrivate(ToNative(path));
  }

  void Rename(const std::string& from, const std::string& to) const override { Move(ToNative(from), ToNative(to)); }
  void DeleteFile(const std::string& path) const override;
  void CopyFile(const std::string& source, const std::string& target) const override;
  void CreateFolder(const std::string& path) const override { MakeFolder(ToNative(path), 0777); }

  const FileSystem& OwnFiles() const override { return own_files_; }

  std::string CurrentFolder() const override { return current_; }
  void SetCurrentFolder(const std::string& folder) override;
  std::string ToNative(const std::string& path) const override;
  std::string FromNative(const std::string& native) const override;

 private:
  // Follows links.
  std::optional<struct stat> FindStatus(const std::string& path) const;
  struct stat StatusAt(const std::string& path) const;
  void Enter(const std::string& text);

  Drives drives_;
  mutable DeviceWithFiles with_files_;
  mutable FolderFlushes flushes_;  // of new versions
  std::string current_;            // as it was named, drive form
  std::string current_native_;     // the same place, absolute
  OwnFileSystem own_files_{*this};
};

std::optional<struct stat> LinuxFileSystem::FindStatus(const std::string& path) const {
  std::optional<struct stat> found;
  ResumeNext([&] {
    struct stat status {};
    const std::string native = ToNative(path);
    const ReachedPath place(native);
    if (fstatat(place.Folder(), place.Name(), &status, 0) == 0) found = status;
  });
  return found;
}

struct stat LinuxFileSystem::StatusAt(const std::string& path) const {
  const auto status = FindStatus(path);
  if (!status) throw Failure("no such file or folder", path);
  return *status;
}

std::optional<unsigned> LinuxFileSystem::Attributes(const std::string& path) const {
  const auto status = FindStatus(path);
  if (!status) return std::nullopt;
  return AttributesOf(ToNative(path), *status) | (IsHiddenName(LastName(path)) ? kHidden : 0u);
}

std::int64_t LinuxFileSystem::FileLength(const std::string& path) const {
  const struct stat status = StatusAt(path);
  if (S_ISDIR(status.st_mode)) throw Failure("is a folder", path);
  return status.st_size;
}

bool LinuxFileSystem::IsReadOnly(const std::string& path) const {
  return RefusesWriting(AT_FDCWD, ToNative(path), StatusAt(path));
}

std::vector<FolderEntry> LinuxFileSystem::ReadFolder(const std::string& folder) const {
  return LinuxFolder(ToNative(folder), with_files_).Read();
}

std::unique_ptr<OpenedFolder> LinuxFileSystem::Open(const std::string& folder) const {
  std::unique_ptr<OpenedFolder> open;
  ResumeNext([&] { open = std::make_unique<LinuxFolder>(ToNative(folder), with_files_); });
  return open;
}

std::optional<FolderIdentity> LinuxFileSystem::IdentityOf(const std::string& folder) const {
  const auto status = FindStatus(folder);
  if (!status || !S_ISDIR(status->st_mode)) return std::nullopt;
  return FolderIdentity{status->st_dev, status->st_ino};
}

// The number of its device may be another one after the next start of the system.
std::optional<FileIdentity> LinuxFileSystem::IdentityOfFile(const std::string& path) const {
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  struct statx status {};
  std::string native;
  if (!Guarded([&] { native = ToNative(path); })) return std::nullopt;
  if (statx(AT_FDCWD, native.c_str(), AT_SYMLINK_NOFOLLOW, STATX_TYPE | STATX_INO | STATX_BTIME, &status) != 0 ||
      S_ISDIR(status.stx_mode))
    return std::nullopt;
  const bool dated = (status.stx_mask & STATX_BTIME) != 0;
  return FileIdentity{status.stx_ino, dated ? status.stx_btime.tv_sec * kNanoseconds + status.stx_btime.tv_nsec : 0};
}

std::optional<std::string> LinuxFileSystem::LinkedFile(const std::string& path) const {
  std::optional<std::string> linked;
  ResumeNext([&] {
    struct stat status {};
    const std::string native = ToNative(path);
    if (lstat(native.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return;
    PlaceOf(native, Whose::kAnybodys);
    const std::unique_ptr<char, void (*)(void*)> real(realpath(native.c_str(), nullptr), std::free);
    if (real) linked = FromNative(real.get());
  });
  return linked;
}

void LinuxFileSystem::DeleteFile(const std::string& path) const {
  const std::string native = ToNative(path);
  if (unlink(native.c_str()) != 0) FailWithErrno("delete", native);
}

void LinuxFileSystem::CopyFile(const std::string& source, const std::string& target) const {
  const auto input = OpenInput(ToNative(source));
  Replacement copy(ToNative(target), Replacement::Role::kCopy, input.get());
  copy.CopyFrom(*input, 0, input->Size());
  copy.Commit();
}

void LinuxFileSystem::SetCurrentFolder(const std::string& folder) {
  std::string absolute = folder;
  if (!HasDrive(folder)) {
    absolute = ToNative(folder).starts_with('/') ? current_.substr(0, 2) + folder : current_ + "\\" + folder;
  }
  Enter(absolute);
}

// `text` has a drive.
void LinuxFileSystem::Enter(const std::string& text) {
  const std::string below = PlainNativePath(NativeFromText(std::string_view(text).substr(2)));
  const std::string native = drives_.RootOf(text[0]) + below;
  if (chdir(native.c_str()) != 0) FailWithErrno("enter", native);
  current_ = {static_cast<char>(text[0] | 0x20), ':'};
  current_ += TextFromNative(below);
  current_native_ = PlainNativePath(native);
}

std::string LinuxFileSystem::ToNative(const std::string& path) const {
  if (path.empty()) throw Failure("a path is empty");
  if (HasDrive(path)) {
    std::string native = drives_.RootOf(path[0]);
    const std::string rest = NativeFromText(std::string_view(path).substr(2));
    if (!rest.starts_with('/')) native += '/';
    return native += rest;
  }
  if (!IsSeparator(path[0])) return NativeFromText(path);
  if (path.size() > 1 && IsSeparator(path[1])) throw Failure("a path names a server", path);
  return drives_.RootOf(current_[0]) + NativeFromText(path);
}

std::string LinuxFileSystem::FromNative(const std::string& native) const {
  if (native.empty()) throw Failure("a path is empty");
  if (native.find('\0') != std::string::npos) throw Failure("a path holds a zero character");
  const bool absolute = native.starts_with('/');
  return drives_.TextOf(PlainNativePath(absolute ? native : current_native_ + "/" + native));
}

}  // namespace

std::unique_ptr<FileSystem> OpenFileSystem() {
  return std::make_unique<LinuxFileSystem>();
}

}  // namespace qublet
