#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/linux/descriptor.h"
#include "platform/linux/open_files.h"

namespace qublet {

// The next version of a file: a temporary file ".qublet-..." in the same folder that is renamed over it. The folder
// is held open, so that a change of the current folder meanwhile does no harm.
class Replacement : public FileReplacement {
 public:
  // What becomes of a file that stands at the target: it is replaced, or the whole undertaking fails.
  enum class Present { kReplaced, kNeverTouched };

  // Throws Failure (see FileSystem::BeginReplacement).
  explicit Replacement(const std::string& native, Present present = Present::kReplaced);
  ~Replacement() override;

  void Write(std::span<const std::uint8_t> bytes) override;
  void CopyFrom(InputFile& source, std::int64_t offset, std::int64_t length) override;
  std::unique_ptr<InputFile> OpenWritten() override;
  void Commit() override;

  // Commit takes mode, extended attributes and time from this file instead of the present one, and the owner too if
  // `keep_owner`.
  void ResembleOnCommit(const Descriptor& model, bool keep_owner);

 private:
  void OpenTemporary();
  void FlushBuffer();
  std::int64_t CopyInKernel(const Descriptor& source, std::int64_t offset, std::int64_t length);
  void CopyAttributes();

  std::string name_;       // in folder_
  std::string temporary_;  // in folder_, "" when there is none (any more)
  Present present_rule_;
  Descriptor folder_;
  Descriptor present_;  // open when there is a present file that can be read
  std::optional<struct stat> present_status_;
  Descriptor file_;
  std::vector<std::uint8_t> buffer_;
  const Descriptor* model_ = nullptr;
  bool keep_owner_ = false;
};

}  // namespace qublet
