#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"
#include "platform/linux/descriptor.h"
#include "platform/linux/links.h"

namespace qublet {

// A regular file read by descriptor.
class DescriptorInput : public InputFile {
 public:
  explicit DescriptorInput(Descriptor file);
  std::int64_t Size() const override { return version_.size; }
  std::optional<FileVersion> Version() const override { return version_; }
  std::size_t ReadAt(std::int64_t offset, std::span<std::uint8_t> buffer) override;
  const Descriptor& File() const { return file_; }

 private:
  Descriptor file_;
  FileVersion version_;
};

FileVersion VersionOf(const struct stat& status);

// Opens a regular file for reading; anything else is refused without waiting for it. Throws Failure.
std::unique_ptr<DescriptorInput> OpenInput(const std::string& native, Whose whose = Whose::kAnybodys);
// Opens a regular file for a change in place. Throws Failure, also when it is read-only.
std::unique_ptr<InPlaceFile> OpenForChange(const std::string& native, Whose whose = Whose::kAnybodys);
// Makes a file of mode 0600 whose name stands on the disk. Throws Failure, also when there is one.
std::unique_ptr<InPlaceFile> MakePrivate(const std::string& native);

}  // namespace qublet
