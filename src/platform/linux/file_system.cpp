#include "platform/file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/linux/descriptor.h"
#include "platform/linux/drives.h"
#include "platform/linux/move.h"
#include "platform/linux/native_text.h"
#include "platform/linux/open_files.h"
#include "platform/linux/replacement.h"

namespace qublet {
namespace {

bool HasDrive(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' &&
         ((path[0] >= 'a' && path[0] <= 'z') || (path[0] >= 'A' && path[0] <= 'Z'));
}

bool IsSeparator(char character) {
  return character == '\\' || character == '/';
}

bool IsHiddenName(std::string_view name) {
  return name.starts_with('.') && name != "." && name != "..";
}

std::string_view LastName(std::string_view path) {
  while (!path.empty() && IsSeparator(path.back())) path.remove_suffix(1);
  return path.substr(path.find_last_of("\\/") + 1);
}

std::string NativeCurrentFolder() {
  struct stat here {};
  struct stat named {};
  const char* shown = std::getenv("PWD");
  if (shown != nullptr && *shown == '/' && stat(shown, &named) == 0 && stat(".", &here) == 0 &&
      named.st_dev == here.st_dev && named.st_ino == here.st_ino) {
    return PlainNativePath(shown);
  }
  char* place = getcwd(nullptr, 0);
  const std::string folder = place != nullptr ? place : "/";
  std::free(place);
  return PlainNativePath(folder);
}

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

class LinuxFileSystem : public FileSystem {
 public:
  LinuxFileSystem() : drives_(Drives::FindFolder()) {
    current_native_ = NativeCurrentFolder();
    if (!Guarded([&] { current_ = drives_.TextOf(current_native_); })) current_ = "z:\\";
  }

  std::optional<unsigned> Attributes(const std::string& path) const override;
  std::int64_t FileLength(const std::string& path) const override;
  bool IsReadOnly(const std::string& path) const override;
  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override;
  std::optional<FolderIdentity> IdentityOf(const std::string& folder) const override;

  std::unique_ptr<InputFile> OpenForReading(const std::string& path) const override {
    return OpenInput(ToNative(path));
  }
  std::unique_ptr<FileReplacement> BeginReplacement(const std::string& path) const override {
    return std::make_unique<Replacement>(ToNative(path));
  }
  std::unique_ptr<InPlaceFile> OpenInPlace(const std::string& path) const override {
    return OpenForChange(ToNative(path));
  }

  void Rename(const std::string& from, const std::string& to) const override { Move(ToNative(from), ToNative(to)); }
  void DeleteFile(const std::string& path) const override;
  void CopyFile(const std::string& source, const std::string& target) const override;
  void CreateFolder(const std::string& path) const override;

  std::string CurrentFolder() const override { return current_; }
  void SetCurrentFolder(const std::string& folder) override;
  std::string ToNative(const std::string& path) const override;
  std::string FromNative(const std::string& native) const override;

 private:
  // Follows links. Throws Failure.
  struct stat StatusAt(const std::string& path) const {
    struct stat status {};
    const std::string native = ToNative(path);
    if (stat(native.c_str(), &status) != 0) FailWithErrno("examine", native);
    return status;
  }

  Drives drives_;
  std::string current_;         // as it was named, drive form
  std::string current_native_;  // the same place, absolute
};

std::optional<unsigned> LinuxFileSystem::Attributes(const std::string& path) const {
  std::optional<unsigned> attributes;
  ResumeNext([&] {
    const struct stat status = StatusAt(path);
    unsigned bits = S_ISDIR(status.st_mode) ? kFolder : kArchive;
    if ((status.st_mode & S_IWUSR) == 0) bits |= kReadOnly;
    if (IsHiddenName(LastName(path))) bits |= kHidden;
    attributes = bits;
  });
  return attributes;
}

std::int64_t LinuxFileSystem::FileLength(const std::string& path) const {
  const struct stat status = StatusAt(path);
  if (S_ISDIR(status.st_mode)) throw Failure("a folder has no length: " + path);
  return status.st_size;
}

bool LinuxFileSystem::IsReadOnly(const std::string& path) const {
  return RefusesWriting(AT_FDCWD, ToNative(path), StatusAt(path));
}

std::vector<FolderEntry> LinuxFileSystem::ReadFolder(const std::string& folder) const {
  const std::string native = ToNative(folder);
  const std::unique_ptr<DIR, CloseFolder> open(opendir(native.c_str()));
  if (!open) FailWithErrno("list", native);

  std::vector<FolderEntry> entries;
  errno = 0;
  while (const dirent* entry = readdir(open.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    bool is_folder = entry->d_type == DT_DIR;
    if (entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN) {
      struct stat status {};
      if (fstatat(dirfd(open.get()), entry->d_name, &status, 0) != 0) continue;
      is_folder = S_ISDIR(status.st_mode);
    }
    entries.push_back({TextFromNative(name), is_folder, IsHiddenName(name)});
    errno = 0;
  }
  if (errno != 0) FailWithErrno("list", native);
  return entries;
}

std::optional<FolderIdentity> LinuxFileSystem::IdentityOf(const std::string& folder) const {
  std::optional<FolderIdentity> identity;
  ResumeNext([&] {
    const struct stat status = StatusAt(folder);
    if (S_ISDIR(status.st_mode)) identity = FolderIdentity{status.st_dev, status.st_ino};
  });
  return identity;
}

void LinuxFileSystem::DeleteFile(const std::string& path) const {
  const std::string native = ToNative(path);
  if (unlink(native.c_str()) != 0) FailWithErrno("delete", native);
}

void LinuxFileSystem::CopyFile(const std::string& source, const std::string& target) const {
  const auto input = OpenInput(ToNative(source));
  Replacement copy(ToNative(target));
  copy.CopyFrom(*input, 0, input->Size());
  copy.ResembleOnCommit(input->File(), false);
  copy.Commit();
}

void LinuxFileSystem::CreateFolder(const std::string& path) const {
  const std::string native = ToNative(path);
  if (mkdir(native.c_str(), 0777) != 0) FailWithErrno("make folder", native);
}

void LinuxFileSystem::SetCurrentFolder(const std::string& folder) {
  std::string native = ToNative(folder);
  std::string text;
  if (HasDrive(folder)) {
    const std::string plain = PlainNativePath(NativeFromText(folder.substr(2)));
    text = {static_cast<char>(folder[0] | 0x20), ':'};
    text += TextFromNative(plain);
    native = ToNative(text);
  } else {
    text = FromNative(native);
    native = ToNative(text);
  }
  if (chdir(native.c_str()) != 0) FailWithErrno("enter", native);
  current_ = text;
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
  if (path.size() > 1 && IsSeparator(path[1])) throw Failure("a path names a server: " + path);
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
