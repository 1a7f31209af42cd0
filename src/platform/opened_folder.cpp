#include "platform/file_system.h"

namespace qublet {
namespace {

// Each step by the folder's name.
class NamedFolder : public OpenedFolder {
 public:
  NamedFolder(const FileSystem& files, const std::string& folder, const FolderIdentity& identity)
      : files_(files), folder_(folder), identity_(identity) {}

  FolderIdentity Identity() const override { return identity_; }
  std::vector<FolderEntry> Read() override { return files_.ReadFolder(folder_); }

 private:
  const FileSystem& files_;
  const std::string folder_;
  const FolderIdentity identity_;
};

}  // namespace

std::unique_ptr<OpenedFolder> FileSystem::Open(const std::string& folder) const {
  const std::optional<FolderIdentity> identity = IdentityOf(folder);
  if (!identity) return nullptr;
  return std::make_unique<NamedFolder>(*this, folder, *identity);
}

}  // namespace qublet
