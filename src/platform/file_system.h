#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/absent_places.h"
#include "platform/failure.h"
#include "platform/real_names.h"

namespace qublet {

// Attribute bits as the described file system gives them.
enum FileAttribute : unsigned {
  kReadOnly = 1,
  kHidden = 2,
  kSystem = 4,
  kVolumeLabel = 8,
  kFolder = 16,
  kArchive = 32,
};

// One name inside a folder, as it stands there ("." and ".." left out).
struct FolderEntry {
  std::string name;
  bool is_folder = false;
  bool hidden = false;
};

// What tells one folder from another whatever name leads to it.
struct FolderIdentity {
  std::uint64_t device = 0;
  std::uint64_t number = 0;
  bool operator==(const FolderIdentity&) const = default;
};

// A folder that has been opened, for who has to know which one it is before it is read.
class OpenedFolder {
 public:
  virtual ~OpenedFolder() = default;
  virtual FolderIdentity Identity() const = 0;
  // As FileSystem::ReadFolder; once. Throws Failure.
  virtual std::vector<FolderEntry> Read() = 0;
};

// What tells one file of a disk from another whatever name leads to it: a link is another one than the file that it
// leads to. It lasts until the file is replaced, also over a start of the system.
struct FileIdentity {
  std::uint64_t number = 0;
  std::int64_t made = 0;  // when the file was made, in a unit of this system's; 0 where the disk doesn't keep it
  bool operator==(const FileIdentity&) const = default;
};

// What tells one state of a file from another: a change of its content or of what the system keeps about it gives
// another one, and so does another file in its place. As fine as the times that the disk keeps.
struct FileVersion {
  std::uint64_t device = 0;
  std::uint64_t number = 0;
  std::int64_t size = 0;     // in bytes
  std::int64_t written = 0;  // time of the last change of the content, in a unit of this system's
  std::int64_t changed = 0;  // time of the last change of anything; 0 where the disk doesn't keep it
  bool operator==(const FileVersion&) const = default;
};

// A file isn't any more what it was when it was read.
class ChangedMeanwhile : public Failure {
 public:
  ChangedMeanwhile() : Failure("the file has changed meanwhile") {}
};

// A file opened for reading at any place. Safe to use from the thread that opened it.
class InputFile {
 public:
  virtual ~InputFile() = default;
  // Length in bytes at the moment of opening.
  virtual std::int64_t Size() const = 0;
  // The state at that moment; nothing for what isn't a file of a disk.
  virtual std::optional<FileVersion> Version() const { return std::nullopt; }
  // Reads up to buffer.size() bytes from `offset`; gives how many were read, fewer only at the end of the file.
  // Throws Failure on an input error.
  virtual std::size_t ReadAt(std::int64_t offset, std::span<std::uint8_t> buffer) = 0;
};

// The next version of a file, being written under a temporary name in the same folder. Nothing of the present file
// is touched before Commit; a replacement that is dropped without Commit takes its temporary file with it. One that
// is killed leaves it behind, until the next replacement of the same file deletes it (on Linux: of a file on a disk
// of this machine).
class FileReplacement {
 public:
  virtual ~FileReplacement() = default;
  // Appends bytes. Throws Failure (disk full, input/output error).
  virtual void Write(std::span<const std::uint8_t> bytes) = 0;
  // Appends `length` bytes of `source` from `offset`. Throws Failure, also when the source ends early.
  virtual void CopyFrom(InputFile& source, std::int64_t offset, std::int64_t length) = 0;
  // Opens what has been written so far for reading, so that it can be checked before Commit. Throws Failure.
  virtual std::unique_ptr<InputFile> OpenWritten() = 0;
  // For a new version that is made of the present one: Commit then throws ChangedMeanwhile unless the present file is
  // still in this state, and leaves what another program has made of it. Nothing for a state that isn't known: any.
  virtual void ReplaceOnly(const std::optional<FileVersion>& /*version*/) {}
  // Flushes to disk, copies mode, owner, access lists and extended attributes of the present file, renames over it
  // and flushes the folder (see ReplacementBatch). Throws Failure; the present file is then as it was.
  virtual void Commit() = 0;
};

// Many files replaced one after the other, from the making of this to its end. Each new version is flushed as ever
// before it takes the old one's place; the flush of a folder waits for a file of another folder or for the end. Until
// then a crash of the machine may bring old versions back, as whole as they were.
class ReplacementBatch {
 public:
  virtual ~ReplacementBatch() = default;
};

// A file changed in place, for the few changes that move nothing. Every call throws Failure.
class InPlaceFile {
 public:
  virtual ~InPlaceFile() = default;
  virtual std::int64_t Size() const = 0;
  virtual void WriteAt(std::int64_t offset, std::span<const std::uint8_t> bytes) = 0;
  virtual void Truncate(std::int64_t size) = 0;
  virtual void Flush() = 0;
};

// Nothing can be made in the folder where a new version of a file would stand, though the file itself may be
// changed.
class FolderRefusesWriting : public Failure {
  using Failure::Failure;
};

// Files and folders under paths in drive form ("z:\home\u\a.mp3"), UTF-8. A path without a drive is relative to the
// current folder. Native paths exist only behind this interface; ToNative and FromNative are the border.
// All const operations may be called from several threads at once.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // The attribute bits of a file or folder, nothing when it can't be reached. Never throws.
  virtual std::optional<unsigned> Attributes(const std::string& path) const = 0;
  // Whether the file or folder can be reached: Attributes without what they cost. Never throws.
  virtual bool Exists(const std::string& path) const { return Attributes(path).has_value(); }
  // Sets and clears kReadOnly, kHidden, kSystem and kArchive. Throws Failure when the file can't be reached or
  // changed, or when this file system can't keep a bit.
  virtual void SetAttributes(const std::string& path, unsigned attributes) const = 0;
  // Length of a file in bytes. Throws Failure when it can't be found or is a folder.
  virtual std::int64_t FileLength(const std::string& path) const = 0;
  // True when a write to this file is refused: no owner write bit on the file that the path leads to (links
  // resolved), or no write access; it holds for the superuser too. Throws Failure when the file can't be reached.
  virtual bool IsReadOnly(const std::string& path) const = 0;

