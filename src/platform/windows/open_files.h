#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"
#include "platform/windows/handle.h"

namespace qublet {

// A file read by handle.
class HandleInput : public InputFile {
 public:
  explicit HandleInput(Handle file);
  std::int64_t Size() const override { return version_.size; }
  std::optional<FileVersion> Version() const override { return version_; }
  std::size_t ReadAt(std::int64_t offset, std::span<std::uint8_t> buffer) override;
  const Handle& File() const { return file_; }

 private:
  Handle file_;
  FileVersion version_;
};

// The state of an open file. Throws Failure.
FileVersion VersionOf(const Handle& file);

// Opens a file for reading; nothing that others do with it meanwhile is hindered. Throws Failure, also for a folder
// or a device.
std::unique_ptr<HandleInput> OpenInput(const std::wstring& place);
// Opens a file for a change in place. Throws Failure, also when it is read-only.
std::unique_ptr<InPlaceFile> OpenForChange(const std::wstring& place);
// Makes a file; who may read it is what its folder says, and ours lie below the user's own. Throws Failure, also when
// there is one.
std::unique_ptr<InPlaceFile> MakePrivate(const std::wstring& place);

// Length of an open file. Throws Failure.
std::int64_t SizeOf(const Handle& file);
// Writes all bytes at the handle's own place, or at `offset`. Throws Failure.
void WriteFully(const Handle& file, std::span<const std::uint8_t> bytes);
void WriteFullyAt(const Handle& file, std::int64_t offset, std::span<const std::uint8_t> bytes);
// To the disk itself. Throws Failure.
void FlushToDisk(const Handle& file);

}  // namespace qublet
