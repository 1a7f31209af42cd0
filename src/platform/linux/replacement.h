#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/buffered_replacement.h"
#include "platform/linux/descriptor.h"
#include "platform/linux/folder_flushes.h"
#include "platform/linux/open_files.h"

namespace qublet {

// The next version of a file: a temporary file ".qublet-..." in the same folder that is renamed over it. The folder
// is held open, so that a change of the current folder meanwhile does no harm.
class Replacement : public BufferedReplacement {
 public:
  // What is written and whose mode, extended attributes and times it takes.
  enum class Role {
    kNewVersion,  // the present file's
    kOwnFile,     // that of one of the program's own files: this user's alone
    kCopy,        // the source's; the owner stays that of the present file
    kMoved,       // the source's, the owner too; a present file is a failure
  };

  // `source` is the file copied or moved, `batches` may put the folder's flush off; both live as long as this. Throws
  // Failure (see FileSystem::BeginReplacement).
  explicit Replacement(const std::string& native, Role role = Role::kNewVersion, DescriptorInput* source = nullptr,
                       FolderFlushes* batches = nullptr);
  ~Replacement() override;

  void CopyFrom(InputFile& source, std::int64_t offset, std::int64_t length) override;
  std::unique_ptr<InputFile> OpenWritten() override;
  void ReplaceOnly(const std::optional<FileVersion>& version) override { only_ = version; }
  void Commit() override;

 private:
  void FindPresent(const std::string& native);
  void OpenTemporary();
  // Long zeros stay unwritten in the place of a file with holes.
  void WriteOut(std::span<const std::uint8_t> bytes) override;
  void WriteData(std::span<const std::uint8_t> bytes);
  void CopyData(DescriptorInput& source, std::int64_t offset, std::int64_t length);
  void LeaveHole(std::int64_t length);
  void PassOver(std::int64_t length);
  std::int64_t CopyInKernel(const Descriptor& source, std::int64_t offset, std::int64_t length);
  void CopyAttributes();
  void RefuseAnotherVersion() const;
  void TakePlace();

  Role role_;
  DescriptorInput* source_;
  FolderFlushes* batches_;
  std::string name_;       // in folder_
  std::string temporary_;  // in folder_, "" when there is none (any more)
  Descriptor folder_;
  std::optional<struct stat> present_;
  std::optional<FileVersion> only_;  // the one version that may be replaced
  Descriptor present_file_;          // open when the present file can be read
  Descriptor file_;
  std::size_t waiting_ = 0;  // bytes written that haven't set out for the disk
};

}  // namespace qublet