  // All names of a folder, in no particular order; none where the system shows its own state as files (/proc, /sys).
  // Throws Failure when it can't be read.
  virtual std::vector<FolderEntry> ReadFolder(const std::string& folder) const = 0;
  // The way to read many folders: no name is looked up twice. Nothing when the folder can't be opened. Never throws.
  virtual std::unique_ptr<OpenedFolder> Open(const std::string& folder) const;
  // Nothing when the folder can't be reached. Never throws.
  virtual std::optional<FolderIdentity> IdentityOf(const std::string& folder) const = 0;
  // The same for a file.
  virtual std::optional<FileIdentity> IdentityOfFile(const std::string& path) const = 0;

  // Where a symbolic link to a file leads in the end; nothing for what is no link. Never throws.
  virtual std::optional<std::string> LinkedFile(const std::string&) const { return std::nullopt; }

  // The names that files really have, for a batch. Ends before this does.
  virtual std::unique_ptr<RealNames> FindRealNames() const;
  // The same for one path: the path itself where nothing else is certain. Never throws.
  std::string RealName(const std::string& path) const;

  // Which places aren't there now. Ends before this does.
  virtual std::unique_ptr<AbsentPlaces> FindAbsentPlaces() const = 0;

  // Throws Failure when the file can't be opened for reading or is no regular file.
  virtual std::unique_ptr<InputFile> OpenForReading(const std::string& path) const = 0;
  // Starts a new version of `path`, which need not exist yet. Symbolic links are resolved first. Throws Failure when
  // the present file is read-only (see IsReadOnly) or a folder, FolderRefusesWriting when the folder that the links
  // lead to can't be written.
  virtual std::unique_ptr<FileReplacement> BeginReplacement(const std::string& path) const = 0;
  // Holds for what BeginReplacement gives to any thread, and ends before this does. Batches may overlap.
  virtual std::unique_ptr<ReplacementBatch> BeginBatch() const { return std::make_unique<ReplacementBatch>(); }
  // Opens an existing file for a change in place. Throws Failure, also when it is read-only.
  virtual std::unique_ptr<InPlaceFile> OpenInPlace(const std::string& path) const = 0;
  // Makes a file that nobody but this user can read. Throws Failure, also when there is a file of that name.
  virtual std::unique_ptr<InPlaceFile> CreatePrivate(const std::string& path) const = 0;

  // Renames or moves a file or folder; an existing target is a failure, never replaced. Across file systems a file
  // is copied, checked and deleted. Throws Failure.
  virtual void Rename(const std::string& from, const std::string& to) const = 0;
  // Throws Failure, also for a folder.
  virtual void DeleteFile(const std::string& path) const = 0;
  // Replaces `target` by a copy of `source`, by way of BeginReplacement; keeps the time of the last change.
  // Throws Failure.
  virtual void CopyFile(const std::string& source, const std::string& target) const = 0;
  // Throws Failure when the folder exists or can't be made.
  virtual void CreateFolder(const std::string& path) const = 0;

  // The same files under the rule for the program's own ones. On Linux such a file belongs to this user and is made
  // for this user alone, as a folder is; a symbolic link leads to one only if it is this user's and nobody else could
  // have changed it. What breaks the rule is a Failure, for who reads as for who replaces. Elsewhere there is no such
  // rule. Ends with this.
  virtual const FileSystem& OwnFiles() const { return *this; }

  // The current folder in drive form, without a trailing "\" unless it is the root of a drive ("z:\").
  virtual std::string CurrentFolder() const = 0;
  // Makes a folder and its drive current for the whole process. Throws Failure. Not while other threads read.
  virtual void SetCurrentFolder(const std::string& folder) = 0;

  // This system's own form of a path; the result is absolute when the path has a drive. Throws Failure when no such
  // drive exists.
  virtual std::string ToNative(const std::string& path) const = 0;
  // Drive form of an own path of this system, made absolute against the current folder; "." and ".." are resolved as
  // text. Throws Failure when no drive leads there.
  virtual std::string FromNative(const std::string& native) const = 0;
};

// The file system of this machine. On Linux the drives are read once, here (see platform/linux/drives.h).
std::unique_ptr<FileSystem> OpenFileSystem();

}  // namespace qublet
