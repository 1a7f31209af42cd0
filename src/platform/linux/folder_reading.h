#pragma once

#include <dirent.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace qublet {

// A name that begins with a dot.
bool IsHiddenName(std::string_view name);

// The device that was last seen to hold files of someone: its folders aren't asked again whether they show the
// kernel.
using DeviceWithFiles = std::atomic<std::uint64_t>;

class LinuxFolder : public OpenedFolder {
 public:
  // Throws Failure. `with_files` outlives this.
  LinuxFolder(const std::string& native, DeviceWithFiles& with_files);

  FolderIdentity Identity() const override { return identity_; }
  std::vector<FolderEntry> Read() override;

 private:
  struct Close {
    void operator()(DIR* folder) const { closedir(folder); }
  };

  bool ShowsTheKernel() const;

  const std::string native_;
  DeviceWithFiles& with_files_;
  std::unique_ptr<DIR, Close> open_;
  FolderIdentity identity_;
};

}  // namespace qublet
