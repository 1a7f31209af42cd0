#pragma once

#include <memory>
#include <string>

#include "platform/buffered_replacement.h"
#include "platform/windows/open_files.h"

namespace qublet {

// The next version of a file: a temporary file ".qublet-..." in the same folder that is put in its place by the
// system's own call for that, which keeps attributes, access list, creation time and further streams of the present
// file.
class Replacement : public BufferedReplacement {
 public:
  // What is written and whose attributes and times it takes.
  enum class Role {
    kNewVersion,  // the present file's
    kCopy,        // the source's
    kMoved,       // the source's; a present file is a failure
  };

  // `place` is absolute. `source` is the file copied or moved and lives as long as this. Throws Failure (see
  // FileSystem::BeginReplacement).
  explicit Replacement(const std::wstring& place, Role role = Role::kNewVersion, HandleInput* source = nullptr);
  ~Replacement() override;

  void CopyFrom(InputFile& source, std::int64_t offset, std::int64_t length) override;
  std::unique_ptr<InputFile> OpenWritten() override;
  void ReplaceOnly(const std::optional<FileVersion>& version) override { only_ = version; }
  void Commit() override;

 private:
  void CheckPresent();
  void OpenTemporary();
  void WriteOut(std::span<const std::uint8_t> bytes) override;
  void RefuseAnotherVersion() const;
  void PutInPlace();

  Role role_;
  HandleInput* source_;
  std::wstring place_;
  std::wstring temporary_;                   // "" when there is none (any more)
  FILE_BASIC_INFO model_{};                  // of the source
  std::optional<FileVersion> only_;          // the one version that may be replaced
  DWORD present_ = INVALID_FILE_ATTRIBUTES;  // of the present file
  Handle file_;
};

// A name for a temporary file that no file has.
std::wstring RandomName();

// Throws Failure for a place whose name stands for a device (see IsDeviceName): most programs couldn't open or delete
// what we make there.
void RefuseDeviceName(const std::wstring& place);

// Where a path really leads, links followed. A file that isn't there, or is no link, is where its path says.
std::wstring FollowLinks(const std::wstring& place);

// True when a write is refused: the read-only attribute, or no right to write. Not for one that is merely in use.
bool RefusesWriting(const std::wstring& place);

}  // namespace qublet
