#pragma once

#include <memory>
#include <utility>

#include "media/tag_write.h"
#include "platform/forwarding_file_system.h"
#include "support/memory_file.h"

namespace qublet {

// Holds one file in memory, which nothing is written to.
class OneFile : public ForwardingFileSystem {
 public:
  OneFile(FileSystem& files, Bytes content) : ForwardingFileSystem(files), content_(std::move(content)) {}

  std::optional<unsigned> Attributes(const std::string&) const override { return 0; }
  std::int64_t FileLength(const std::string&) const override { return static_cast<std::int64_t>(content_.size()); }
  bool IsReadOnly(const std::string&) const override { return false; }
  std::unique_ptr<InputFile> OpenForReading(const std::string&) const override {
    return std::make_unique<MemoryFile>(content_);
  }

  Bytes Changed(const EndsChange& change) const {
    const auto at = [this](std::int64_t place) { return content_.begin() + static_cast<std::ptrdiff_t>(place); };
    const auto size = static_cast<std::int64_t>(content_.size());
    return Joined({Bytes(at(0), at(change.before)), change.head,
                   Bytes(at(change.before + change.old_head), at(size - change.old_tail)), change.tail});
  }

 private:
  Bytes content_;
};

}  // namespace qublet
